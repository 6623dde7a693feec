// Raw logs of any size for the benchmarks.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

#include "Generate.h"
#include "PlainLoop.h"

namespace zelconvert::bench {

enum class Log { Sideshots, Heights, Traverse, Setups, Backsights, Gps, Vectors, Stored, Deleted };

inline const char* HeadOf(Log log) {
  return log == Log::Gps || log == Log::Vectors
             ? "RX,DCROVER,RA2.0\r\n"
             : "OC,OP1,N 5000.0,E 5000.0,EL100.0,--CP1\r\nBK,OP1,BP2,BS45.1530,BC0.0\r\n";
}

/// DDD.MMSS of some angle.
inline double SomeAngle(std::size_t i, unsigned degrees) {
  const auto part = [i](unsigned step, unsigned range) {
    return static_cast<double>(i * step % range);
  };
  return part(37, degrees) + part(7, 60) / 100 + part(13, 60) / 10000;
}

inline void AppendRecord(std::string& text, Log log, std::size_t i) {
  char line[200];
  const Point point = MakePoint(i / 2);
  const bool second = i % 2 != 0 && log != Log::Sideshots;
  if (second && log == Log::Heights) {
    std::snprintf(line, sizeof line, "LS,HI1.562000,HR%.6f\r\n", i % 4 / 2 == 0 ? 1.5 : 1.6);
  } else if (second && log == Log::Traverse) {
    std::snprintf(line, sizeof line, "LS,HI%.6f,HR1.500000\r\n", i % 4 / 2 == 0 ? 1.5 : 1.6);
  } else if (second && log == Log::Setups) {
    std::snprintf(line, sizeof line, "OC,OPS,N %.6f,E %.6f,EL%.6f,--%s\r\n", point.north,
                  point.east, point.elevation, point.code.data());
  } else if (second && log == Log::Backsights) {
    std::snprintf(line, sizeof line, "BK,OP1,BP2,BS%.4f,BC0.0000\r\n", SomeAngle(i, 360));
  } else if (second && log == Log::Stored) {
    std::snprintf(line, sizeof line, "SP,PN%u,N %.6f,E %.6f,EL%.6f,--%s\r\n", point.number,
                  point.north, point.east, point.elevation, point.code.data());
  } else if (second && log == Log::Deleted) {
    std::snprintf(line, sizeof line, "DP,PN%zu\r\n", i - 1);
  } else if (second && log == Log::Vectors) {
    // No GP comes up, so each vector looks to the end of the log.
    std::snprintf(line, sizeof line,
                  "BL,DCROVER,PN%u,DX%.4f,DY-26.1000,DZ15.3000,--RTK,GM1,CL1,HP0.008,VP0.014\r\n",
                  point.number, point.elevation);
  } else if (log == Log::Gps || log == Log::Vectors) {
    if (second) {
      std::snprintf(line, sizeof line, "GS,PN%u,N %.4f,E %.4f,EL%.4f,--%s\r\n", point.number,
                    point.north, point.east, point.elevation, point.code.data());
    } else {
      std::snprintf(line, sizeof line, "EP,LA%.9f,LN-%.9f,HT%.4f,GM2,CL1,RH0.0081,RV0.0142\r\n",
                    32.4522 + 1e-9 * static_cast<double>(i % 10000),
                    97.0815 + 1e-9 * static_cast<double>(i % 10000), point.elevation);
    }
  } else {
    std::snprintf(line, sizeof line, "%s,OP1,FP%zu,AR%.4f,ZE%.4f,SD%.6f,--%s\r\n",
                  log == Log::Traverse ? "TR" : "SS", i, SomeAngle(i, 360), 85 + SomeAngle(i, 10),
                  10 + static_cast<double>(i % 9973) * 0.013, point.code.data());
  }
  text += line;
}

template <Log log>
void MakeLog(const std::string& path, std::size_t records) {
  std::string text =
      "JB,NMBENCH,DT09-14-2026,TM08:12:30\r\n"
      "MO,AD0,UN1,SF0.99987000,EC0,EO0.0,AU0\r\n";
  text += HeadOf(log);
  for (std::size_t i = 0; i < records; ++i) AppendRecord(text, log, i);
  WriteWhole(path, text);
}

}  // namespace zelconvert::bench
