#include "raw/todc/JobPoints.h"

#include "io/Paths.h"
#include "job/CJobFile.h"

namespace zelconvert {

bool IsJobPath(std::wstring_view path) {
  return HasExtension(path, L".job") || HasExtension(path, L".pwj");
}

bool ReadJobPoints(const std::wstring& path, std::optional<LinearUnit> unit, PointMap& points) {
  CJobFile job(HasExtension(path, L".job"));
  if (!job.Open(path, true) || !job.SeekToFirstRecord()) return false;
  const auto length = [unit](double metres) { return unit ? FromMetres(metres, *unit) : metres; };
  PointMap found;
  JOB_POINT_EX point;
  JobKind kind;
  std::int64_t position;
  std::uint32_t size;
  while (job.ReadNextRecordHead(kind, position, size)) {
    const bool done = kind == JobKind::Point     ? job.ReadPoint(point)
                      : kind == JobKind::PointEx ? job.ReadPointEx(point)
                                                 : job.SkipRecord();
    if (!done) return false;
    if (!IsPoint(kind)) continue;
    found.try_emplace(point.name, CZelPoint{point.name, length(point.north), length(point.east),
                                            length(point.elevation), point.description});
  }
  if (job.GetFile().HasReadFailed()) return false;
  points.merge(found);
  return true;
}

}  // namespace zelconvert
