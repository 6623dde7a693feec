// The units that an ILJ job shows, by the numbers of its JOBMO record. The file itself holds metres
// and radians.
#pragma once

#include <cstdint>
#include <optional>

#include "io/Units.h"

namespace zelconvert {

/// undi: 0 metres, 1 international feet, 2 US survey feet; nothing for any other number.
constexpr std::optional<LinearUnit> LinearUnitOfIlj(std::int32_t undi) {
  if (undi == 0) return LinearUnit::Metre;
  if (undi == 1) return LinearUnit::InternationalFoot;
  if (undi == 2) return LinearUnit::UsSurveyFoot;
  return std::nullopt;
}

/// unan: 0 decimal degrees, 1 gons; nothing for any other number.
constexpr std::optional<AngularUnit> AngularUnitOfIlj(std::int32_t unan) {
  if (unan == 0) return AngularUnit::DecimalDegrees;
  if (unan == 1) return AngularUnit::Gon;
  return std::nullopt;
}

}  // namespace zelconvert
