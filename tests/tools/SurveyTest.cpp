// The roads of surveys, worked out by numerical integration, and what reading leaves alone. The
// rest of a survey is what the commands of tests/tools/shown print.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "ReadFile.h"
#include "TempDir.h"
#include "io/Strings.h"
#include "job/CJobFile.h"

namespace zelconvert::tools {
namespace {

// The end of each element by adding up 20,000 steps of changing direction.
TEST(SurveyOfDc, FollowsRoads) {
  StringList messages;
  const auto survey = ReadFile(L"examples/ridge-road.dc", FT_DC, messages);
  ASSERT_TRUE(survey && survey->roads.size() == 1);
  const Road& road = survey->roads[0];
  EXPECT_EQ(road.name, L"RIDGE ROAD");
  EXPECT_NEAR(road.length, 375.5, 1e-9);
  struct Place {
    double station, north, east;
  };
  for (const Place& place :
       {Place{0, 5326100, 540050}, Place{120, 5326208.3102, 540101.6613},
        Place{160, 5326243.8039, 540120.0672}, Place{245.5, 5326305.3762, 540178.4491},
        Place{285.5, 5326325.6426, 540212.9143}, Place{375.5, 5326368.6559, 540291.9704}}) {
    SCOPED_TRACE(place.station);
    const auto found = std::find_if(
        road.alignment.begin(), road.alignment.end(),
        [&](const RoadPoint& point) { return std::abs(point.station - place.station) < 1e-6; });
    ASSERT_NE(found, road.alignment.end());
    EXPECT_NEAR(found->north, place.north, 1e-4);
    EXPECT_NEAR(found->east, place.east, 1e-4);
  }
  // Neighbours are no further apart than their stations, and hardly nearer: on curves too.
  for (std::size_t i = 1; i < road.alignment.size(); ++i) {
    const RoadPoint &a = road.alignment[i - 1], &b = road.alignment[i];
    const double chord = std::hypot(b.north - a.north, b.east - a.east);
    EXPECT_NEAR(chord, b.station - a.station, 2e-3) << b.station;
  }
  ASSERT_EQ(road.profile.size(), 3u);
  EXPECT_NEAR(road.profile[1].curveLength, 60, 1e-9);
  ASSERT_EQ(road.templates.size(), 1u);
  EXPECT_NEAR(road.templates[0].segments[0].rise, -0.07, 1e-9);
  EXPECT_EQ(road.templates[0].segments[1].code, L"SHLDR");
}

// An element that says the start again tells nothing, and one without a road belongs to none.
TEST(SurveyOfJob, HasThePlacesOfItsRoads) {
  const TempDir folder;
  const std::wstring path = folder.Path(L"roads.job");
  const auto fill = [](auto& record, double station, double north, double east, double elevation) {
    record.value1 = station;
    record.value2 = north;
    record.value3 = east;
    record.value4 = elevation;
  };
  CJobFile job(true);
  ASSERT_TRUE(job.CreateNew(path));
  for (const auto& [name, id] : {std::pair{L"MAIN", 4}, {L"SIDE", 9}}) {
    JOB_RECORD10 start;
    start.name = name;
    start.id = id;
    fill(start, 100, 10 * id, 20, id == 4 ? 5.5 : DC_NULL);
    ASSERT_TRUE(job.WriteRecord10(start));
  }
  JOB_RECORD16 element;
  for (const std::uint32_t id : {4u, 7u, 9u}) {
    element.id = id;
    fill(element, 100, 10 * id, 20, 5.5);
    ASSERT_TRUE(job.WriteRecord16(element));
    fill(element, 150, 40, 70, 6.25);
    ASSERT_TRUE(job.WriteRecord16(element));
  }
  job.Close();
  StringList messages;
  const auto survey = ReadFile(path, FT_JOB, messages);
  ASSERT_TRUE(survey && survey->roads.size() == 2);
  const Road &main = survey->roads[0], &side = survey->roads[1];
  EXPECT_EQ(main.name + L" " + side.name, L"MAIN SIDE");
  ASSERT_EQ(main.alignment.size(), 2u);
  EXPECT_EQ(main.alignment[0].north, 40);
  EXPECT_EQ(main.alignment[1].station, 150);
  EXPECT_EQ(main.alignment[1].east, 70);
  ASSERT_EQ(main.profile.size(), 2u);
  EXPECT_EQ(main.profile[1].elevation, 6.25);
  EXPECT_EQ(side.alignment.size(), 2u);
  EXPECT_EQ(side.profile.size(), 1u);
  EXPECT_TRUE(IsNull(main.length));
}

TEST(ReadSurvey, TouchesNothingAndAsksForAPlaceOnce) {
  const TempDir folder, work;
  const std::wstring job = folder.Write(L"a.job", ReadBytes("examples/boundary.job"));
  const auto before = std::filesystem::last_write_time(ToPath(job));
  int asked = 0;
  const ReadOptions options{
      .makeFolder = [&] { return ++asked, zelconvert::ToText(work.Folder()); }};
  StringList messages;
  EXPECT_TRUE(ReadSurvey(job, FT_JOB, messages, options));
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(ReadSurvey(L"examples/ridge-road.dc", FT_DC, messages, options));
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(std::filesystem::last_write_time(ToPath(job)), before);
  EXPECT_EQ(folder.Read(L"a.job"), ReadBytes("examples/boundary.job"));
}

}  // namespace
}  // namespace zelconvert::tools
