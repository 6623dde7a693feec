#include "raw/Angles.h"

#include <cmath>

#include "io/Numbers.h"

namespace zelconvert {
namespace {

/// Of DmsToDegrees and what is computed with it, with a wide margin.
constexpr double kNoise = 1e-9;

double Wrap(double v, double circle) {
  if (IsNull(v)) return v;
  const double remainder = std::fmod(v, circle);
  return remainder < 0 ? remainder + circle : remainder;
}

}  // namespace

double DmsToDegrees(double v) {
  if (IsNull(v)) return v;
  const double wrapped = std::fmod(v, 360);
  return wrapped == 0 ? 0 : NormalizeDegrees(DegreesFromDms(wrapped));
}

double RadiansOf(double v, AngularUnit unit) {
  return IsNull(v) ? v : v * (2 * kPi / FullCircle(unit));
}

double NormalizeDegrees(double v) {
  return Wrap(v, 360);
}

double NormalizeGons(double v) {
  return Wrap(v, 400);
}

double NormalizeAngle(double v, AngularUnit unit) {
  return Wrap(v, FullCircle(unit));
}

double NormalizeZenith(double v, AngularUnit unit) {
  const double zenith = NormalizeAngle(v, unit);
  return FullCircle(unit) - zenith <= kNoise ? 0 : zenith;
}

bool IsFaceTwo(double zenith, AngularUnit unit) {
  return NormalizeZenith(zenith, unit) > FullCircle(unit) / 2 + kNoise;
}

double ConvertAngleUnit(AngularUnit to, AngularUnit from, double v) {
  const bool fromGons = from == AngularUnit::Gon;
  if (IsNull(v) || fromGons == (to == AngularUnit::Gon)) return v;
  return fromGons ? v / 200 * 180 : v / 180 * 200;
}

double ParseBearing(std::wstring_view text, AngularUnit unit) {
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
  return ConvertAngleUnit(unit, AngularUnit::DecimalDegrees, azimuth);
}

}  // namespace zelconvert
