// DC files of roads for the benchmarks.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "PlainLoop.h"

namespace zelconvert::bench {

inline void AppendRoadRecord(std::string& dc, std::string_view head,
                             std::initializer_list<double> numbers) {
  dc += head;
  for (const double number : numbers) AppendNumber(dc, number, 16, 5);
  dc += "\r\n";
}

/// A tangent, a spiral, an arc, a spiral: 285.5 along.
inline void AppendElements(std::string& dc, double azimuth) {
  AppendRoadRecord(dc, "31KI", {azimuth, 120});
  AppendRoadRecord(dc, "33KI", {40, 200});
  AppendRoadRecord(dc, "32KI", {85.5, -200});
  AppendRoadRecord(dc, "33KI", {40, 200});
}

inline void AppendRoad(std::string& dc, std::size_t number, std::size_t groups) {
  const double length = static_cast<double>(groups) * 285.5;
  dc += "28KI" + std::to_string(number) + "\r\n";
  AppendRoadRecord(dc, "84KI", {0, 25.5, 5326100, 540050, 514});
  for (std::size_t i = 0; i < groups; ++i) {
    AppendElements(dc, static_cast<double>((number + i) % 360) + 0.12345);
  }
  AppendRoadRecord(dc, "34KI", {0, 514});
  AppendRoadRecord(dc, "36KI", {140, 517.5, 60});
  AppendRoadRecord(dc, "37KI", {length, 513.2});
  dc += "39KIT" + std::to_string(number) + "\r\n";
  AppendRoadRecord(dc, "46KI3", {3.5, -2, 0, 0, 0});
  AppendRoadRecord(dc, "46KI3", {1.5, -4, 0, 0, 0});
  dc += "97KI1        50.000001        33.33330         0.00000TOE\r\n";
  dc += "B9KI         0.000003T               3T\r\n";
  dc +=
      "44KI       100.000001         4.000001        -4.00000         0.50000         0.500002\r\n";
  dc +=
      "44KI       200.000001        -2.000001        -2.00000         0.00000         0.000002\r\n";
}

inline constexpr std::string_view kRoadsHead =
    "00NMFX V10-70           09-16-2026 10:05111111\r\n10NMBENCH           121111\r\n";

/// A road of four elements for each thousand: the time goes into making files.
inline void MakeRoads(const std::string& path, std::size_t count) {
  std::string dc(kRoadsHead);
  for (std::size_t i = 0; i < count / 1000; ++i) AppendRoad(dc, i, 1);
  WriteWhole(path, dc);
}

/// One road of `count` elements.
inline void MakeLongRoad(const std::string& path, std::size_t count) {
  std::string dc(kRoadsHead);
  AppendRoad(dc, 1, count / 4);
  WriteWhole(path, dc);
}

}  // namespace zelconvert::bench
