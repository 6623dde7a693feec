#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "TempDir.h"
#include "raw/todc/ReduceRounds.h"

namespace zelconvert {
namespace {

constexpr AngularUnit kDegrees = AngularUnit::DecimalDegrees;
constexpr AngularUnit kGons = AngularUnit::Gon;

TEST(RoundsMeans, AlignAnglesThatLieOnBothSidesOfNorth) {
  struct Case {
    double a, b, alignedA, alignedB;
  };
  const double full = 6.283185307179586;
  for (const auto& [a, b, alignedA, alignedB] :
       {Case{1, 2, 1, 2}, Case{0.1, 6.2, 0.1 + full, 6.2}, Case{6.2, 0.1, 6.2, 0.1 + full},
        Case{-0.1, 0.1, full - 0.1, full + 0.1}, Case{0, kPi, full, kPi},
        Case{full + 1, 2, 1, 2}}) {
    double x = a;
    double y = b;
    AlignAngles(x, y);
    EXPECT_NEAR(x, alignedA, 1e-12) << a << " " << b;
    EXPECT_NEAR(y, alignedB, 1e-12) << a << " " << b;
  }
}

TEST(RoundsMeans, AreThoseOfBothFaces) {
  EXPECT_NEAR(MeanDirection(10, 190.002, kDegrees), 10.001, 1e-9);
  EXPECT_NEAR(MeanDirection(359.999, 180.003, kDegrees), 0.001, 1e-9);
  EXPECT_NEAR(MeanDirection(0.001, 179.997, kDegrees), 359.999, 1e-9);
  EXPECT_NEAR(MeanDirection(100, 300.002, kGons), 100.001, 1e-9);
  EXPECT_EQ(MeanDirection(DC_NULL, 1, kDegrees), DC_NULL);
  EXPECT_EQ(MeanDirection(1, DC_NULL, kDegrees), DC_NULL);
  EXPECT_NEAR(MeanZenith(90.5, 269.51, kDegrees), 90.495, 1e-12);
  EXPECT_NEAR(MeanZenith(100.5, 299.51, kGons), 100.495, 1e-12);
  EXPECT_EQ(MeanZenith(DC_NULL, 269, kDegrees), DC_NULL);
}

TEST(RoundsMeans, OfASet) {
  using Values = std::vector<double>;
  struct Case {
    Values angles;
    AngularUnit unit;
    double mean;
  };
  for (const Case& each :
       {Case{{10, 20}, kDegrees, 15}, Case{{350, 20}, kDegrees, 5},
        Case{{340, 350, 5}, kDegrees, 351 + 2 / 3.0}, Case{{360, 0}, kDegrees, 0},
        Case{{271, 89}, kDegrees, 0}, Case{{100, 300}, kDegrees, 200}, Case{{390, 20}, kGons, 5},
        Case{{350, 100}, kGons, 25}, Case{{300, 100}, kGons, 200}, Case{{}, kDegrees, DC_NULL}}) {
    EXPECT_NEAR(MeanAngle(each.angles, each.unit), each.mean, 1e-9) << each.mean;
  }
  EXPECT_EQ(MeanValue(Values{1, 2, 6}), 3);
  EXPECT_NEAR(StandardError(Values{1, 2, 6}, 3), std::sqrt(14 / 6.0), 1e-12);
  EXPECT_EQ(StandardError(Values{1}, 1), DC_NULL);
  EXPECT_EQ(StandardError(Values{}, 0), DC_NULL);
  EXPECT_NEAR(StandardErrorOfAngles(Values{359, 1}, 0, kDegrees), 1, 1e-9);
  EXPECT_NEAR(StandardErrorOfAngles(Values{399, 1}, 0, kGons), 1, 1e-9);
}

std::string Reduce(const std::vector<RB_RECORD>& backsights,
                   const std::vector<RF_RECORD>& foresights,
                   const std::vector<RD_RECORD>& directions) {
  const TempDir folder;
  CDcFile dc;
  EXPECT_TRUE(dc.OpenForWrite(folder.Path(L"out.dc")));
  RoundsReference reference;
  ReduceRounds(dc, backsights, foresights, directions, reference, kDegrees, {L"S", L"B", L"F"});
  EXPECT_EQ(reference.name, backsights.empty() && directions.empty() ? L"F" : L"B");
  EXPECT_TRUE(dc.Close());
  return folder.Read(L"out.dc");
}

TEST(ReduceRounds, WritesPairsAndMeans) {
  const std::vector<RB_RECORD> backsights = {
      {L"S", L"B", 10, 90.5, 100, 1.5, L"one", true},
      {L"S", L"B", 190.002, 269.51, 100.002, 1.5, L"two", false}};
  const std::vector<RF_RECORD> foresights = {{L"S", L"F", 70.001, 80, 50, 1.6, L"n", true},
                                             {L"S", L"F", 70.003, 80.004, 50.002, 1.7, L"n", true}};
  std::vector<RD_RECORD> directions(1);
  directions[0][DirectionKind::ForesightReverse] = 250.003;
  // Face one is written by its pair alone; a second face closes the pair.
  EXPECT_EQ(Reduce(backsights, foresights, directions),
            ReadBytes("tests/golden-lines/rounds-pairs.dc"));
}

TEST(ReduceRounds, TakesDirectionsAloneAsASet) {
  RD_RECORD set;
  set[DirectionKind::BacksightDirect] = 350;
  set[DirectionKind::BacksightReverse] = 170.002;
  set[DirectionKind::ForesightDirect] = 10;
  set[DirectionKind::ForesightReverse] = 190;
  set[DirectionKind::ZenithDirect] = 89;
  set[DirectionKind::ZenithReverse] = 271;
  set.distances[0] = 25;
  set.distances[1] = 25.002;
  EXPECT_EQ(Reduce({}, {}, {set}), ReadBytes("tests/golden-lines/rounds-directions.dc"));
  RD_RECORD direct;
  direct[DirectionKind::BacksightDirect] = 350;
  EXPECT_NE(Reduce({}, {}, {direct}), "");
}

TEST(ReduceRounds, TakesAForesightAsReferenceWhenThereIsNothingElse) {
  const std::string text = Reduce({}, {{L"S", L"F", 70, 80, 50, 1.6, L"", true}}, {});
  EXPECT_NE(text.find("C4MA               S               F               F     0.000000000"),
            text.npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5);
}

}  // namespace
}  // namespace zelconvert
