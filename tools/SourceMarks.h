// What the file itself says of a record that is read from the DC file made of it. Records of one
// name come in the same order in both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "io/Strings.h"
#include "tools/NameMap.h"
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
    const auto [queue, isNew] = m_queues.Insert(Trim(name), {m_marks.size(), m_marks.size()});
    if (!isNew) m_marks[queue.last].next = m_marks.size();
    queue.last = m_marks.size();
    m_marks.push_back({mark, kNone});
  }
  /// The next one of the name; the last one again when there are no more, and an empty one for a
  /// name that has none.
  SourceMark Take(std::wstring_view name) {
    Queue* queue = m_queues.Find(Trim(name));
    if (queue == nullptr) return {};
    const Entry& entry = m_marks[queue->first];
    if (entry.next != kNone) queue->first = entry.next;
    return entry.mark;
  }

 private:
  struct Entry {
    SourceMark mark;
    std::size_t next;  // the next one of its name, or kNone
  };
  struct Queue {
    std::size_t first = kNone, last = kNone;  // of those that weren't taken
  };
  std::vector<Entry> m_marks;
  NameMap<Queue> m_queues;
};

/// By what a record is of.
struct Source {
  SourceMarks points;
  SourceMarks stations;
  SourceMarks shots;  ///< by their targets
  SourceMarks vectors;
};

}  // namespace zelconvert::tools
