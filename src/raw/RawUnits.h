// The units of raw logs, mapped from the codes of an MO record.
#pragma once

#include <cstdint>
#include <optional>

#include "io/Units.h"

namespace zelconvert {

/// UN: 0 international feet, 1 metres, 2 US survey feet. Lengths under another code are taken as
/// they are.
constexpr std::optional<LinearUnit> LinearUnitOfRaw(std::int32_t un) {
  if (un == 0) return LinearUnit::InternationalFoot;
  if (un == 1) return LinearUnit::Metre;
  if (un == 2) return LinearUnit::UsSurveyFoot;
  return std::nullopt;
}

/// AU: 1 gons; any other code stands for degrees, minutes and seconds.
constexpr AngularUnit AngularUnitOfRaw(std::int32_t au) {
  return au == 1 ? AngularUnit::Gon : AngularUnit::DegreesMinutesSeconds;
}

// The codes of units that are written.
constexpr std::int32_t RawCodeOf(LinearUnit unit) {
  return unit == LinearUnit::InternationalFoot ? 0 : unit == LinearUnit::Metre ? 1 : 2;
}
constexpr std::int32_t RawCodeOf(AngularUnit unit) {
  return unit == AngularUnit::Gon ? 1 : 0;
}

/// What an angle that was read in `unit` is reckoned in: decimal degrees if it came as degrees,
/// minutes and seconds.
constexpr AngularUnit ReckonedUnit(AngularUnit unit) {
  return unit == AngularUnit::DegreesMinutesSeconds ? AngularUnit::DecimalDegrees : unit;
}

}  // namespace zelconvert
