#include "raw/todc/RawDcState.h"

#include <cmath>

#include "io/Units.h"

namespace zelconvert {
namespace {

/// Factors from the unit of the latest MO (columns) to that of the first (rows), both as codes of
/// UN: international feet, metres, US survey feet.
constexpr double kUnitFactors[3][3] = {
    {1, kFeetPerMetre, 1.000002},
    {kMetresPerFoot, 1, kMetresPerUsFoot},
    {0.999998, kUsFeetPerMetre, 1},
};

/// Semi-major axis in metres and first eccentricity squared of WGS 84 (NIMA TR8350.2).
constexpr double kSemiMajorAxis = 6378137;
constexpr double kEccentricitySquared = 0.006694380022900787;

double ToMetres(double v, std::int32_t unit) {
  if (IsNull(v)) return v;
  if (unit == kRawInternationalFeet) return v * kMetresPerFoot;
  return unit == kRawUsSurveyFeet ? v * kMetresPerUsFoot : v;
}

double FromMetres(double v, std::int32_t unit) {
  if (IsNull(v)) return v;
  if (unit == kRawInternationalFeet) return v * kFeetPerMetre;
  return unit == kRawUsSurveyFeet ? v * kUsFeetPerMetre : v;
}

constexpr bool IsKnownUnit(std::int32_t unit) {
  return unit >= kRawInternationalFeet && unit <= kRawUsSurveyFeet;
}

}  // namespace

void ModeState::SetUnits(const MO_RECORD& mode) {
  unit = mode.distanceUnit;
  angleUnit = AngleUnitOf(mode.angleUnit);
  if (!seenMode) {
    seenMode = true;
    firstUnit = unit;
    firstAngleUnit = angleUnit;
  }
  angleConflict = angleUnit != firstAngleUnit;
}

double ModeState::Length(double v) const {
  return LengthInUnit(v, firstUnit, unit);
}

double LengthInUnit(double v, std::int32_t to, std::int32_t from) {
  if (IsNull(v) || to == from || !IsKnownUnit(to) || !IsKnownUnit(from)) return v;
  return v * kUnitFactors[to][from];
}

double ModeState::ToFirstAngleUnit(double v) const {
  return angleConflict ? ConvertAngleUnit(firstAngleUnit, angleUnit, v) : v;
}

double ModeState::Angle(double v) const {
  return ToFirstAngleUnit(angleUnit == kRawDegrees ? DmsToDegrees(v) : v);
}

EcefPosition ModeState::GeodeticToEcef(double latitude, double longitude, double height) const {
  if (IsNull(latitude) || IsNull(longitude) || IsNull(height)) return {DC_NULL, DC_NULL, DC_NULL};
  const double lat = latitude * (kPi / 180);
  const double lon = longitude * (kPi / 180);
  const double h = ToMetres(height, firstUnit);
  const double n =
      kSemiMajorAxis / std::sqrt(1 - kEccentricitySquared * std::sin(lat) * std::sin(lat));
  return {FromMetres((n + h) * std::cos(lat) * std::cos(lon), firstUnit),
          FromMetres((n + h) * std::cos(lat) * std::sin(lon), firstUnit),
          FromMetres((n * (1 - kEccentricitySquared) + h) * std::sin(lat), firstUnit)};
}

EcefPosition VectorBetween(const EcefPosition& from, const EcefPosition& to) {
  return {Difference(to.x, from.x), Difference(to.y, from.y), Difference(to.z, from.z)};
}

void RoundsState::Clear() {
  pending = false;
  backsightShots.clear();
  foresightShots.clear();
  directions.clear();
  currentDirection = {};
  currentSet = 0;
  hasDirection = false;
  lastDirectionKind = DirectionKind::BacksightDirect;
  backsightDirections.clear();
}

void NameMarks::Watch(const NameSet& names) {
  m_pNames = &names;
  m_marks.assign(names.Size(), false);
}

void NameMarks::Insert(std::wstring_view name) {
  if (const auto number = m_pNames->Find(name)) m_marks[*number] = true;
}

bool NameMarks::Contains(std::wstring_view name) const {
  const auto number = m_pNames->Find(name);
  return number && m_marks[*number];
}

}  // namespace zelconvert
