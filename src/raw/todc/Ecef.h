// Earth-centred coordinates on WGS 84.
#pragma once

#include <cmath>

#include "geodetic/Wgs84.h"
#include "io/Units.h"

namespace zelconvert {

struct EcefPosition {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// A position on or above the ellipsoid: latitude and longitude in decimal degrees, height and
/// result in `unit`. Null if one of the three is.
inline EcefPosition GeodeticToEcef(double latitude, double longitude, double height,
                                   LinearUnit unit) {
  if (IsNull(latitude) || IsNull(longitude) || IsNull(height)) return {DC_NULL, DC_NULL, DC_NULL};
  const double lat = latitude * (kPi / 180);
  const double lon = longitude * (kPi / 180);
  const double h = ToMetres(height, unit);
  const double n =
      kWgs84Axis / std::sqrt(1 - kWgs84EccentricitySquared * std::sin(lat) * std::sin(lat));
  return {FromMetres((n + h) * std::cos(lat) * std::cos(lon), unit),
          FromMetres((n + h) * std::cos(lat) * std::sin(lon), unit),
          FromMetres((n * (1 - kWgs84EccentricitySquared) + h) * std::sin(lat), unit)};
}

/// The vector from `from` to `to`; null where one of the two is.
inline EcefPosition VectorBetween(const EcefPosition& from, const EcefPosition& to) {
  return {Difference(to.x, from.x), Difference(to.y, from.y), Difference(to.z, from.z)};
}

}  // namespace zelconvert
