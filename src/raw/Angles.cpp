#include "raw/Angles.h"

#include <cmath>

#include "io/Numbers.h"
#include "io/Units.h"

namespace zelconvert {
namespace {

/// Of DmsToDegrees and what is computed with it, with a wide margin.
constexpr double kNoise = 1e-9;

/// Decimal degrees of a DDD.MMSSsss that isn't negative.
double DegreesOfDms(double dms) {
  const double degrees = std::trunc(dms);
  const double hundredths = (dms - degrees + 5e-14) * 100;
  const double minutes = std::trunc(hundredths);
  const double rest = hundredths - minutes + 5e-12;  // seconds / 100
  return degrees + minutes / 60 + rest / 36;
}

double Wrap(double v, double circle) {
  if (IsNull(v)) return v;
  const double remainder = std::fmod(v, circle);
  return remainder < 0 ? remainder + circle : remainder;
}

}  // namespace

double DmsToDegrees(double v) {
  if (IsNull(v)) return v;
  const double wrapped = std::fmod(std::fabs(v), 360);
  if (wrapped == 0) return 0;
  const double degrees = DegreesOfDms(wrapped);
  return NormalizeDegrees(v < 0 ? -degrees : degrees);
}

double DmsToDegreesSigned(double v) {
  if (v == 0 || IsNull(v)) return v;
  const double degrees = DegreesOfDms(std::fabs(v));
  return v < 0 ? -degrees : degrees;
}

double RadiansOf(double v, std::int32_t unit) {
  return IsNull(v) ? v : v * (2 * kPi / FullCircle(unit));
}

double NormalizeDegrees(double v) {
  return Wrap(v, 360);
}

double NormalizeGons(double v) {
  return Wrap(v, 400);
}

double NormalizeAngle(double v, std::int32_t unit) {
  return Wrap(v, FullCircle(unit));
}

double NormalizeZenith(double v, std::int32_t unit) {
  const double zenith = NormalizeAngle(v, unit);
  return FullCircle(unit) - zenith <= kNoise ? 0 : zenith;
}

bool IsFaceTwo(double zenith, std::int32_t unit) {
  return NormalizeZenith(zenith, unit) > FullCircle(unit) / 2 + kNoise;
}

double ConvertAngleUnit(std::int32_t to, std::int32_t from, double v) {
  if (IsNull(v)) return v;
  if (from == kRawGons && to == kRawDegrees) return v / 200 * 180;
  if (from == kRawDegrees && to == kRawGons) return v / 180 * 200;
  return v;
}

double ParseBearing(std::wstring_view text, std::int32_t unit) {
  if (text.empty()) return DC_NULL;
  const wchar_t first = text.front();
  const wchar_t last = text.back();
  const std::wstring_view middle =
      text.size() > 2 ? text.substr(1, text.size() - 2) : std::wstring_view();
  const double angle = DmsToDegrees(ToReal(middle));
  double azimuth = angle;
  if (first == L'N' && last == L'W') azimuth = 360 - angle;
  if (first == L'S' && last == L'W') azimuth = 180 + angle;
  if (first == L'S' && last == L'E') azimuth = 180 - angle;
  return unit == kRawGons ? ConvertAngleUnit(kRawGons, kRawDegrees, azimuth) : azimuth;
}

}  // namespace zelconvert
