#include "raw/ReduceShot.h"

#include <cmath>

namespace zelconvert {

double ToldAzimuth(HorizontalKind kind, double value, double backsight, AngularUnit unit) {
  const double ahead = backsight + FullCircle(unit) / 2;
  if (kind == HorizontalKind::AngleLeft) return backsight - value;
  if (kind == HorizontalKind::DeflectionRight) return ahead + value;
  return kind == HorizontalKind::DeflectionLeft ? ahead - value : value;
}

ReducedShot ReduceShot(double stationNorth, double stationEast, const PolarShot& shot) {
  const auto& [azimuth, zenith, slopeDistance, scale] = shot;
  const double run =
      Computed(std::sin(zenith) * slopeDistance * scale, slopeDistance, zenith, scale);
  const double north = stationNorth + std::cos(azimuth) * run;
  const double east = stationEast + std::sin(azimuth) * run;
  return {Computed(north, stationNorth, stationEast, azimuth, run),
          Computed(east, stationNorth, stationEast, azimuth, run),
          Computed(std::cos(zenith) * slopeDistance, slopeDistance, zenith)};
}

}  // namespace zelconvert
