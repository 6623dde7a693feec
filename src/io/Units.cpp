#include "io/Units.h"

#include <cmath>

namespace zelconvert {
double DegreesFromDms(double value) {
  if (value == 0 || IsNull(value)) return value;
  const double dms = std::fabs(value);
  const double degrees = std::trunc(dms);
  const double hundredths = (dms - degrees + 5e-14) * 100;
  const double minutes = std::trunc(hundredths);
  const double rest = hundredths - minutes + 5e-12;  // seconds / 100
  return std::copysign(degrees + minutes / 60 + rest / 36, value);
}

double ToRadians(double value, AngularUnit unit) {
  if (IsNull(value) || unit == AngularUnit::Radian) return value;
  if (unit == AngularUnit::DegreesMinutesSeconds) value = DegreesFromDms(value);
  return value * kPi / (FullCircle(unit) / 2);
}

double FromRadians(double value, AngularUnit unit) {
  if (IsNull(value) || unit == AngularUnit::Radian) return value;
  return value * (FullCircle(unit) / 2) / kPi;
}

}  // namespace zelconvert
