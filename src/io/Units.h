// Linear units of job, CR5 and DC data, and the value that stands for "no value".
#pragma once

namespace zelconvert {

/// "No value" in job and DC records.
inline constexpr double DC_NULL = -9.99e27;
/// Readers and writers of numbers take anything not greater than this for null, and NaN.
inline constexpr double kNullLimit = -9.99e7;

constexpr bool IsNull(double value) {
  return !(value > kNullLimit);
}
/// `result`, which was computed from the other values: null if one of them is.
template <class... Values>
constexpr double Computed(double result, Values... values) {
  return (IsNull(values) || ...) ? DC_NULL : result;
}
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

/// Codes of a linear unit: 0 metres, 1 international feet, 2 US survey feet.
inline constexpr int kMetres = 0;
inline constexpr int kInternationalFeet = 1;
inline constexpr int kUsSurveyFeet = 2;

/// International foot: 0.3048 m exactly. US survey foot: 1200/3937 m.
inline constexpr double kMetresPerFoot = 0.3048;
inline constexpr double kMetresPerUsFoot = 0.30480060960121924;
inline constexpr double kFeetPerMetre = 3.280839895013123;
inline constexpr double kUsFeetPerMetre = 3.280833333333333;

inline constexpr double kPi = 3.141592653589793;

/// Other codes, and values of exactly -9.99e7 or -9.99e27, leave the value as it is.
double MetresFromUnits(double value, int unit);
double UnitsFromMetres(double value, int unit);

}  // namespace zelconvert
