// A traverse that is measured by chance, and that all routes of its log agree.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "Surveyor.h"

namespace zelconvert {

/// The points that a JobXML file ends with.
inline Points PointsOfJxl(const std::string& jxl) {
  Points points;
  const auto text = [&](const char* tag, std::size_t from) {
    const std::size_t at = jxl.find(tag, from) + std::string(tag).size();
    return jxl.substr(at, jxl.find('<', at) - at);
  };
  for (std::size_t at = jxl.find("<Point ", jxl.find("<Reductions>")); at != jxl.npos;
       at = jxl.find("<Point ", at + 1)) {
    points[text("<Name>", at)] = {std::stod(text("<North>", at)), std::stod(text("<East>", at)),
                                  std::stod(text("<Elevation>", at))};
  }
  return points;
}

inline constexpr double kMillimetre = 1e-3;

/// Every point that `known` holds, where it holds it.
inline void ExpectPoints(const Points& known, const Points& points) {
  for (const auto& [name, point] : known) {
    ASSERT_TRUE(points.contains(name)) << name;
    ExpectNear(point, points.at(name), name, kMillimetre);
  }
}

/// convert: gives the file that a log becomes, as ConvertLog does.
template <class Convert>
void ExpectAgreement(const Points& known, const std::string& log, double scaleFactor,
                     Convert convert) {
  const Office dc(convert(log, FT_DC1070));
  // An SDR file tells its scale factor with three decimals.
  const Office sdr(convert(log, FT_SDR33), scaleFactor);
  for (const Office* office : {&dc, &sdr}) {
    SCOPED_TRACE(office == &dc ? "DC" : "SDR");
    ExpectPoints(known, office->points);
    for (const auto& [name, point] : office->shots) {
      ExpectNear(known.at(name), point, name, kMillimetre);
    }
  }
  SCOPED_TRACE("JobXML");
  ExpectPoints(known, PointsOfJxl(convert(log, FT_JXL)));
}

/// A traverse over scattered points with sideshots, both faces, and heights that change; the
/// instrument mostly moves without telling its new setup.
struct Traverse {
  /// choose: gives any number below the one that it is called with.
  template <class Choose>
  explicit Traverse(Choose choose) {
    const auto pick = [&](unsigned low, unsigned high) {  // in thousandths
      return low + static_cast<double>(choose(1000 * (high - low))) / 1000;
    };
    const auto oneOf = [&](unsigned count) { return choose(count) == 0; };
    units = {static_cast<int>(choose(3)), static_cast<int>(choose(2)), static_cast<int>(choose(2)),
             0.995 + pick(0, 1) / 100};
    const auto scatter = [&](const std::string& name, const Point& from) {
      const double run = pick(3, 90), azimuth = pick(0, 360) * kPi / 180;
      points[name] = {from.north + run * std::cos(azimuth), from.east + run * std::sin(azimuth),
                      from.elevation + pick(0, 18) - 9};
    };
    const unsigned legs = 1 + static_cast<unsigned>(choose(7));
    points["0"] = {5000, 3000, 100};
    for (unsigned i = 0; i < legs; ++i) {
      const std::string name = std::to_string(i);
      scatter(std::to_string(i + 1), points[name]);
      for (const char* side : {"a", "b", "c"}) scatter(name + side, points[name]);
    }
    Surveyor field(points, units);
    field.Occupy("0");
    field.Backsight("1", pick(0, 359));
    for (unsigned i = 0; i < legs; ++i) {
      const std::string name = std::to_string(i), next = std::to_string(i + 1);
      const double height = pick(1, 2);
      field.Heights(height, pick(1, 2));
      for (const char* side : {"a", "b", "c"}) {
        if (oneOf(2)) field.TurnOver();
        field.Shoot("SS", name + side, 0, 2);
        if (oneOf(3)) field.Heights(oneOf(2) ? height : pick(1, 2), pick(1, 2));
      }
      field.Shoot(i + 1 < legs ? "TR" : "SS", next, 0, 2);
      field.Advance(next);
      if (i + 1 < legs && oneOf(4)) {
        field.Occupy(next);
        field.Backsight(name, pick(0, 359));
      }
    }
    log = field.Log();
  }

  Units units{};
  Points points;
  std::string log;
};

}  // namespace zelconvert
