#pragma once

#include <cstddef>
#include <functional>
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
    const std::size_t slot = FindSlot(m_key);
    if (m_slots[slot] != 0) return false;
    m_pool += m_key;
    m_ends.push_back(m_pool.size());
    m_slots[slot] = m_ends.size();
    return true;
  }

  /// The number of a name that is there.
  std::optional<std::size_t> Find(std::wstring_view name) const {
    if (m_slots.empty()) return std::nullopt;
    Encode(name);
    const std::size_t slot = FindSlot(m_key);
    if (m_slots[slot] == 0) return std::nullopt;
    return m_slots[slot] - 1;
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

  /// The slot that holds the key, or the free one where it belongs.
  std::size_t FindSlot(std::string_view key) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(key) & mask;
    while (m_slots[slot] != 0 && Name(m_slots[slot] - 1) != key) slot = (slot + 1) & mask;
    return slot;
  }

  void Grow() {
    m_slots.assign(m_slots.empty() ? 16 : m_slots.size() * 2, 0);
    for (std::size_t index = 0; index < m_ends.size(); ++index) {
      m_slots[FindSlot(Name(index))] = index + 1;
    }
  }

  std::string m_pool;                // the names in UTF-8, one after the other
  std::vector<std::size_t> m_ends;   // where each name ends in the pool
  std::vector<std::size_t> m_slots;  // open addressing; 0 is free, else 1 + the name's index
  mutable std::string m_key;         // the name in UTF-8 that is looked for
};

}  // namespace zelconvert
