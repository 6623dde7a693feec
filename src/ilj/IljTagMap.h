// The short tags of an ILJ file, and the numbers that they have.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zelconvert {

inline constexpr std::size_t kIljFieldTagLength = 4;
inline constexpr std::size_t kIljRecordTagLength = 5;

/// A tag as a literal, of a field or a record.
struct IljTag {
  char text[1 + kIljRecordTagLength + 1] = {'\t'};  ///< with a colon after it, as a field begins
  std::size_t size = 0;

  constexpr IljTag() = default;
  template <std::size_t length>
  constexpr IljTag(const char (&tag)[length]) : size(length - 1) {  // NOLINT: a literal converts
    static_assert(length == kIljFieldTagLength + 1 || length == kIljRecordTagLength + 1);
    for (std::size_t i = 0; i < size; ++i) text[1 + i] = tag[i];
    text[1 + size] = ':';
  }
  constexpr std::string_view View() const { return {text + 1, size}; }
};

/// A fixed hash of tags of one to eight ASCII characters. Exact: case and blanks count.
class IljTagMap {
 public:
  /// The number of a tag is its place in `rows`, whose first one is nobody's.
  template <class Row, std::size_t size>
  constexpr explicit IljTagMap(const Row (&rows)[size]) {
    for (std::size_t i = 1; i < size; ++i) {
      const std::uint64_t key = Pack(rows[i].tag.View());
      std::size_t slot = Slot(key);
      while (m_slots[slot].key != 0) slot = (slot + 1) % kSlots;
      m_slots[slot] = {key, static_cast<std::int32_t>(i)};
    }
  }

  /// The number of the tag; 0 if there is no such tag, or for no text at all.
  constexpr std::int32_t GetType(std::string_view tag) const {
    const std::uint64_t key = Pack(tag);
    for (std::size_t slot = Slot(key); m_slots[slot].key != 0; slot = (slot + 1) % kSlots) {
      if (m_slots[slot].key == key) return m_slots[slot].number;
    }
    return 0;
  }

 private:
  struct Entry {
    std::uint64_t key = 0;
    std::int32_t number = 0;
  };
  static constexpr std::size_t kSlotBits = 8;
  static constexpr std::size_t kSlots = 1u << kSlotBits;

  // 0 for what can't be a tag.
  static constexpr std::uint64_t Pack(std::string_view tag) {
    if (tag.size() > 8) return 0;
    std::uint64_t key = 0;
    for (const char c : tag) {
      if (c < '!' || c > '~') return 0;
      key = key << 8 | static_cast<std::uint64_t>(c);
    }
    return key;
  }
  static constexpr std::size_t Slot(std::uint64_t key) {
    return static_cast<std::size_t>(key * 0x9E3779B97F4A7C15u >> (64 - kSlotBits));
  }

  std::array<Entry, kSlots> m_slots = {};
};

}  // namespace zelconvert
