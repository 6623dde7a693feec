// What the pairs of files in tests/tools/shown don't show: orders, names and codes as formats hold
// them, and many records of one name.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "cli/FileTypes.h"
#include "io/Strings.h"
#include "tools/DiffReport.h"
#include "tools/DiffSurveys.h"
#include "tools/MatchRecords.h"
#include "tools/NaturalOrder.h"

namespace zelconvert::tools {
namespace {

TEST(DiffTest, NamesComeInNaturalOrder) {
  const std::wstring_view kNames[] = {L"",    L"1",    L"2",    L"02",  L"10", L"A",  L"P9",
                                      L"P10", L"P10A", L"P10a", L"P11", L"a",  L"a1", L"a1b2"};
  const std::wstring_view kLong[] = {L"99999999999999999999", L"100000000000000000000"};
  EXPECT_TRUE(std::is_lt(CompareNaturally(kLong[0], kLong[1])));
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    for (std::size_t j = 0; j < std::size(kNames); ++j) {
      if (kNames[i] == L"02" || kNames[j] == L"02") continue;
      EXPECT_TRUE(CompareNaturally(kNames[i], kNames[j]) == (i <=> j)) << i << " " << j;
    }
  }
  EXPECT_TRUE(std::is_neq(CompareNaturally(L"2", L"02")));
}

SurveyPoint Point(const wchar_t* name, double north = 0, double east = 0) {
  SurveyPoint point;
  point.name = name;
  point.grid = {north, east, 0};
  return point;
}

Survey SurveyOf(FileType type, std::vector<SurveyPoint> points) {
  Survey survey;
  survey.type = type;
  survey.points = std::move(points);
  return survey;
}

// In either order of the files.
TEST(DiffTest, NamesAndCodesMatchAsBothFormatsHoldThem) {
  const auto typeOf = [](const std::wstring& name) { return cli::FindType(ToNarrow(name))->type; };
  for (const CaseFields& texts : ReadCases("tests/golden-lines/diff-names.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    SurveyPoint a = Point(texts[1].c_str()), b = Point(texts[4].c_str());
    a.code = texts[2];
    b.code = texts[5];
    const Survey first = SurveyOf(typeOf(texts[0]), {a}), second = SurveyOf(typeOf(texts[3]), {b});
    EXPECT_EQ(DiffSurveys(first, second).IsEqual(), texts.at(6) == L"same");
    EXPECT_EQ(DiffSurveys(second, first).IsEqual(), texts[6] == L"same");
  }
}

TEST(DiffTest, WhatATypeCannotHoldIsNotMissed) {
  Survey log = SurveyOf(FT_RAW, {Point(L"1"), Point(L"2"), Point(L"3")});
  log.points[1].isDeleted = true;
  log.points[2].source = PointSource::Shot;
  log.points.emplace_back().name = L"4";
  log.points.back().geodetic = {0.5, 0.5, 10};
  log.setups.emplace_back();
  log.shots.emplace_back();
  log.vectors.emplace_back();
  const SurveyDiff diff = DiffSurveys(log, SurveyOf(FT_CR5, {Point(L"1")}));
  EXPECT_TRUE(diff.IsEqual());
  const std::vector<Kind> kLeft = {Kind::Geodetic, Kind::Deletions, Kind::Setups, Kind::Shots,
                                   Kind::Vectors};
  EXPECT_EQ(diff.notCompared, kLeft);
  const SurveyDiff more = DiffSurveys(log, SurveyOf(FT_DC, {Point(L"1")}));
  EXPECT_EQ(SummarizeDiff(more),
            L"points: 3 only in A; setups: 1 only in A; shots: 1 only in A; vectors: 1 only in A");
  // There again in a format that knows no deletions: that is seen.
  EXPECT_EQ(
      SummarizeDiff(DiffSurveys(log, SurveyOf(FT_CR5, {Point(L"1"), Point(L"2")}))),
      L"points: 1 undeleted; not compared: geodetic positions, deleted points, setups, shots, "
      L"vectors");
}

// The k-th of the second half lies 0.4 m from the k-th of the first one and 0.6 m from the next.
TEST(DiffTest, RecordsOfOneNameMatchTheNearest) {
  for (const std::size_t count : {3U, 64U, 65U, 20000U}) {
    std::vector<SurveyPoint> first, second;
    for (std::size_t i = 0; i < count; ++i) {
      first.push_back(Point(L"P", static_cast<double>(i)));
      second.push_back(Point(L"P", static_cast<double>(count - 1 - i) + 0.4));
    }
    second.push_back(Point(L"P", -500));
    const SurveyDiff diff = DiffSurveys(SurveyOf(FT_DC, first), SurveyOf(FT_DC, second));
    const SubjectCounts& points = diff.counts[static_cast<std::size_t>(Subject::Point)];
    EXPECT_EQ(points.changes[static_cast<std::size_t>(Change::OnlySecond)], 1U);
    EXPECT_EQ(points.changes[static_cast<std::size_t>(Change::Moved)], count);
    if (count > 64) continue;  // then in the order of their places
    for (const SurveyDifference& each : diff.differences) {
      if (each.change == Change::OnlySecond) continue;
      EXPECT_NEAR(PlanDistance(each.position), 0.4, 1e-9);
    }
  }
}

TEST(DiffTest, EqualPlacesOfOneNameGoByTheirState) {
  Survey a = SurveyOf(FT_DC, {Point(L"P"), Point(L"P")});
  Survey b = a;
  a.points[0].isDeleted = true;
  b.points[1].isDeleted = true;
  EXPECT_TRUE(DiffSurveys(a, b).IsEqual());
}

TEST(DiffTest, AnglesCountAroundTheCircleAndByTheirDistance) {
  struct Case {
    double a, b, distance;
    bool isSame;
  };
  for (const Case& each : {Case{1e-6, 2 * kPi - 1e-6, 100, true}, Case{0, 9e-6, 100, true},
                           Case{0, 1.1e-5, 100, false}, Case{0, 1.1e-5, 80, true},
                           Case{0, 1.1e-5, DC_NULL, false}, Case{0, 3, 0.001, false}}) {
    Survey a = SurveyOf(FT_RAW, {}), b = a;
    a.shots.emplace_back().azimuth = each.a;
    b.shots.emplace_back().azimuth = each.b;
    a.shots[0].slopeDistance = b.shots[0].slopeDistance = each.distance;
    EXPECT_EQ(DiffSurveys(a, b).IsEqual(), each.isSame) << each.b << " " << each.distance;
  }
}

// Their difference is below what counts as no value.
TEST(DiffTest, PlacesWorldsApartAreNotTheSame) {
  for (const GridPosition& far : {GridPosition{1e9, 0, 0}, {0, 1e9, 0}, {0, 0, 1e9}}) {
    Survey a = SurveyOf(FT_DC, {Point(L"P")}), b = SurveyOf(FT_DC, {Point(L"P")});
    b.points[0].grid = far;
    EXPECT_EQ(SummarizeDiff(DiffSurveys(a, b)), L"points: 1 moved");
    EXPECT_EQ(SummarizeDiff(DiffSurveys(b, a)), L"points: 1 moved");
    // Of two points of that name one is still where it was.
    a.points.insert(a.points.begin(), Point(L"P", 1));
    b.points.push_back(Point(L"P", 1));
    EXPECT_EQ(DiffSurveys(a, b).differences.size(), 1U);
  }
}

TEST(DiffTest, NumbersShowAtTheirTolerance) {
  EXPECT_EQ(DecimalsFor(0.001), 4);
  EXPECT_EQ(DecimalsFor(1), 4);
  EXPECT_EQ(DecimalsFor(0.00005), 6);
  EXPECT_EQ(DecimalsFor(0), 8);
}

TEST(DiffTest, HostileNumbersAndNamesDoNoHarm) {
  const double kInfinity = std::numeric_limits<double>::infinity();
  std::vector<SurveyPoint> points;
  for (int i = 0; i < 200; ++i) {
    points.push_back(Point(L"\n", i % 3 == 0 ? kInfinity : std::numeric_limits<double>::quiet_NaN(),
                           i % 2 == 0 ? 1e300 : 0));
  }
  Survey a = SurveyOf(FT_DC, points), b = SurveyOf(FT_DC, {points.rbegin(), points.rend()});
  const std::wstring text = FormatDiff(DiffSurveys(a, b), {});
  EXPECT_EQ(text.find(L"\n  "), text.npos);
}

// Of two jobs every place counts; other files know more of a road than where a job has it start.
TEST(DiffTest, RoadsOfJobsAreComparedPlaceByPlace) {
  const auto with = [](FileType type, std::vector<RoadPoint> alignment, double elevation,
                       double length = DC_NULL) {
    Survey survey = SurveyOf(type, {});
    survey.roads.push_back({L"R", std::move(alignment), {{0, elevation, 0}}, {}, length, 0});
    return survey;
  };
  const Survey job = with(FT_JOB, {{0, 1, 2, 0}, {50, 51, 2, 0}}, 7);
  const auto count = [&job](const Survey& other) {
    return DiffSurveys(job, other).differences.size();
  };
  EXPECT_EQ(count(job), 0u);
  EXPECT_EQ(count(with(FT_JOB, {{0, 1, 2, 0}, {50, 51, 3, 0}}, 7)), 1u);
  EXPECT_EQ(count(with(FT_JOB, {{0, 1, 2, 0}}, 7)), 1u);
  EXPECT_EQ(count(with(FT_JOB, {{0, 1, 2, 0}, {50, 51, 2, 0}}, 8)), 1u);
  EXPECT_EQ(count(with(FT_DC, {{0, 1, 2, 0}, {50, 51, 3, 0}}, 8, 50)), 0u);
}

}  // namespace
}  // namespace zelconvert::tools
