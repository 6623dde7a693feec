#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "io/Units.h"
#include "raw/CZelPoint.h"

namespace zelconvert {

/// By its exact end: ".job", or ".pwj" of the second brand.
[[nodiscard]] bool IsJobPath(std::wstring_view path);

/// Adds the points of the job at `path`, which IsJobPath has taken for one; of several of a name
/// the first. Lengths are in `unit`, or metres without one. False, with `points` as it was, if the
/// job can't be read to its end.
[[nodiscard]] bool ReadJobPoints(const std::wstring& path, std::optional<LinearUnit> unit,
                                 PointMap& points);

}  // namespace zelconvert
