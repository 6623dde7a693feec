#include "tools/ReadJob.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "io/Numbers.h"
#include "io/Strings.h"
#include "job/Cr5Records.h"
#include "tools/Dates.h"
#include "tools/RecordCounts.h"

namespace zelconvert::tools {
namespace {

// What a job holds of roads: where each starts, and the places that its elements tell. Elements
// bear the number of their road; of two roads with one number the nearer one before them is theirs.
class JobRoads {
 public:
  explicit JobRoads(std::vector<Road>& roads) : m_roads(roads) {}

  void Take(const JOB_RECORD10& start) {
    m_roadOf[static_cast<std::uint32_t>(start.id)] = m_roads.size();
    Road& road = m_roads.emplace_back();
    road.name = Trim(start.name);
    AddPlace(start, road);
  }
  void Take(const JOB_RECORD16& element) {
    const auto found = m_roadOf.find(element.id);
    if (found != m_roadOf.end()) AddPlace(element, m_roads[found->second]);
  }

 private:
  // Converted jobs have one element, which tells the start again.
  template <class Record>
  static void AddPlace(const Record& record, Road& road) {
    const double station = record.value1, north = record.value2, east = record.value3;
    if (!IsValue(station) || !IsValue(north) || !IsValue(east)) return;
    if (!road.alignment.empty()) {
      const RoadPoint& last = road.alignment.back();
      if (last.station == station && last.north == north && last.east == east) return;
    }
    road.alignment.push_back({station, north, east, 0});
    if (IsValue(record.value4)) road.profile.push_back({station, record.value4, 0});
  }
  static bool IsValue(double value) { return std::isfinite(value) && !IsNull(value); }

  std::vector<Road>& m_roads;
  std::unordered_map<std::uint32_t, std::size_t> m_roadOf;  // by number, the latest
};

}  // namespace

bool ReadJobFacts(CJobFile& job, Survey& survey) {
  RecordCounter counter(survey);
  JobRoads roads(survey.roads);
  JOB_HEADER header;
  if (!job.ReadJobHeader(header) || !job.SeekToFirstRecord()) return false;
  const platform::LocalTime& made = header.creationTime;
  TakeDate(survey, DateOf(made.year, made.month, made.day));
  JobKind kind = JobKind::Unused;
  std::int64_t position = 0;
  std::uint32_t length = 0;
  while (job.ReadNextRecordHead(kind, position, length)) {
    counter.Count(FormatInteger(static_cast<std::int64_t>(kind)));
    JOB_RECORD10 start;
    JOB_RECORD16 element;
    const bool isStart = kind == JobKind::Record10, isElement = kind == JobKind::Record16;
    const bool read = isStart     ? job.ReadRecord10(start)
                      : isElement ? job.ReadRecord16(element)
                                  : job.SkipRecord();
    if (!read) return false;
    if (isStart) roads.Take(start);
    if (isElement) roads.Take(element);
  }
  return !job.GetFile().HasReadFailed();
}

void CountCr5Records(CFileCE& list, Survey& survey) {
  RecordCounter counter(survey);
  Cr5RecordBlock block;
  std::size_t count = 0;
  std::ignore = list.SeekTo(CR5_HEADER::kLength);
  while (list.Read(block.data(), block.size(), &count) && count >= sizeof(std::int32_t)) {
    CoordinateRecord record;
    BinaryReader(block).Field(0, record.number);
    counter.Count(record.number == CoordinateRecord::kUnused ? L"unused" : L"point");
  }
}

}  // namespace zelconvert::tools
