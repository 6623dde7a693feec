// Numbers of a survey as its owner is used to see them.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

inline std::string Utf8(std::wstring_view text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  return utf8;
}

/// Short names, as the host's options have them.
constexpr std::string_view NameOf(LinearUnit unit) {
  return unit == LinearUnit::InternationalFoot ? "ft"
         : unit == LinearUnit::UsSurveyFoot    ? "usft"
                                               : "m";
}
constexpr std::string_view NameOf(AngularUnit unit) {
  return unit == AngularUnit::Gon ? "gons" : "degrees";
}

/// Metres in the survey's unit; of a list whose unit isn't known as they stand. Null stays.
inline double Shown(const Survey& survey, double metres) {
  return FromMetres(metres, survey.lengthUnit.value_or(LinearUnit::Metre));
}

/// To so many decimals, so that what was converted from one unit to another and back is what it
/// was. A number that is too large for that stays.
inline double Rounded(double value, int decimals) {
  const double factor = std::pow(10.0, decimals);
  const double rounded = std::round(value * factor) / factor;
  return std::isfinite(rounded) ? rounded : value;
}

}  // namespace zelconvert::tools
