#include "raw/todc/Mode.h"

namespace zelconvert {
namespace {

/// Factors to the unit of the row from that of the column, in the order of LinearUnit. Between the
/// two feet they are what logs are scaled by, short of the exact ratio.
constexpr double kUnitFactors[3][3] = {
    {1, kMetresPerFoot, kMetresPerUsFoot},
    {kFeetPerMetre, 1, 1.000002},
    {kUsFeetPerMetre, 0.999998, 1},
};

}  // namespace

double LengthInUnit(double v, std::optional<LinearUnit> to, std::optional<LinearUnit> from) {
  if (IsNull(v) || !to || !from || to == from) return v;
  return v * kUnitFactors[static_cast<int>(*to)][static_cast<int>(*from)];
}

void Mode::Set(const MO_RECORD& mode, const MO_RECORD& first) {
  isSet = true;
  hasOtherLengths = mode.distanceUnit != first.distanceUnit;
  firstUnit = LinearUnitOfRaw(first.distanceUnit);
  unit = LinearUnitOfRaw(mode.distanceUnit);
  firstAngleUnit = AngularUnitOfRaw(first.angleUnit);
  angleUnit = AngularUnitOfRaw(mode.angleUnit);
}

}  // namespace zelconvert
