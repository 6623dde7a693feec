// Earth-centred coordinates on WGS 84.
#pragma once

#include "io/Units.h"

namespace zelconvert {

struct EcefPosition {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// A position on or above the ellipsoid: latitude and longitude in decimal degrees, height and
/// result in `unit`. Null if one of the three is.
EcefPosition GeodeticToEcef(double latitude, double longitude, double height, LinearUnit unit);

/// The vector from `from` to `to`; null where one of the two is.
EcefPosition VectorBetween(const EcefPosition& from, const EcefPosition& to);

}  // namespace zelconvert
