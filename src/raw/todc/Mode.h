// The units of a log. The first MO fixes those of the output; what is read under a later one is
// brought to them.
#pragma once

#include <optional>

#include "raw/Angles.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// A length in the unit `to`, from the unit `from`. A unit that isn't known and a null value leave
/// it as it is.
inline double LengthInUnit(double v, std::optional<LinearUnit> to, std::optional<LinearUnit> from) {
  if (IsNull(v) || !to || !from || to == from) return v;
  // Factors to the unit of the row from that of the column, in the order of LinearUnit. Between the
  // two feet they are what logs are scaled by, short of the exact ratio.
  static constexpr double kFactors[3][3] = {
      {1, kMetresPerFoot, kMetresPerUsFoot},
      {kFeetPerMetre, 1, 1.000002},
      {kUsFeetPerMetre, 0.999998, 1},
  };
  return v * kFactors[static_cast<int>(*to)][static_cast<int>(*from)];
}

struct Mode {
  bool isSet = false;            ///< an MO was read
  bool hasOtherLengths = false;  ///< the latest MO has another UN than the first
  std::optional<LinearUnit> firstUnit = LinearUnit::InternationalFoot;
  std::optional<LinearUnit> unit = LinearUnit::InternationalFoot;
  AngularUnit firstAngleUnit = AngularUnit::DegreesMinutesSeconds;
  AngularUnit angleUnit = AngularUnit::DegreesMinutesSeconds;

  /// Takes the units of an MO, the log's `first` or a later one.
  void Set(const MO_RECORD& mode, const MO_RECORD& first) {
    isSet = true;
    hasOtherLengths = mode.distanceUnit != first.distanceUnit;
    firstUnit = LinearUnitOfRaw(first.distanceUnit);
    unit = LinearUnitOfRaw(mode.distanceUnit);
    firstAngleUnit = AngularUnitOfRaw(first.angleUnit);
    angleUnit = AngularUnitOfRaw(mode.angleUnit);
  }

  /// A length as read, in the first unit. A null value stays.
  double Length(double v) const { return LengthInUnit(v, firstUnit, unit); }
  /// An angle that is reckoned in the current unit (decimal degrees or gons), in the first one.
  double ToFirstAngleUnit(double v) const { return ConvertAngleUnit(firstAngleUnit, angleUnit, v); }
  /// An angle as read, reckoned in the first unit.
  double Angle(double v) const { return ToFirstAngleUnit(ReckonedAngle(v, angleUnit)); }
};

}  // namespace zelconvert
