// Numbers and units as a plan tells them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "io/Units.h"
#include "tools/PlotGeometry.h"

namespace zelconvert::tools::plot {

inline constexpr double kSecondsPerCircle = 1296000;
inline constexpr double kSecondsPerRadian = kSecondsPerCircle / (2 * kPi);

struct DisplayUnit {
  std::wstring_view sign;  ///< "m"; empty: the file doesn't tell
  std::wstring_view name;  ///< "metres"
  double metres = 1;       ///< of one
  bool isFoot = false;
  int stationLength = 1000;  ///< before the "+" of a station
};
DisplayUnit DisplayUnitOf(std::optional<LinearUnit> unit);

/// "0.5", "20000": no zeros after the last digit.
std::wstring FormatShort(double value, int decimals);
/// "1.25 m", "20 km"; of a unit that isn't known the number alone.
std::wstring FormatLength(double value, int decimals, const DisplayUnit& unit);
/// "1+250.5" of 1250.5 in metres, "12+50.5" in feet.
std::wstring FormatStation(double station, int decimals, int stationLength);
/// "48\u00b007'30\"N" of 173250 seconds. signs: of positive and of negative ones,
/// "NS"; may be empty.
std::wstring FormatSeconds(double seconds, int decimals, std::wstring_view signs);
/// A scale in words: "1 : 500", "1 in = 50 ft (1 : 600)".
std::wstring FormatScale(double scale, const DisplayUnit& unit);
/// "1 point", "2 points".
std::wstring FormatCount(std::size_t count, std::wstring_view noun);

}  // namespace zelconvert::tools::plot
