// Between a job's units (metres, radians) and those a DC file displays. `distanceUnit` and
// `angleUnit` are the words of the job's settings. Any value that is null, that is not above
// -9.99e7, stays as it is.
#pragma once

#include <cstdint>

#include "io/Units.h"

namespace zelconvert {

/// Units other than international and US survey feet change nothing.
constexpr double FromMeters(double value, int distanceUnit) {
  if (IsNull(value)) return value;
  if (distanceUnit == kInternationalFeet) return value * kFeetPerMetre;
  if (distanceUnit == kUsSurveyFeet) return value * kUsFeetPerMetre;
  return value;
}
constexpr double ToMeters(double value, int distanceUnit) {
  if (IsNull(value)) return value;
  if (distanceUnit == kInternationalFeet) return value * kMetresPerFoot;
  if (distanceUnit == kUsSurveyFeet) return value * kMetresPerUsFoot;
  return value;
}

/// Angle unit 0 is degrees, every other one is gons.
constexpr double FromRadians(double value, int angleUnit) {
  if (IsNull(value)) return value;
  return value * (angleUnit == 0 ? 180.0 : 200.0) / kPi;
}
constexpr double ToRadians(double value, int angleUnit) {
  if (IsNull(value)) return value;
  return value * kPi / (angleUnit == 0 ? 180.0 : 200.0);
}

/// Latitudes and longitudes are degrees whatever the angle unit.
constexpr double RadToDeg(double value) {
  return FromRadians(value, 0);
}
constexpr double DegToRad(double value) {
  return ToRadians(value, 0);
}

}  // namespace zelconvert
