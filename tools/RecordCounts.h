// How many records of which kind a file has.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/RecordKinds.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

class RecordCounter {
 public:
  /// For the counts of `survey`, which stays the caller's, by the kinds of its type.
  explicit RecordCounter(Survey& survey);

  /// Upper and lower case are the same. Whatever has no kind is counted together, as "?".
  void Count(std::wstring_view tag);

 private:
  struct Place {
    const RecordKind* kind;
    std::size_t index;
  };
  std::vector<RecordCount>& m_counts;
  std::unordered_map<std::uint64_t, Place> m_places;
};

}  // namespace zelconvert::tools
