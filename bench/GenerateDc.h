// DC files of points for the benchmarks.
#pragma once

#include <cstddef>
#include <string>

#include "Generate.h"
#include "PlainLoop.h"

namespace zelconvert::bench {

inline void AppendHeader(std::string& dc) {
  dc += "00NMFX V10-70           03-13-2026 14:15111111\r\n10NMBENCH           121111\r\n";
}

inline void MakeDc(const std::string& path, std::size_t points) {
  std::string dc;
  AppendHeader(dc);
  for (std::size_t i = 0; i < points; ++i) {
    const Point point = MakePoint(i);
    const std::string name = "P" + std::to_string(point.number);
    dc += "69KI";
    dc.append(16 - name.size(), ' ');
    dc += name;
    AppendNumber(dc, point.north, 16, 5);
    AppendNumber(dc, point.east, 16, 5);
    AppendNumber(dc, point.elevation, 16, 5);
    AppendText(dc, point.code, 16);
    dc += "11\r\n";
  }
  WriteWhole(path, dc);
}

}  // namespace zelconvert::bench
