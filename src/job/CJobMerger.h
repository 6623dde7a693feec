// Two jobs joined into one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "convert/CConvertProgress.h"
#include "convert/ConversionBase.h"
#include "job/CJobFile.h"

namespace zelconvert {

enum class MergeResult {
  Merged,
  FirstNotOpened,
  SecondNotOpened,
  ScalesDiffer,
  RecordUnreadable,
  NotWritten,  ///< the output couldn't be made, or not as a whole
};

/// What a merge found out about the points of the second job.
struct MergeCounts {
  std::size_t repeated = 0;  ///< whose name the first job has too; written all the same
  std::size_t moved = 0;     ///< of these: with other coordinates
};

/// Copies points (13, 14), lines (15), road elements (16), roads (10) and the kinds 4, 7 and 9,
/// those of the first job before those of the second, and the layers (11) and the coordinate system
/// of the first. Old forms become new ones. Attribute blocks and the kinds 12 and 18 are left out.
/// Ids of the second job continue those of the first; all else in a payload stays as it stands, but
/// for a point's link to its attributes, which is 0, and a layer that the output doesn't have.
class CJobMerger {
 public:
  /// Both open; they stay the caller's.
  CJobMerger(CJobFile& first, CJobFile& second) : m_first(first), m_second(second) {}

  /// output: a new job of version 5, which takes the header of the first. Unless it is Merged it
  /// holds what had been written until then. The scales of the jobs must be exactly equal. Whether
  /// a write failed is for the output to tell.
  [[nodiscard]] MergeResult Merge(CJobFile& output);
  const MergeCounts& GetCounts() const { return m_counts; }

 private:
  /// A point of the first job; found by its name in 8-bit text.
  struct POINT_DATA {
    double east, north, elevation;
    bool operator==(const POINT_DATA&) const = default;
  };
  using Payload = std::span<std::byte>;
  using Id = std::uint32_t;

  [[nodiscard]] bool CopyHeader(CJobFile& output, const JOB_HEADER& header);
  template <class Handler>
  [[nodiscard]] bool ForEachRecord(CJobFile& job, Handler handle);
  [[nodiscard]] bool FindIds();
  void FindIdOfFirst(JobKind kind, Id id);
  [[nodiscard]] bool CopyRecords(CJobFile& job, CJobFile& output,
                                 void (CJobMerger::*prepare)(JobKind, Payload));
  POINT_DATA PreparePoint(JobKind kind, Payload payload);
  void PrepareFirst(JobKind kind, Payload payload);
  void PrepareSecond(JobKind kind, Payload payload);
  Id NewId(JobKind kind, Id id);

  CJobFile& m_first;
  CJobFile& m_second;
  std::unordered_map<std::string, POINT_DATA> m_points;
  std::unordered_set<Id> m_layers;            // of the output
  std::unordered_set<Id> m_roads;             // of the output
  std::unordered_map<Id, Id> m_roadOfSecond;  // its new id
  Id m_nLastRoad = 0;                         // given so far, like the others
  Id m_nLastLine = 0;
  Id m_nLastElement = 0;
  MergeCounts m_counts;
  CConvertProgress m_progress;
  std::int64_t m_nWalked = 0;      // bytes of the walks that are over
  std::int64_t m_nWalkLength = 1;  // of all walks: each job is walked twice
  JOB_POINT m_point;               // the one at hand, kept for its memory
  std::string m_strName;
};

/// Each path names a job of the brand that its exact extension ".job" stands for. The inputs must
/// be two different files. The output is left as far as it got, and the report stays as it is.
/// counts: filled if not null.
[[nodiscard]] MergeResult MergeJobs(const std::wstring& firstPath, const std::wstring& secondPath,
                                    const std::wstring& outputPath, Report& report,
                                    MergeCounts* counts = nullptr);

}  // namespace zelconvert
