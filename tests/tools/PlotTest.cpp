// Plans of surveys whose sheet coordinates were worked out by hand, beside each case. Others stand
// in tests/tools/shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "CaseFile.h"
#include "io/Numbers.h"
#include "tools/Plot.h"
#include "tools/PlotGeometry.h"
#include "tools/PlotLabels.h"
#include "tools/PlotPanel.h"
#include "tools/PlotUnits.h"

namespace zelconvert::tools {
namespace {

using namespace plot;

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

bool Has(const Plot& plot, std::string_view part) {
  return plot.svg.find(part) != plot.svg.npos;
}

SurveyPoint PointAt(std::wstring name, double north, double east,
                    PointSource source = PointSource::Stated) {
  SurveyPoint point;
  point.name = std::move(name);
  point.grid = {north, east, 12.5};
  point.source = source;
  return point;
}

// 100 by 150 m have room at 1 : 600 on the 244 by 284 mm of a map in landscape (1 : 750 in
// portrait). One metre is 166.67 units; N 1050, E 2075 is the middle of the map, x 17200, y 14500.
Survey Triangle() {
  Survey survey;
  survey.lengthUnit = LinearUnit::Metre;
  survey.points = {PointAt(L"A", 1000, 2000), PointAt(L"B", 1100, 2000, PointSource::Shot),
                   PointAt(L"C", 1000, 2150, PointSource::Gps)};
  return survey;
}

TEST(PlotGeometry, TakesRoundScales) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/plot-scales.txt")) {
    const double scale = RoundScale(ToReal(texts[0]), ToInteger(texts[1]), texts[2] == L"feet");
    EXPECT_DOUBLE_EQ(scale, ToReal(texts.at(3))) << texts[0];
  }
}

TEST(PlotGeometry, FitsTheBulk) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/plot-bulk.txt")) {
    std::vector<Place> places;
    std::wistringstream easts(texts[0]);
    for (std::wstring east; easts >> east;) places.push_back({500, ToReal(east)});
    EXPECT_EQ(FitBulk(places).Width(), ToReal(texts.at(1))) << texts[0];
    EXPECT_EQ(FitBulk(places).Height(), 0);
  }
  EXPECT_TRUE(FitBulk({}).IsEmpty());
}

TEST(PlotGeometry, CutsLinesAtTheEdges) {
  constexpr SheetRect kRect = {0, 0, 100, 50};
  struct Case {
    SheetPlace from, to;
    bool isSeen;
    SheetPlace cutFrom, cutTo;
  };
  for (const auto& [from, to, isSeen, cutFrom, cutTo] : {
           Case{{10, 10}, {20, 20}, true, {10, 10}, {20, 20}},
           Case{{-100, 25}, {200, 25}, true, {0, 25}, {100, 25}},
           Case{{50, 25}, {50, 1e9}, true, {50, 25}, {50, 50}},
           Case{{-50, 0}, {50, 100}, true, {0, 50}, {0, 50}},  // touches a corner
           Case{{-60, 0}, {50, 110}, false, {}, {}},
           Case{{-10, 60}, {200, 60}, false, {}, {}},
       }) {
    SheetPlace a = from, b = to;
    ASSERT_EQ(ClipLine(kRect, a, b), isSeen) << from.x << " " << from.y;
    if (!isSeen) continue;
    EXPECT_NEAR(std::hypot(a.x - cutFrom.x, a.y - cutFrom.y), 0, 1e-9) << from.x << " " << from.y;
    EXPECT_NEAR(std::hypot(b.x - cutTo.x, b.y - cutTo.y), 0, 1e-9) << from.x << " " << from.y;
  }
}

