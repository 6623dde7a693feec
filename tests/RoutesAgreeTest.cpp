// One log by the routes to DC, SDR and JobXML: every point lands in the same place.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Office.h"
#include "Surveyor.h"

namespace zelconvert {
namespace {

/// The points that a JobXML file ends with.
Points PointsOfJxl(const std::string& jxl) {
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

constexpr double kMillimetre = 1e-3;

/// Every point that `known` holds, where it holds it.
void ExpectPoints(const Points& known, const Points& points) {
  for (const auto& [name, point] : known) {
    ASSERT_TRUE(points.contains(name)) << name;
    ExpectNear(point, points.at(name), name, kMillimetre);
  }
}

void ExpectAgreement(const Points& known, const std::string& log, double scaleFactor) {
  const Office dc(ConvertLog(log, FT_DC1070));
  // An SDR file tells its scale factor with three decimals.
  const Office sdr(ConvertLog(log, FT_SDR33), scaleFactor);
  for (const Office* office : {&dc, &sdr}) {
    SCOPED_TRACE(office == &dc ? "DC" : "SDR");
    ExpectPoints(known, office->points);
    for (const auto& [name, point] : office->shots) {
      ExpectNear(known.at(name), point, name, kMillimetre);
    }
  }
  SCOPED_TRACE("JobXML");
  ExpectPoints(known, PointsOfJxl(ConvertLog(log, FT_JXL)));
}

TEST(Routes, AgreeOnTheExample) {
  const std::string log = ReadBytes("examples/mill-creek-simple.raw");
  const Points known = Office(ConvertLog(log, FT_DC1070)).points;
  EXPECT_EQ(known.size(), 9u);
  ExpectAgreement(known, log, 0.99987);
}

// A traverse over random points with sideshots, in all units, south azimuths, both faces, scale
// factors and heights that change; the instrument mostly moves without telling its new setup.
TEST(Routes, AgreeOnTraverses) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto pick = [&](int low, int high) {  // in thousandths
      return low +
             static_cast<double>(random() % (1000u * static_cast<unsigned>(high - low))) / 1000;
    };
    const auto oneOf = [&](unsigned count) { return random() % count == 0; };
    const Units units{static_cast<int>(seed % 3), static_cast<int>(seed / 3 % 2),
                      static_cast<int>(seed / 6 % 2), oneOf(4) ? 1 : 1 + pick(-5, 5) / 1000};

    Points points;
    const int legs = 3 + static_cast<int>(seed % 5);
    const auto scatter = [&](const std::string& name, const Point& from) {
      points[name] = {from.north + pick(-90, 90), from.east + pick(-90, 90),
                      from.elevation + pick(-9, 9)};
    };
    scatter("0", {5000, 3000, 100});
    for (int i = 0; i < legs; ++i) {
      const std::string name = std::to_string(i);
      scatter(std::to_string(i + 1), points[name]);
      for (const char* side : {"a", "b", "c"}) scatter(name + side, points[name]);
    }

    Surveyor field(points, units);
    field.Occupy("0");
    field.Backsight("1", pick(0, 359));
    for (int i = 0; i < legs; ++i) {
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
    ExpectAgreement(points, field.Log(), units.scaleFactor);
    if (HasFailure()) return;
  }
}

// Every way of telling a direction and a height, from stations whose modes differ: a DC file has
// the units of the first.
TEST(Routes, BringEveryUnitToTheFirst) {
  const Points points = {
      {"1", {5000, 5000, 100}},          {"2", {5120.25, 5080.5, 104.75}},
      {"3", {5060.125, 5230, 98.5}},     {"4", {4900.5, 5190.75, 101.25}},
      {"5", {4870, 5040.0625, 99}},      {"N", {5400, 5000, 120}},
      {"a", {5010.5, 4980.25, 99.5}},    {"b", {4985, 5033.3, 102.125}},
      {"c", {5000.001, 5250.7, 100.75}}, {"d", {5119, 4990, 130}},
  };
  const std::string loop = "123451";
  for (int first = 0; first < 36; ++first) {
    SCOPED_TRACE(first);
    const auto units = [first](int i) {  // by the low digit all of them, by the high one no change
      const int unit = first % 6 + i * (first / 6);
      return Units{unit % 3, unit / 3 % 2};
    };
    Surveyor field(points, units(0));
    field.Occupy("1");
    field.Backsight("N", 12.5);
    for (int i = 0; i < 5; ++i) {
      const auto at = static_cast<std::size_t>(i);
      const double height = 1.5 + 0.01 * i;
      field.SetUnits(units(i));
      field.Heights(height, 1.25);
      int form = i;
      for (const char* side : {"a", "b", "c", "d"}) {
        field.Shoot("SS", side, form, form / 2);
        ++form;
      }
      field.Heights(height, 2);
      field.Shoot("TR", loop.substr(at + 1, 1), form, form);
      field.Advance(loop.substr(at + 1, 1));
    }
    field.Heights(1.6, 1.7);
    field.Shoot("SS", "N", 0, 1);
    const Office office(ConvertLog(field.Log(), FT_DC1070));
    EXPECT_EQ(office.shots.size(), 26u);
    for (const auto& [name, point] : office.shots) {
      ExpectNear(points.at(name), point, name, kMillimetre / 10);
    }
  }
}

}  // namespace
}  // namespace zelconvert
