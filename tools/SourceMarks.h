// What the file itself says of a record that is read from the DC file made of it. Records of one
// name come in the same order in both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "io/Strings.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

struct SourceMark {
  std::int64_t line = 0;
  double scale = DC_NULL;  ///< of distances, in force there; null: not told
  Signature signature = Signature::NotAsked;
  GridPosition position;  ///< of an occupied point
};

class SourceMarks {
 public:
  void Add(std::wstring_view name, const SourceMark& mark) {
    m_marks[std::wstring(Trim(name))].marks.push_back(mark);
  }
  /// The next one of the name; the last one again when there are no more, and an empty one for a
  /// name that has none.
  SourceMark Take(std::wstring_view name) {
    m_key = Trim(name);
    const auto found = m_marks.find(m_key);
    if (found == m_marks.end()) return {};
    Queue& queue = found->second;
    return queue.marks[queue.next + 1 < queue.marks.size() ? queue.next++ : queue.next];
  }

 private:
  struct Queue {
    std::vector<SourceMark> marks;
    std::size_t next = 0;
  };
  std::unordered_map<std::wstring, Queue> m_marks;
  std::wstring m_key;
};

/// By what a record is of.
struct Source {
  SourceMarks points;
  SourceMarks stations;
  SourceMarks shots;  ///< by their targets
  SourceMarks vectors;
};

}  // namespace zelconvert::tools
