#include "raw/todc/JobPoints.h"

#include "io/Paths.h"
#include "job/CJobFile.h"

namespace zelconvert {

bool IsJobPath(std::wstring_view path) {
  return HasExtension(path, L".job") || HasExtension(path, L".pwj");
}

bool ReadJobPoints(const std::wstring& path, std::optional<LinearUnit> unit, PointMap& points) {
  CJobFile job(HasExtension(path, L".job"));
  if (!job.Open(path, true)) return false;
  const auto length = [unit](double metres) { return unit ? FromMetres(metres, *unit) : metres; };
  PointMap found;
  JOB_POINT_EX point;
  const bool isWhole = job.ForEachRecord([&](JobKind kind, std::int64_t) {
    if (!IsPoint(kind)) return job.SkipRecord();
    if (!job.ReadAnyPoint(point)) return false;
    found.try_emplace(point.name, CZelPoint{point.name, length(point.north), length(point.east),
                                            length(point.elevation), point.description});
    return true;
  });
  if (isWhole) points.merge(found);
  return isWhole;
}

}  // namespace zelconvert
