#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelconvert {

/// A set of point names that only grows, at some 30 bytes a name. Names are numbered from 0 in the
/// order in which they came.
class NameSet {
 public:
  /// False if the name was there already.
  bool Insert(std::wstring_view name);
  /// The number of a name that is there.
  std::optional<std::size_t> Find(std::wstring_view name) const;
  /// How many names there are.
  std::size_t Size() const { return m_ends.size(); }

 private:
  void Encode(std::wstring_view name) const;
  std::string_view Name(std::size_t index) const;
  std::size_t FindSlot(std::string_view key) const;
  void Grow();

  std::string m_pool;                // the names in UTF-8, one after the other
  std::vector<std::size_t> m_ends;   // where each name ends in the pool
  std::vector<std::size_t> m_slots;  // open addressing; 0 is free, else 1 + the name's index
  mutable std::string m_key;         // the name in UTF-8 that is looked for
};

}  // namespace zelconvert
