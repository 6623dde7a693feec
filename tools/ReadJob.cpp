#include "tools/ReadJob.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "io/Numbers.h"
#include "io/Strings.h"
#include "job/Cr5Records.h"
#include "tools/Dates.h"
#include "tools/RecordCounts.h"

namespace zelconvert::tools {
namespace {

// Of its alignment a job holds the first point alone.
Road RoadOf(const JOB_RECORD10& record) {
  Road road;
  road.name = Trim(record.name);
  if (std::isfinite(record.value2) && std::isfinite(record.value3)) {
    road.alignment.push_back({record.value1, record.value2, record.value3, 0});
  }
  return road;
}

}  // namespace

bool ReadJobFacts(CJobFile& job, Survey& survey) {
  RecordCounter counter(survey);
  JOB_HEADER header;
  if (!job.ReadJobHeader(header) || !job.SeekToFirstRecord()) return false;
  const platform::LocalTime& made = header.creationTime;
  TakeDate(survey, DateOf(made.year, made.month, made.day));
  JobKind kind = JobKind::Unused;
  std::int64_t position = 0;
  std::uint32_t length = 0;
  while (job.ReadNextRecordHead(kind, position, length)) {
    counter.Count(FormatInteger(static_cast<std::int64_t>(kind)));
    if (kind != JobKind::Record10) {
      if (!job.SkipRecord()) return false;
      continue;
    }
    JOB_RECORD10 road;
    if (!job.ReadRecord10(road)) return false;
    survey.roads.push_back(RoadOf(road));
  }
  return !job.GetFile().HasReadFailed();
}

void CountCr5Records(CFileCE& list, Survey& survey) {
  RecordCounter counter(survey);
  Cr5RecordBlock block;
  std::size_t count = 0;
  list.SeekTo(CR5_HEADER::kLength);
  while (list.Read(block.data(), block.size(), &count) && count >= sizeof(std::int32_t)) {
    CoordinateRecord record;
    BinaryReader(block).Field(0, record.number);
    counter.Count(record.number == CoordinateRecord::kUnused ? L"unused" : L"point");
  }
}

}  // namespace zelconvert::tools
