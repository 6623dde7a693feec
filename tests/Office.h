// A DC or SDR file of the routes from raw logs, read as an office program does.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "HostLists.h"
#include "TempDir.h"
#include "io/Units.h"

namespace zelconvert {

struct Point {
  double north, east, elevation;  // metres
};
using Points = std::map<std::string, Point>;

inline void ExpectNear(const Point& known, const Point& point, const std::string& name,
                       double tolerance) {
  EXPECT_NEAR(point.north, known.north, tolerance) << name;
  EXPECT_NEAR(point.east, known.east, tolerance) << name;
  EXPECT_NEAR(point.elevation, known.elevation, tolerance) << name;
}

/// The file that a log becomes through the library.
inline std::string ConvertLog(const std::string& log, FileType type) {
  const TempDir folder;
  const std::wstring in = folder.Write(L"in.raw", log);
  HostLists lists;
  EXPECT_TRUE(lists.Convert(FT_RAW, in, type, folder.Path(L"out")));
  return folder.Read(L"out");
}

/// What an office program makes of a file: stations, orientations and shots to points, in metres.
/// What DC and SDR33 files both have stands in the same columns of both.
class Office {
 public:
  /// `scale`: the scale factor of a file that doesn't tell it in full.
  explicit Office(const std::string& file, double scale = 1) : m_scale(scale) {
    std::istringstream lines(file);
    for (std::string line; std::getline(lines, line);) Read(line);
  }

  Points points;  ///< as they are told of, or else first shot
  /// Where each shot put its target, in the order of the file.
  std::vector<std::pair<std::string, Point>> shots;

 private:
  static std::string Column(const std::string& line, std::size_t start) {
    const std::string text = line.substr(start, 16);
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
  }
  static double Value(const std::string& line, std::size_t start) {
    return std::stod(line.substr(start, 16));
  }
  void Read(const std::string& line) {
    const std::string type = line.substr(0, 4);
    if (type == "00NM") {
      m_circleDegrees = line[40] == '2' ? 0.9 : 1.0;
      const double metres[] = {1.0, 0.3048, 1200.0 / 3937.0};
      m_metres = metres[line[41] - '1'];
    } else if (type == "64KI") {
      m_scale = Value(line, 101);
    } else if (type == "78NM") {
      m_azimuthOrigin = line[4] == '2' ? 180 : 0;
    } else if (type == "69KI" || type == "02TV" || type == "08KI") {
      points[Column(line, 4)] = {Value(line, 20) * m_metres, Value(line, 36) * m_metres,
                                 Value(line, 52) * m_metres};
    } else if (type == "77NM" || type == "03NM") {
      if (!Column(line, 4).empty()) m_rod = Value(line, 4) * m_metres;
    } else if (type == "E1KI" || type == "07KI") {
      // Without an azimuth the setup stays as it was oriented.
      if (!Column(line, 36).empty()) {
        m_backAzimuth = Value(line, 36) * m_circleDegrees + m_azimuthOrigin;
      }
      m_circle = Value(line, 52) * m_circleDegrees;
    } else if ((type == "D9F1" || type == "09F1") && !Column(line, 36).empty()) {
      ReadShot(line);
    }
    if (type == "E0NM" || type == "02TV") {
      m_station = Column(line, 4);
      m_instrument = Value(line, type == "E0NM" ? 20 : 68) * m_metres;
    }
  }
  void ReadShot(const std::string& line) {
    EXPECT_EQ(Column(line, 4), m_station);
    const double slope = Value(line, 36) * m_metres;
    const double zenith = Value(line, 52) * m_circleDegrees * kPi / 180;
    const double azimuth =
        (m_backAzimuth + Value(line, 68) * m_circleDegrees - m_circle) * kPi / 180;
    const Point& at = points.at(m_station);
    const double run = slope * std::sin(zenith) * m_scale;
    const Point point{at.north + run * std::cos(azimuth), at.east + run * std::sin(azimuth),
                      at.elevation + m_instrument + slope * std::cos(zenith) - m_rod};
    const std::string name = Column(line, 20);
    points.emplace(name, point);
    shots.emplace_back(name, point);
  }

  double m_circleDegrees = 1;
  double m_metres = 1;
  double m_scale;
  double m_azimuthOrigin = 0;
  std::string m_station;
  double m_instrument = 0;
  double m_rod = 0;
  double m_backAzimuth = 0;
  double m_circle = 0;
};

}  // namespace zelconvert