TEST(PlotUnits, SpellsNumbersAsPlansDo) {
  const DisplayUnit metre = DisplayUnitOf(LinearUnit::Metre);
  const DisplayUnit foot = DisplayUnitOf(LinearUnit::UsSurveyFoot);
  const DisplayUnit none = DisplayUnitOf(std::nullopt);
  for (const auto& [text, expected] : std::vector<std::pair<std::wstring, std::wstring>>{
           {FormatStation(1250.5, 1, 1000), L"1+250.5"},
           {FormatStation(1250, 0, 100), L"12+50"},
           {FormatStation(999.999, 2, 1000), L"1+000.00"},
           {FormatStation(-12.3, 1, 1000), L"-0+012.3"},
           {FormatSeconds(173250, 0, L"NS"), L"48\u00b007'30\"N"},
           {FormatSeconds(-59.96, 1, L"EW"), L"0\u00b001'00.0\"W"},
           {FormatScale(600, metre), L"1 : 600"},
           {FormatScale(600, foot), L"1 in = 50 ft (1 : 600)"},
           {FormatScale(12.5, none), L"1 mm = 0.0125"},
           {FormatLength(20000, 1, metre), L"20 km"},
           {FormatLength(0.5, 1, foot), L"0.5 ft"},
           {FormatLength(200, 0, none), L"200"},
       }) {
    EXPECT_EQ(text, expected);
  }
}

TEST(PlotLabels, StandWhereNothingIs) {
  LabelPlacer labels({0, 0, 10000, 10000});
  std::vector<SheetRect> boxes;
  labels.Take({4920, 4920, 5080, 5080});
  for (int i = 0; i < 4; ++i) {  // at its corners; those there cover the other places
    const auto place = labels.PlaceBeside({5000, 5000}, 80, 400, 200);
    ASSERT_TRUE(place) << i;
    const int left = place->at.x - (place->anchor == Anchor::End      ? 400
                                    : place->anchor == Anchor::Middle ? 200
                                                                      : 0);
    const SheetRect box = {left, place->at.y - 150, left + 400, place->at.y + 40};
    EXPECT_TRUE(box.right < 4920 || box.left > 5080 || box.bottom < 4920 || box.top > 5080) << i;
    for (const SheetRect& other : boxes) {
      EXPECT_TRUE(box.right < other.left || box.left > other.right || box.bottom < other.top ||
                  box.top > other.bottom)
          << i;
    }
    boxes.push_back(box);
  }
  EXPECT_EQ(boxes.front().left, 5105);
  // An important one may cover a point, but no other label.
  EXPECT_FALSE(labels.PlaceBeside({5000, 5000}, 80, 400, 200));
  EXPECT_FALSE(labels.PlaceImportant({5000, 5000}, 80, 400, 200));
  labels.TakeLoosely({1000, 1000, 3000, 3000});
  EXPECT_FALSE(labels.PlaceBeside({2000, 2000}, 80, 400, 200));
  EXPECT_TRUE(labels.PlaceImportant({2000, 2000}, 80, 400, 200));
  // Not over the edge: at the lower right corner a text has room on the upper left alone.
  const auto corner = labels.PlaceBeside({9990, 9990}, 80, 400, 200);
  ASSERT_TRUE(corner);
  EXPECT_EQ(corner->anchor, Anchor::End);
  EXPECT_LT(corner->at.y, 9990);
  EXPECT_FALSE(labels.PlaceBeside({9990, 9990}, 80, 400, 200));
}

TEST(PlotPanel, BreaksLinesAtBlanks) {
  const std::vector<std::wstring> lines = WrapText(L"one two three fourteenletters", 700, 100);
  EXPECT_EQ(lines, (std::vector<std::wstring>{L"one two", L"three", L"fourteenlett", L"ers"}));
  EXPECT_EQ(WrapText(L"", 700, 100).size(), 0u);
}

