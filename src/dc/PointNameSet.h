// The names of the points written so far, in 16 bytes each.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace zelconvert {

class PointNameSet {
 public:
  static constexpr std::size_t kMaxLength = 16;

  /// False if the name is there already. name: at most 16 characters of ASCII other than NUL.
  [[nodiscard]] bool Insert(std::wstring_view name) {
    if (name.empty()) {
      const bool isNew = !m_bHasEmptyName;
      m_bHasEmptyName = true;
      return isNew;
    }
    if (2 * (m_nUsed + 1) > m_slots.size()) Grow();
    const Key key = Pack(name);
    Key& slot = FindSlot(key);
    if (slot == key) return false;
    slot = key;
    ++m_nUsed;
    return true;
  }

 private:
  static constexpr std::size_t kFirstSize = 64;  // a power of two, as all sizes are

  // The finalizer of MurmurHash3.
  static std::uint64_t Mix(std::uint64_t hash) {
    hash = (hash ^ (hash >> 33)) * 0xFF51AFD7ED558CCDu;
    hash = (hash ^ (hash >> 33)) * 0xC4CEB9FE1A85EC53u;
    return hash ^ (hash >> 33);
  }

  struct Key {
    std::uint64_t front = 0;
    std::uint64_t back = 0;
    bool operator==(const Key&) const = default;
  };

  static Key Pack(std::wstring_view name) {
    Key key;
    for (std::size_t i = 0; i < name.size() && i < kMaxLength; ++i) {
      std::uint64_t& half = i < 8 ? key.front : key.back;
      half |= static_cast<std::uint64_t>(name[i] & 0xFF) << (i % 8 * 8);
    }
    return key;
  }

  // Points are mostly numbered in the order of their file. So that the next name lies near the last
  // one in memory, only what stands before its last character is scattered.
  static std::size_t Home(Key key) {
    std::uint64_t& lastHalf = key.back != 0 ? key.back : key.front;
    const int lastShift = (63 - std::countl_zero(lastHalf)) / 8 * 8;
    const std::uint64_t last = lastHalf >> lastShift;
    lastHalf ^= last << lastShift;
    return static_cast<std::size_t>(Mix(key.front ^ Mix(key.back)) + last % 16);
  }

  Key& FindSlot(const Key& key) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = Home(key) & mask;
    while (m_slots[index] != Key{} && m_slots[index] != key) index = (index + 1) & mask;
    return m_slots[index];
  }

  void Grow() {
    const std::vector<Key> names = std::move(m_slots);
    m_slots.assign(names.empty() ? kFirstSize : names.size() * 2, Key{});
    for (const Key& name : names) {
      if (name != Key{}) FindSlot(name) = name;
    }
  }

  // Open addressing; a slot of zeros is free, so the empty name is kept apart.
  std::vector<Key> m_slots;
  std::size_t m_nUsed = 0;
  bool m_bHasEmptyName = false;
};

}  // namespace zelconvert
