// One log by the routes to DC, SDR and JobXML: every point lands in the same place.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Traverse.h"

namespace zelconvert {
namespace {

TEST(Routes, AgreeOnTheExample) {
  const std::string log = ReadBytes("examples/mill-creek-simple.raw");
  const Points known = Office(ConvertLog(log, FT_DC1070)).points;
  EXPECT_EQ(known.size(), 9u);
  ExpectAgreement(known, log, 0.99987, ConvertLog);
}

// In all units, south azimuths, and with scale factors.
TEST(Routes, AgreeOnTraverses) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const Traverse traverse([&random](unsigned count) { return random() % count; });
    ExpectAgreement(traverse.points, traverse.log, traverse.units.scaleFactor, ConvertLog);
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
