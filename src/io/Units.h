// Units of lengths and angles, and the value that stands for "no value". A format's own codes of
// units are mapped to these at its edge and go no further.
#pragma once

#include <cmath>
#include <cstdint>

namespace zelconvert {

/// "No value" in job and DC records.
inline constexpr double DC_NULL = -9.99e27;
/// Readers and writers of numbers take anything not greater than this for null, and NaN.
inline constexpr double kNullLimit = -9.99e7;

/// True for NaN as well.
[[nodiscard]] constexpr bool IsNull(double value) {
  return !(value > kNullLimit);
}
/// `result`, which was computed from the other values: null if one of them is.
template <class... Values>
constexpr double Computed(double result, Values... values) {
  return (IsNull(values) || ...) ? DC_NULL : result;
}
/// Null if a or b is.
constexpr double Sum(double a, double b) {
  return Computed(a + b, a, b);
}
constexpr double Difference(double a, double b) {
  return Computed(a - b, a, b);
}
/// The null value stands for 1 in a factor, for 0 in a sum.
constexpr double NullToOne(double value) {
  return IsNull(value) ? 1.0 : value;
}
constexpr double NullToZero(double value) {
  return IsNull(value) ? 0.0 : value;
}

/// International foot: 0.3048 m exactly. US survey foot: 1200/3937 m.
inline constexpr double kMetresPerFoot = 0.3048;
inline constexpr double kMetresPerUsFoot = 0.30480060960121924;
inline constexpr double kFeetPerMetre = 3.280839895013123;
inline constexpr double kUsFeetPerMetre = 3.280833333333333;

inline constexpr double kPi = 3.141592653589793;

enum class LinearUnit : std::uint8_t { Metre, InternationalFoot, UsSurveyFoot };

/// Degrees, minutes and seconds are those of field logs, written DDD.MMSSsss: 12.3045 is 12 degrees
/// 30 minutes 45 seconds.
enum class AngularUnit : std::uint8_t { DegreesMinutesSeconds, DecimalDegrees, Gon, Radian };

/// `value`, a length in `unit`, in metres. Null stays as it is.
constexpr double ToMetres(double value, LinearUnit unit) {
  if (IsNull(value) || unit == LinearUnit::Metre) return value;
  return value * (unit == LinearUnit::UsSurveyFoot ? kMetresPerUsFoot : kMetresPerFoot);
}
/// `value`, a length in metres, in `unit`. Null stays as it is.
constexpr double FromMetres(double value, LinearUnit unit) {
  if (IsNull(value) || unit == LinearUnit::Metre) return value;
  return value * (unit == LinearUnit::UsSurveyFoot ? kUsFeetPerMetre : kFeetPerMetre);
}

/// A full circle: 360, 400 or 2 pi. That of degrees, minutes and seconds is 360 too.
constexpr double FullCircle(AngularUnit unit) {
  return unit == AngularUnit::Gon ? 400 : unit == AngularUnit::Radian ? 2 * kPi : 360;
}
/// Decimal degrees of DDD.MMSSsss, sign kept, nothing wrapped; null stays as it is. A nudge far
/// below the millisecond keeps 59.999... seconds from losing a minute.
inline double DegreesFromDms(double value) {
  if (value == 0 || IsNull(value)) return value;
  const double dms = std::fabs(value);
  const double degrees = std::trunc(dms);
  const double hundredths = (dms - degrees + 5e-14) * 100;
  const double minutes = std::trunc(hundredths);
  const double rest = hundredths - minutes + 5e-12;  // seconds / 100
  return std::copysign(degrees + minutes / 60 + rest / 36, value);
}
/// `value`, an angle in `unit`, in radians. Null stays as it is.
inline double ToRadians(double value, AngularUnit unit) {
  if (IsNull(value) || unit == AngularUnit::Radian) return value;
  if (unit == AngularUnit::DegreesMinutesSeconds) value = DegreesFromDms(value);
  return value * kPi / (FullCircle(unit) / 2);
}
/// `value`, an angle in radians, in `unit`, which isn't DegreesMinutesSeconds: nothing writes these
/// from radians. Null stays as it is.
inline double FromRadians(double value, AngularUnit unit) {
  if (IsNull(value) || unit == AngularUnit::Radian) return value;
  return value * (FullCircle(unit) / 2) / kPi;
}

}  // namespace zelconvert
