// The names of the points written so far. Points are mostly numbered, so names that differ in their
// last character alone stand together: 16 bytes for all of them, 24 if they are long.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "io/Strings.h"

namespace zelconvert {

class PointNameSet {
 public:
  static constexpr std::size_t kMaxLength = 16;
  /// Of the letters A to Z in either case, the digits and "_", all that a name has: from 1 to 63.
  /// 0 for any other character.
  static constexpr std::uint64_t NumberOf(wchar_t c) {
    return static_cast<char32_t>(c) < kNumbers.size() ? kNumbers[static_cast<std::size_t>(c)] : 0;
  }

  /// False if the name is there already. name: at most 16 characters that have a number.
  [[nodiscard]] bool Insert(std::wstring_view name) {
    const std::uint64_t last = name.empty() ? 0 : NumberOf(name.back());
    const std::wstring_view before = Left(name, name.empty() ? 0 : name.size() - 1);
    const std::uint64_t front = Pack(Left(before, kPacked));
    if (before.size() <= kPacked) return m_short.Insert({front}, last);
    return m_long.Insert({front, Pack(before.substr(kPacked))}, last);
  }

 private:
  static constexpr std::size_t kPacked = 10;  // as many characters as 64 bits hold

  static constexpr auto kNumbers = [] {
    std::array<std::uint8_t, 0x80> numbers = {};
    std::uint8_t last = 0;
    for (std::size_t c = 0; c < numbers.size(); ++c) {
      if (c == '_' || IsAsciiAlnum(static_cast<wchar_t>(c))) numbers[c] = ++last;
    }
    return numbers;
  }();

  static std::uint64_t Pack(std::wstring_view text) {
    std::uint64_t packed = 0;
    for (const wchar_t c : text) packed = packed << 6 | NumberOf(c);
    return packed;
  }

  // By what stands before the last character, packed into so many words: open addressing.
  template <std::size_t words>
  class Table {
   public:
    using Key = std::array<std::uint64_t, words>;

    [[nodiscard]] bool Insert(const Key& before, std::uint64_t last) {
      if (5 * (m_used + 1) > 3 * m_slots.size()) Grow();
      Slot& slot = FindSlot(before);
      if ((slot.last >> last & 1) != 0) return false;
      if (slot.last == 0) ++m_used;
      slot.before = before;
      slot.last |= std::uint64_t{1} << last;
      return true;
    }

   private:
    static constexpr std::size_t kFirstSize = 64;  // a power of two, as all sizes are
    struct Slot {
      Key before = {};
      std::uint64_t last = 0;  // a bit for each last character; none in a free slot
    };

    // The finalizer of MurmurHash3.
    static std::uint64_t Mix(std::uint64_t hash) {
      hash = (hash ^ (hash >> 33)) * 0xFF51AFD7ED558CCDu;
      hash = (hash ^ (hash >> 33)) * 0xC4CEB9FE1A85EC53u;
      return hash ^ (hash >> 33);
    }

    // Without a call, which the comparison of arrays is.
    [[nodiscard]] static bool IsSame(const Key& a, const Key& b) {
      std::uint64_t others = 0;
      for (std::size_t i = 0; i < words; ++i) others |= a[i] ^ b[i];
      return others == 0;
    }

    Slot& FindSlot(const Key& before) {
      std::uint64_t hash = 0;
      for (const std::uint64_t word : before) hash = Mix(hash ^ word);
      const std::size_t mask = m_slots.size() - 1;
      std::size_t index = static_cast<std::size_t>(hash) & mask;
      while (m_slots[index].last != 0 && !IsSame(m_slots[index].before, before))
        index = (index + 1) & mask;
      return m_slots[index];
    }

    void Grow() {
      const std::vector<Slot> slots = std::move(m_slots);
      m_slots.assign(slots.empty() ? kFirstSize : slots.size() * 2, Slot{});
      for (const Slot& slot : slots) {
        if (slot.last != 0) FindSlot(slot.before) = slot;
      }
    }

    std::vector<Slot> m_slots;
    std::size_t m_used = 0;
  };

  Table<1> m_short;
  Table<2> m_long;
};

}  // namespace zelconvert
