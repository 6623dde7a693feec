#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "io/Strings.h"

namespace zelconvert {

/// Makes room for `more` elements at the end of a list or text that may come to hold much of a
/// file: a quarter more at a time, since the old room and the new one are there together.
template <class List>
void GrowByQuarter(List& list, std::size_t more = 1) {
  constexpr std::size_t kLeast = 64;
  if (list.capacity() - list.size() >= more) return;
  list.reserve(list.size() + std::max({more, list.size() / 4, kLeast}));
}

/// A set of names that only grows, at some 20 to 35 bytes a name of up to eight characters. Names
/// are numbered from 0 in the order in which they came. Throws std::length_error for names of more
/// than 4 GiB together.
class NameSet {
 public:
  /// False if the name was there already.
  [[nodiscard]] bool Insert(std::wstring_view name) { return Insert(Encode(name)); }
  /// Here and below, a name may come in UTF-8.
  [[nodiscard]] bool Insert(std::string_view utf8) {
    if ((m_ends.size() + 1) * 4 > m_slots.size() * 3) Grow();
    const std::size_t hash = HashOf(utf8);
    const std::size_t slot = FindSlot(utf8, hash);
    if (m_slots[slot] != 0) return false;
    Keep(utf8);
    m_slots[slot] = TagOf(hash) | m_ends.size();
    return true;
  }

  /// The number of a name, which is added if it isn't there.
  std::size_t Add(std::wstring_view name) { return Add(Encode(name)); }
  std::size_t Add(std::string_view utf8) { return Insert(utf8) ? m_ends.size() - 1 : *Find(utf8); }

  /// The number of a name that is there.
  std::optional<std::size_t> Find(std::wstring_view name) const {
    if (m_slots.empty()) return std::nullopt;
    return Find(Encode(name));
  }
  std::optional<std::size_t> Find(std::string_view utf8) const {
    if (m_slots.empty()) return std::nullopt;
    const std::size_t slot = FindSlot(utf8, HashOf(utf8));
    if (m_slots[slot] == 0) return std::nullopt;
    return IndexIn(m_slots[slot]);
  }

  /// How many names there are.
  std::size_t Size() const { return m_ends.size(); }
  /// A name by its number, in UTF-8; valid until the next one comes.
  std::string_view Name(std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : m_ends[index - 1];
    return std::string_view(m_pool).substr(start, m_ends[index] - start);
  }

 private:
  std::string_view Encode(std::wstring_view name) const {
    m_key.clear();
    AppendUtf8(m_key, name);
    return m_key;
  }

  void Keep(std::string_view utf8) {
    if (utf8.size() > std::numeric_limits<std::uint32_t>::max() - m_pool.size()) {
      throw std::length_error("names");
    }
    GrowByQuarter(m_pool, utf8.size());
    m_pool += utf8;
    m_ends.push_back(static_cast<std::uint32_t>(m_pool.size()));
  }

  // A slot has 1 + the name's index in its lower bits and some of the hash above: most other names
  // are told from the key without a look at their text.
  static constexpr int kIndexBits = 40;
  static std::size_t HashOf(std::string_view key) { return std::hash<std::string_view>()(key); }
  static std::uint64_t TagOf(std::size_t hash) {
    constexpr int kTagBits = 64 - kIndexBits;
    return static_cast<std::uint64_t>(hash >> (std::numeric_limits<std::size_t>::digits - kTagBits))
           << kIndexBits;
  }
  static std::size_t IndexIn(std::uint64_t slot) {
    return static_cast<std::size_t>(slot & ((std::uint64_t{1} << kIndexBits) - 1)) - 1;
  }
  [[nodiscard]] bool Holds(std::uint64_t slot, std::string_view key, std::uint64_t tag) const {
    return (slot ^ tag) >> kIndexBits == 0 && Name(IndexIn(slot)) == key;
  }

  /// The slot that holds the key, or the free one where it belongs.
  std::size_t FindSlot(std::string_view key, std::size_t hash) const {
    const std::size_t mask = m_slots.size() - 1;
    const std::uint64_t tag = TagOf(hash);
    std::size_t slot = hash & mask;
    while (m_slots[slot] != 0 && !Holds(m_slots[slot], key, tag)) slot = (slot + 1) & mask;
    return slot;
  }

  void Grow() {
    const std::size_t size = m_slots.empty() ? 16 : m_slots.size() * 2;
    std::vector<std::uint64_t>().swap(m_slots);  // all of it is made again from the names
    m_slots.resize(size);
    for (std::size_t index = 0; index < m_ends.size(); ++index) {
      const std::size_t hash = HashOf(Name(index));
      m_slots[FindSlot(Name(index), hash)] = TagOf(hash) | (index + 1);
    }
  }

  std::string m_pool;                  // the names in UTF-8, one after the other
  std::deque<std::uint32_t> m_ends;    // where each name ends in the pool
  std::vector<std::uint64_t> m_slots;  // open addressing; 0 is free
  mutable std::string m_key;           // the name in UTF-8 that is looked for
};

}  // namespace zelconvert
