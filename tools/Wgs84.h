// From the grid of a survey to WGS 84, through the PROJ library. tools/proj/ has it; builds without
// PROJ take tools/noproj/ and can't.
#pragma once

#include <memory>
#include <string>

#include "tools/Survey.h"

namespace zelconvert::tools {

/// In degrees, as GeoJSON has it.
struct LongitudeLatitude {
  double longitude = 0, latitude = 0;
};

class Wgs84 {
 public:
  /// By the parameters of the survey's coordinate system: the projection on its ellipsoid, then the
  /// datum by its code or its three shifts. The library is loaded here, so that programs start
  /// without it. Null if there is no way, and `why` then says so in one line.
  static std::unique_ptr<Wgs84> Make(const Survey& survey, std::string& why);
  virtual ~Wgs84() = default;

  /// False for a position that has none.
  virtual bool Transform(const GridPosition& position, LongitudeLatitude& result) = 0;
};

}  // namespace zelconvert::tools
