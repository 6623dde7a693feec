#include "raw/RawDcState.h"

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

constexpr bool IsKnownUnit(std::int32_t unit) {
  return unit >= kRawInternationalFeet && unit <= kRawUsSurveyFeet;
}

}  // namespace

void ModeState::SetUnits(const MO_RECORD& mode) {
  unit = mode.distanceUnit;
  angleUnit = mode.angleUnit;
  if (!seenMode) {
    seenMode = true;
    firstUnit = unit;
    firstAngleUnit = angleUnit;
  }
  unitConflict = unit != firstUnit;
  angleConflict = angleUnit != firstAngleUnit;
  unitFactor = IsKnownUnit(firstUnit) && IsKnownUnit(unit) ? kUnitFactors[firstUnit][unit] : 1.0;
}

double ModeState::Length(double v) const {
  return unitConflict && !IsNull(v) ? v * unitFactor : v;
}

double ModeState::ToFirstAngleUnit(double v) const {
  return angleConflict ? ConvertAngleUnit(firstAngleUnit, angleUnit, v) : v;
}

double ModeState::Angle(double v) const {
  return ToFirstAngleUnit(angleUnit == kRawDegrees ? DmsToDegrees(v) : v);
}

double ModeState::ZenithAngle(double v) const {
  return ToFirstAngleUnit(angleUnit == kRawGons ? v : DmsToDegrees(v));
}

}  // namespace zelconvert