TEST(Plot, DrawsLinesOfEachKind) {
  Survey survey = Triangle();
  survey.setups = {{L"A", {1000, 2000}, 1.5, L"C"}};
  Shot shot;
  shot.setup = 0;
  shot.station = L"A";
  shot.target = L"B";
  shot.position = {1100, 2000};
  Shot back = shot;
  back.target = L"C";
  back.kind = ShotKind::Backsight;
  back.position = {};
  Shot lost = back;
  lost.target = L"unknown";
  Shot deleted = shot;
  deleted.isDeleted = true;
  Shot stake = shot;
  stake.kind = ShotKind::StakeOut;
  stake.position = {1050, 2075};
  survey.shots = {shot, back, lost, deleted, stake};
  GpsVector vector;
  vector.base = L"B";
  vector.rover = L"C";
  survey.vectors = {vector};
  const Plot plot = DrawPlot(survey, L"t.raw");
  EXPECT_TRUE(Has(plot, "\"sight\" d=\"M4700 22833L4700 6167M4700 22833L29700 22833\""));
  EXPECT_TRUE(Has(plot, "class=\"stake\" d=\"M17200 14500h0\""));
  EXPECT_TRUE(Has(plot, "class=\"vector\" d=\"M4700 6167L29700 22833\""));
  EXPECT_EQ(plot.summary.sights, 3u);
  EXPECT_EQ(plot.summary.vectors, 1u);
  EXPECT_EQ(plot.summary.unplacedLines, 1u);
  // Where an instrument, a backsight or a base stood.
  EXPECT_EQ(Count(plot.svg, "<use class=\"control\""), 4u);  // and the legend's
}

TEST(Plot, DrawsRoadsWithTheirStations) {
  Survey survey = Triangle();
  Road road;
  road.name = L"ROAD 1";
  road.alignment = {{100, 1050, 2000, kPi / 2}, {250, 1050, 2150, kPi / 2}};
  Road start;
  start.alignment = {{0, 1000, 2000, 0}};
  Road mad = road;  // nobody walks a million kilometres in 150 m
  mad.name = L"ROAD 2";
  mad.alignment[1].station = 1e9;
  survey.roads = {road, start, mad};
  const Plot plot = DrawPlot(survey, L"t.dc");
  EXPECT_EQ(plot.summary.roads, 2u);
  EXPECT_EQ(plot.summary.unplacedRoads, 1u);
  EXPECT_TRUE(Has(plot, "class=\"road\" d=\"M4700 14500L29700 14500\""));
  // Every 10 m, 16.7 mm: 0+150 is 50 m from the start, 8333 units.
  EXPECT_TRUE(Has(plot, "class=\"station\" d=\"M13033 14630L13033 14370\""));
  EXPECT_TRUE(Has(plot, ">0+150</text>"));
  EXPECT_TRUE(Has(plot, ">0+100.00</text>"));
  EXPECT_TRUE(Has(plot, ">0+250.00</text>"));
  EXPECT_FALSE(Has(plot, ">0+100</text>"));
  EXPECT_EQ(Count(plot.svg, "class=\"station\""), 16u);
}

TEST(Plot, HoldsAnyName) {
  Survey survey = Triangle();
  survey.points[0].name = std::wstring(L"<&>\"\x01", 5) + wchar_t{0xD800};
  survey.points[1].name = std::wstring(100000, L'W');
  survey.job = L"J</title>";
  const Plot plot = DrawPlot(survey, L"t.dc");
  EXPECT_TRUE(Has(plot, "\">&lt;&amp;&gt;&quot;\xEF\xBF\xBD\xEF\xBF\xBD</text>"));
  EXPECT_TRUE(Has(plot, std::string(39, 'W') + "\xE2\x80\xA6</text>"));
  EXPECT_TRUE(Has(plot, "<title>Plan of J&lt;/title&gt;</title>"));
}

TEST(Plot, GrowsWithThePointsAndNoFaster) {
  Survey survey;
  for (int i = 0; i < 100000; ++i) {
    survey.points.push_back(PointAt(std::to_wstring(i), std::sqrt(i) * std::cos(i * 2.4),
                                    std::sqrt(i) * std::sin(i * 2.4), PointSource::Shot));
  }
  const Plot plot = DrawPlot(survey, L"t.dc");
  EXPECT_TRUE(plot.summary.isInDots);
  EXPECT_EQ(plot.summary.points, 100000u);
  EXPECT_EQ(Count(plot.svg, "h0"), 100000u + 2);  // and the legend's two
  EXPECT_LT(plot.svg.size(), 100000u * 16);
  EXPECT_GT(plot.summary.names, 20u);
  EXPECT_LT(plot.summary.names, 5000u);
}

}  // namespace
}  // namespace zelconvert::tools
