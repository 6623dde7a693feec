// Angles of raw logs: degrees written DDD.MMSSsss, gons, and quadrant bearings. A null value passes
// through every function as it is.
#pragma once

#include <string_view>

#include "io/Units.h"
#include "raw/RawUnits.h"

namespace zelconvert {

/// DDD.MMSSsss (12.3045 is 12 degrees 30 minutes 45 seconds) as decimal degrees in [0, 360). Wraps
/// before and after, so -5.3 gives 354.5. DegreesFromDms tells of the nudge by which 90 gives
/// 90.00000000000028.
double DmsToDegrees(double v);
/// Likewise with the sign kept and nothing wrapped, for latitudes, longitudes and rotations.
inline double DmsToDegreesSigned(double v) {
  return DegreesFromDms(v);
}

// From here on `unit` says what an angle is reckoned in: gons, else decimal degrees.

/// An angle as a log has it, reckoned: degrees, minutes and seconds as DmsToDegrees gives them.
inline double ReckonedAngle(double v, AngularUnit logUnit) {
  return logUnit == AngularUnit::DegreesMinutesSeconds ? DmsToDegrees(v) : v;
}
/// By one factor: a quarter circle of gons isn't what ToRadians makes of it, in the last bit, which
/// decides the sign of a coordinate that comes out as 0.
double RadiansOf(double v, AngularUnit unit);

/// The remainder of `v` by a full circle, plus a full circle if that is negative.
double NormalizeDegrees(double v);
double NormalizeGons(double v);
double NormalizeAngle(double v, AngularUnit unit);
/// Likewise for a zenith angle. What is short of a full circle by the noise of DmsToDegrees is 0:
/// straight up, not nearly a circle.
double NormalizeZenith(double v, AngularUnit unit);
/// The sine of a zenith angle is below 0, by more than that noise: the telescope looks backwards.
[[nodiscard]] bool IsFaceTwo(double zenith, AngularUnit unit);

/// `v` in the unit `to`.
double ConvertAngleUnit(AngularUnit to, AngularUnit from, double v);

/// A quadrant bearing as an azimuth. The first and the last character are the quadrant, what is
/// between them DDD.MMSSsss in either unit:
///   "N23.4510E" 23.75277...   "S10.0000E" 170   "S10.0000W" 190   "N10.0000W" 350
/// Other letters (lower-case ones as well) count as north and east; an empty text is DC_NULL.
double ParseBearing(std::wstring_view text, AngularUnit unit);

}  // namespace zelconvert
