// What the subjects of the reduction share: the record at hand, the units, what the log holds
// further on, the names that have been written, and the file that is made. Lengths and angles that
// a subject keeps are in the units of the log's first MO; angles are decimal degrees or gons.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "io/NameSet.h"
#include "io/Strings.h"
#include "raw/CZelPoint.h"
#include "raw/RawIndex.h"
#include "raw/RawRecords.h"
#include "raw/todc/Mode.h"

namespace zelconvert {

/// What became of a record.
enum class Outcome {
  Done,
  BadRecord,  ///< a required field is missing: the conversion ends with the text of a bad record
  Failed,     ///< the conversion ends without a text
};

/// Those of a set of names that have come up, each as wide text or UTF-8. Other names are let go:
/// of a log with a million shots only the few count that some record asks for.
class NameMarks {
 public:
  /// `names` has to outlive this object and stay as it is.
  void Watch(const NameSet& names) {
    m_names = &names;
    m_marks.assign(names.Size(), false);
  }
  void Insert(const auto& name) {
    if (const auto number = m_names->Find(name)) m_marks[*number] = true;
  }
  /// Only for a name that is watched.
  [[nodiscard]] bool Contains(const auto& name) const {
    const auto number = m_names->Find(name);
    return number && m_marks[*number];
  }

 private:
  const NameSet* m_names = nullptr;
  std::vector<bool> m_marks;
};

class RawPass {
 public:
  RawPass(CDcFile& dcFile, int dcVersion, MessageList& messageList);

  CDcFile& dc;
  int version;  ///< the dialect of the DC file, as DcDialect.h counts them

  std::string_view record;  ///< the line at hand
  std::int64_t line = 0;    ///< its number, from 1
  RawRecordType kind = RawRecordType::AA;
  RawRecordType previousKind = RawRecordType::AA;

  RawIndex index;
  Mode mode;
  NameMarks observed;  ///< the names that were shot
  NameMarks measured;  ///< those that were written as a GPS result

  PointMap m_JobPoints;    ///< of the job that the log refers to, in the log's first unit
  PointMap m_ExtraPoints;  ///< design points of other sources, of which there are none so far

  /// Takes `record` as the next one.
  void NextRecord();
  /// Why the conversion ends.
  void Say(std::wstring_view text) { m_messages.emplace_back(text); }
  /// What isn't as it should be, while the conversion goes on.
  void Warn(std::wstring text) { m_messages.Warn(std::move(text)); }

  /// Once the index is built: from here on names are marked that a record asks for, or that end the
  /// file if nothing wrote them.
  void WatchNames(bool writeUnusedPoints);
  /// The name was shot or measured.
  [[nodiscard]] bool IsWritten(const auto& name) const {
    return observed.Contains(name) || measured.Contains(name);
  }
  /// A DP after the record at hand deletes the point.
  [[nodiscard]] bool IsDeleted(std::string_view name) const { return index.IsDeleted(name, line); }

  /// The class of a record: `dead` for a deleted point, and for an invented backsight name unless
  /// such names keep their class.
  wchar_t Classify(const auto& name, bool deleted, wchar_t live = L'1', wchar_t dead = L'6') const {
    return deleted || (!m_bKeepBacksightClass && IsBacksightName(name)) ? dead : live;
  }
  void Take(const POINT_RECORD& told, CZelPoint& point) const;
  /// 69.
  void WriteGridPosition(const CZelPoint& point, bool deleted);
  void WriteGridPosition(const POINT_RECORD& point);
  /// The points of the job that weren't written.
  void WriteUnusedPoints();

 private:
  [[nodiscard]] bool IsBacksightName(std::wstring_view name) const;
  [[nodiscard]] bool IsBacksightName(std::string_view name) const {
    return IsBacksightName(FromUtf8(name));
  }

  MessageList& m_messages;
  bool m_bKeepBacksightClass = true;   // nothing clears it so far
  tDC_GRID_POSITIONRecord m_position;  // reused, so that a point allocates nothing
};

}  // namespace zelconvert
