// Inputs of any size for the benchmarks, the same in every run.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tests/TempDir.h"

namespace zelconvert::bench {

struct Point {
  std::uint32_t number;
  double north, east, elevation;  ///< metres, with all the digits of a computed position
  std::string_view code;
};

/// Point `i` of a survey, numbered from 1: a spiral over some ten kilometres.
inline Point MakePoint(std::size_t i) {
  static constexpr std::string_view kCodes[] = {"IP SET",  "FENCE",    "EP",   "CL ROAD",
                                                "HYDRANT", "TREE OAK", "GATE", "MH SEWER"};
  const double angle = static_cast<double>(i) * 0.7;
  const double distance = std::sqrt(static_cast<double>(i)) * 5.3;
  return {static_cast<std::uint32_t>(i + 1), 240000.0 + distance * std::cos(angle),
          710000.0 + distance * std::sin(angle), 100.0 + std::fmod(angle, 37.0),
          kCodes[i % std::size(kCodes)]};
}

/// A file of `records` records in a folder that goes with it, made by `make(path, records)`, and
/// the path where its conversion goes.
class Input {
 public:
  template <class Make>
  Input(std::string_view extension, std::size_t records, Make make)
      : m_folder(), m_input((m_folder.Folder() / "in").string() + std::string(extension)) {
    make(m_input, records);
  }
  const std::string& Path() const { return m_input; }
  std::string OutputPath(std::string_view extension) const {
    return (m_folder.Folder() / "out").string() + std::string(extension);
  }

 private:
  TempDir m_folder;
  std::string m_input;
};

}  // namespace zelconvert::bench
