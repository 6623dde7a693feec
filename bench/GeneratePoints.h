// Jobs, DC files and interlock jobs of points for the benchmarks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Generate.h"
#include "PlainLoop.h"
#include "job/CJobFile.h"

namespace zelconvert::bench {

enum class Order { Ascending, Shuffled };

// A permutation of 1 to `count` without a table: a stride that shares no factor with it.
inline std::size_t Shuffle(std::size_t i, std::size_t count) {
  return (i * 7368787 + 13) % count;  // 7368787 is prime
}

template <Order order>
void MakeJob(const std::string& path, std::size_t points) {
  CJobFile job(true);
  bool isMade = job.Create(ToText(path), kJobVersion) && job.WriteLayer(DefaultLayer());
  JOB_POINT record;
  for (std::size_t i = 0; isMade && i < points; ++i) {
    const Point point = MakePoint(order == Order::Shuffled ? Shuffle(i, points) : i);
    record.name = std::to_wstring(point.number);
    record.description.assign(point.code.begin(), point.code.end());
    record.east = point.east;
    record.north = point.north;
    record.elevation = point.elevation;
    record.layer = kDefaultLayerId;
    isMade = job.WritePoint(record);
  }
}

inline void MakeDc(const std::string& path, std::size_t points) {
  std::string dc =
      "00NMFX V10-70           03-13-2026 14:15111111\r\n10NMBENCH           121111\r\n";
  for (std::size_t i = 0; i < points; ++i) {
    const Point point = MakePoint(i);
    dc += "69KI";
    AppendName(dc, "P" + std::to_string(point.number));
    AppendNumber(dc, point.north, 16, 5);
    AppendNumber(dc, point.east, 16, 5);
    AppendNumber(dc, point.elevation, 16, 5);
    AppendText(dc, point.code, 16);
    dc += "11\r\n";
  }
  WriteWhole(path, dc);
}

inline constexpr std::string_view kIljHead =
    "\xEF\xBB\xBFJOBMO\tDATE:20260917\tTIME:090001\tUNDI:1\tUNAN:0\tDESC:1.0.0\r\n";

template <class Files>
void AppendIljPoint(std::string& ilj, std::string_view name, std::string_view code, double north,
                    double east, double elevation) {
  ilj.append("POINT\tDATE:20260917\tTIME:090001\tDERV:KI\tPTNM:").append(name);
  ilj.append("\tDESC:").append(code).append("\tNRTH:");
  Files::Number(ilj, north, 0, 5);
  ilj += "\tEAST:";
  Files::Number(ilj, east, 0, 5);
  ilj += "\tELEV:";
  Files::Number(ilj, elevation, 0, 5);
  ilj += "\tCDTY:9\tCDOR:1\tCDCL:1\r\n";
}

inline void MakeIlj(const std::string& path, std::size_t points) {
  std::string ilj(kIljHead);
  for (std::size_t i = 0; i < points; ++i) {
    const Point point = MakePoint(i);
    AppendIljPoint<WholeFiles>(ilj, "P" + std::to_string(point.number), point.code, point.north,
                               point.east, point.elevation);
  }
  WriteWhole(path, ilj);
}

}  // namespace zelconvert::bench
