// Angles of raw logs: degrees written DDD.MMSSsss, gons, and quadrant bearings. A null value passes
// through every function as it is.
#pragma once

#include <cstdint>
#include <string_view>

#include "raw/RawRecords.h"

namespace zelconvert {

/// DDD.MMSSsss (12.3045 is 12 degrees 30 minutes 45 seconds) as decimal degrees in [0, 360). Wraps
/// before and after, so -5.3 gives 354.5. A nudge far below the millisecond keeps 59.999... seconds
/// from losing a minute: 90 gives 90.00000000000028.
double DmsToDegrees(double v);
/// Likewise with the sign kept and nothing wrapped, for latitudes, longitudes and rotations.
double DmsToDegreesSigned(double v);

// From here on `unit` says what an angle is in: gons for kRawGons, else decimal degrees.

constexpr double FullCircle(std::int32_t unit) {
  return unit == kRawGons ? 400 : 360;
}
double RadiansOf(double v, std::int32_t unit);

/// The remainder of `v` by a full circle, plus a full circle if that is negative.
double NormalizeDegrees(double v);
double NormalizeGons(double v);
double NormalizeAngle(double v, std::int32_t unit);
/// Likewise for a zenith angle. What is short of a full circle by the noise of DmsToDegrees is 0:
/// straight up, not nearly a circle.
double NormalizeZenith(double v, std::int32_t unit);
/// The sine of a zenith angle is below 0, by more than that noise: the telescope looks backwards.
bool IsFaceTwo(double zenith, std::int32_t unit);

/// `v` in the unit `to`. Units other than kRawDegrees and kRawGons leave it as it is.
double ConvertAngleUnit(std::int32_t to, std::int32_t from, double v);

/// A quadrant bearing as an azimuth in decimal degrees, or in gons if `unit` is kRawGons. The first
/// and the last character are the quadrant, what is between them DDD.MMSSsss in either unit:
///   "N23.4510E" 23.75277...   "S10.0000E" 170   "S10.0000W" 190   "N10.0000W" 350
/// Other letters (lower-case ones as well) count as north and east; an empty text is DC_NULL.
double ParseBearing(std::wstring_view text, std::int32_t unit);

}  // namespace zelconvert
