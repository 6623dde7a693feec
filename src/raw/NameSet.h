#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "io/Strings.h"

namespace zelconvert {

/// A set of point names that only grows, at some 30 bytes a name. Names are numbered from 0 in the
/// order in which they came.
class NameSet {
 public:
  /// False if the name was there already.
  bool Insert(std::wstring_view name) {
    if (m_ends.size() * 3 >= m_slots.size() * 2) Grow();
    Encode(name);
    const std::size_t hash = HashOf(m_key);
    const std::size_t slot = FindSlot(m_key, hash);
    if (m_slots[slot] != 0) return false;
    m_pool += m_key;
    m_ends.push_back(m_pool.size());
    m_slots[slot] = TagOf(hash) | m_ends.size();
    return true;
  }

  /// The number of a name that is there.
  std::optional<std::size_t> Find(std::wstring_view name) const {
    if (m_slots.empty()) return std::nullopt;
    Encode(name);
    const std::size_t slot = FindSlot(m_key, HashOf(m_key));
    if (m_slots[slot] == 0) return std::nullopt;
    return IndexIn(m_slots[slot]);
  }

  /// How many names there are.
  std::size_t Size() const { return m_ends.size(); }

 private:
  void Encode(std::wstring_view name) const {
    m_key.clear();
    AppendUtf8(m_key, name);
  }

  std::string_view Name(std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : m_ends[index - 1];
    return std::string_view(m_pool).substr(start, m_ends[index] - start);
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
  bool Holds(std::uint64_t slot, std::string_view key, std::uint64_t tag) const {
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
    m_slots.assign(m_slots.empty() ? 16 : m_slots.size() * 2, 0);
    for (std::size_t index = 0; index < m_ends.size(); ++index) {
      const std::size_t hash = HashOf(Name(index));
      m_slots[FindSlot(Name(index), hash)] = TagOf(hash) | (index + 1);
    }
  }

  std::string m_pool;                  // the names in UTF-8, one after the other
  std::vector<std::size_t> m_ends;     // where each name ends in the pool
  std::vector<std::uint64_t> m_slots;  // open addressing; 0 is free
  mutable std::string m_key;           // the name in UTF-8 that is looked for
};

}  // namespace zelconvert
