// The digits of units in a DC file's header. Degrees are decimal ones.
#pragma once

#include <cstdint>
#include <optional>

#include "io/Units.h"

namespace zelconvert {

/// digit: 2 international feet, 3 US survey feet; anything else is metres.
constexpr LinearUnit LinearUnitOfDc(std::int32_t digit) {
  return digit == 2   ? LinearUnit::InternationalFoot
         : digit == 3 ? LinearUnit::UsSurveyFoot
                      : LinearUnit::Metre;
}
/// 1 metres, 2 international feet, 3 US survey feet.
constexpr std::int32_t DcDigit(LinearUnit unit) {
  return unit == LinearUnit::UsSurveyFoot ? 3 : unit == LinearUnit::InternationalFoot ? 2 : 1;
}

/// digit: 1 degrees, 2 gons; nothing for 3, which is mils, and for anything else.
constexpr std::optional<AngularUnit> AngularUnitOfDc(std::int32_t digit) {
  if (digit == 1) return AngularUnit::DecimalDegrees;
  if (digit == 2) return AngularUnit::Gon;
  return std::nullopt;
}
/// Any unit but gons is written as degrees.
constexpr std::int32_t DcDigit(AngularUnit unit) {
  return unit == AngularUnit::Gon ? 2 : 1;
}

}  // namespace zelconvert
