#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "raw/todc/ReduceRounds.h"

namespace zelconvert {
namespace {

constexpr AngularUnit kDegrees = AngularUnit::DecimalDegrees;

using Values = std::vector<double>;

double AlignedAngle(const Values& values, std::size_t which) {
  Values aligned = values;
  AlignAngles(aligned[0], aligned[1]);
  return aligned[which];
}

const std::map<std::wstring, double (*)(const Values&, AngularUnit)> kMeans = {
    {L"MeanDirection", [](const Values& v, auto unit) { return MeanDirection(v[0], v[1], unit); }},
    {L"MeanZenith", [](const Values& v, auto unit) { return MeanZenith(v[0], v[1], unit); }},
    {L"MeanAngle", [](const Values& v, auto unit) { return MeanAngle(v, unit); }},
    {L"MeanValue", [](const Values& v, auto) { return MeanValue(v); }},
    {L"StandardError", [](const Values& v, auto) { return StandardError(v, MeanValue(v)); }},
    {L"StandardErrorOfAngles",
     [](const Values& v, auto unit) { return StandardErrorOfAngles(v, 0, unit); }},
    {L"AlignAngles, first", [](const Values& v, auto) { return AlignedAngle(v, 0); }},
    {L"AlignAngles, second", [](const Values& v, auto) { return AlignedAngle(v, 1); }},
};

double NumberOf(const std::wstring& text) {
  return text == L"null" ? DC_NULL : ToReal(text);
}

TEST(RoundsMeans, AreThoseOfBothFacesAndOfASet) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/rounds-means.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    Values values;
    std::wistringstream numbers(texts.at(2));
    for (std::wstring number; numbers >> number;) values.push_back(NumberOf(number));
    const AngularUnit unit = texts[1] == L"gons" ? AngularUnit::Gon : kDegrees;
    EXPECT_NEAR(kMeans.at(texts[0])(values, unit), NumberOf(texts.at(3)), 1e-9);
  }
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

// Whichever was measured first: the pair begins with face one and has its note.
TEST(ReduceRounds, PairsFacesInEitherOrder) {
  const RB_RECORD one = {L"S", L"B", 10, 90.5, 100, 1.5, L"one", true};
  const RB_RECORD two = {L"S", L"B", 190.002, 269.51, 100.002, 1.5, L"two", false};
  const auto fromPair = [](const std::string& text) { return text.substr(text.find("B7MP")); };
  EXPECT_EQ(fromPair(Reduce({two, one}, {}, {})), fromPair(Reduce({one, two}, {}, {})));
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
