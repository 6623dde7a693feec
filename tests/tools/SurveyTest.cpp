// Files of every type as surveys. Positions are worked out from the records by formulas that stand
// beside them, or by numerical integration, apart from the code under test. What commands show
// of a survey stands in tests/tools/shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "HostLists.h"
#include "ReadFile.h"
#include "TempDir.h"
#include "io/Strings.h"
#include "job/CJobFile.h"

namespace zelconvert::tools {
namespace {

constexpr double kDegree = kPi / 180;

Survey ReadExample(const wchar_t* name, FileType type) {
  StringList messages;
  const auto survey = ReadFile(std::wstring(L"examples/") + name, type, messages);
  EXPECT_TRUE(survey.has_value()) << name;
  return survey.value_or(Survey());
}

const SurveyPoint* Find(const Survey& survey, std::wstring_view name) {
  const auto found = std::find_if(survey.points.begin(), survey.points.end(),
                                  [&](const SurveyPoint& point) { return point.name == name; });
  return found == survey.points.end() ? nullptr : &*found;
}

void ExpectGrid(const GridPosition& position, double north, double east, double elevation) {
  EXPECT_NEAR(position.north, north, 1e-4);
  EXPECT_NEAR(position.east, east, 1e-4);
  EXPECT_NEAR(position.elevation, elevation, 1e-4);
}

std::size_t CountOf(const Survey& survey, std::wstring_view tag) {
  for (const RecordCount& count : survey.counts) {
    if (count.tag == tag) return count.count;
  }
  return 0;
}

// ---- A log

// The log gives the station of the second setup coordinates; the shot to it keeps where it led.
TEST(SurveyOfLog, HasSetupsAndShots) {
  const Survey survey = ReadExample(L"mill-creek.raw", FT_RAW);
  ASSERT_EQ(survey.setups.size(), 3u);
  EXPECT_EQ(survey.setups[1].station, L"3");
  EXPECT_EQ(survey.setups[1].backsight, L"1");
  EXPECT_NEAR(survey.setups[1].instrumentHeight, 1.548, 1e-9);
  EXPECT_NEAR(survey.setups[2].backsightAzimuth, (313 + 28 / 60. + 15 / 3600.) * kDegree, 1e-10);
  EXPECT_NEAR(survey.setups[2].circle, kPi, 1e-10);
  EXPECT_EQ(survey.setups[2].line, 26);
  ExpectGrid(survey.setups[2].position, 4895.21, 5110.538, 100.15);
  EXPECT_EQ(Find(survey, L"3")->source, PointSource::Occupied);
  EXPECT_EQ(Find(survey, L"104")->line, 14);
  const auto traverse = std::find_if(survey.shots.begin(), survey.shots.end(),
                                     [](const Shot& shot) { return shot.target == L"3"; });
  ASSERT_NE(traverse, survey.shots.end());
  ExpectGrid(traverse->position, 4895.2101, 5110.5382, 100.1499);
  EXPECT_NEAR(traverse->azimuth, 133.4708333 * kDegree, 1e-8);
  EXPECT_EQ(traverse->setup, 0u);
  const auto kinds = [&](ShotKind kind) {
    return std::count_if(survey.shots.begin(), survey.shots.end(),
                         [kind](const Shot& shot) { return shot.kind == kind; });
  };
  EXPECT_EQ(kinds(ShotKind::Measured), 12);
  EXPECT_EQ(kinds(ShotKind::StakeOut), 1);
  EXPECT_EQ(kinds(ShotKind::Backsight), 3);
  EXPECT_EQ(survey.firstDate, L"2026-09-14");
  EXPECT_EQ(survey.job, L"MILL CREEK");
  EXPECT_EQ(survey.notes.front().text, L"Gridlark Version: 2.4.1");
  EXPECT_EQ(survey.notes.front().line, 3);
  EXPECT_EQ(CountOf(survey, L"SS"), 11u);
  EXPECT_DOUBLE_EQ(survey.scale, 0.99987);
}

TEST(SurveyOfLog, TakesPointsOfGpsFromTheLog) {
  const Survey survey = ReadExample(L"prairie-rtk.raw", FT_RAW);
  const SurveyPoint* point = Find(survey, L"501");
  ASSERT_NE(point, nullptr);
  ExpectGrid(point->grid, 2121644.6125, 727646.8828, 209.17);
  EXPECT_NEAR(point->geodetic.latitude, (32 + 45 / 60. + 22.27810 / 3600) * kDegree, 1e-12);
  EXPECT_NEAR(point->geodetic.longitude, -(97 + 8 / 60. + 15.53870 / 3600) * kDegree, 1e-12);
  EXPECT_NEAR(point->geodetic.height, 183.97, 1e-9);
  EXPECT_EQ(point->source, PointSource::Gps);
  EXPECT_TRUE(Find(survey, L"504")->isDeleted);
  EXPECT_NEAR(Find(survey, L"BASE1")->geodetic.height, 185.412, 1e-9);
  const auto vector = std::find_if(survey.vectors.begin(), survey.vectors.end(),
                                   [](const GpsVector& each) { return each.rover == L"503"; });
  ASSERT_NE(vector, survey.vectors.end());
  EXPECT_EQ(vector->base, L"BASE1");
  EXPECT_NEAR(vector->deltaY, 11.6812, 1e-9);
  EXPECT_EQ(vector->signature, Signature::Signed);
  EXPECT_EQ(vector->line, 17);
  EXPECT_EQ(survey.epsg, 32138);  // Texas North Central, NAD 83
}

// ---- DC files

// The end of each element by adding up 20,000 steps of changing direction.
TEST(SurveyOfDc, FollowsRoads) {
  const Survey survey = ReadExample(L"ridge-road.dc", FT_DC);
  ASSERT_EQ(survey.roads.size(), 1u);
  const Road& road = survey.roads[0];
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

// ---- Other types

TEST(SurveyOfJob, HasPointsUnitsAndDay) {
  for (const auto& [name, type] :
       {std::pair{L"boundary.job", FT_JOB}, std::pair{L"boundary-old.job", FT_OLD_JOB}}) {
    const Survey survey = ReadExample(name, type);
    ASSERT_FALSE(survey.points.empty());
    EXPECT_EQ(survey.points[0].name, L"1");
    EXPECT_EQ(survey.points[0].code, L"IP SET");
    EXPECT_NEAR(survey.points[0].grid.north, 4191.049648, 2e-6);
    EXPECT_NEAR(survey.points[0].grid.east, 7329.814312, 2e-6);
    EXPECT_EQ(survey.firstDate, L"2026-09-14");
    EXPECT_EQ(CountOf(survey, L"13") + CountOf(survey, L"14"), survey.points.size());
  }
  EXPECT_EQ(ReadExample(L"boundary.job", FT_JOB).lengthUnit, LinearUnit::UsSurveyFoot);
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
  EXPECT_EQ(CountOf(*survey, L"16"), 6u);
}

TEST(SurveyOfList, IsInTheUnitThatIsSaid) {
  StringList messages;
  const std::wstring list = L"tests/golden/job-to-seqcr5/gap/out.cr5";
  const auto plain = ReadFile(list, FT_SEQ_CR5, messages);
  const auto feet = ReadFile(list, FT_CR5, messages, LinearUnit::InternationalFoot);
  ASSERT_TRUE(plain && feet);
  ASSERT_EQ(plain->points.size(), 2u);
  EXPECT_EQ(plain->points[1].name, L"8");
  ExpectGrid(plain->points[0].grid, 51.5, 50.5, 52.5);
  ExpectGrid(feet->points[0].grid, 51.5 * 0.3048, 50.5 * 0.3048, 52.5 * 0.3048);
  EXPECT_FALSE(plain->lengthUnit.has_value());
  EXPECT_EQ(feet->lengthUnit, LinearUnit::InternationalFoot);
  EXPECT_EQ(CountOf(*plain, L"unused"), 2u);
}

TEST(SurveyOfIlj, ReducesFromOccupiedPoints) {
  const Survey survey = ReadExample(L"grenze.ilj", FT_ILJ);
  ExpectGrid(Find(survey, L"G1")->grid, 5326031.25, 539987.5, 498.3);
  // North-east: 38.215 cos(0.0125) sin(45) each; 498.3 + 1.582 + 38.215 sin(0.0125) - 1.5.
  ExpectGrid(Find(survey, L"W101")->grid, 5326058.26997, 540014.51997, 498.85968);
  EXPECT_EQ(Find(survey, L"W101")->line, 22);
  EXPECT_NEAR(Find(survey, L"GPS1")->geodetic.latitude, 0.836123456789, 1e-10);
  EXPECT_EQ(survey.notes[0].text, L"Grenzpunkt 4 zerst\u00f6rt, neu vermarkt");
  EXPECT_EQ(survey.firstDate, L"2026-09-17");
}

// The SDR file of a log puts its points where the log does.
TEST(SurveyOfSdr, AgreesWithItsLog) {
  const Survey log = ReadExample(L"mill-creek-simple.raw", FT_RAW);
  for (const FileType type : {FT_SDR33, FT_SDR2}) {
    const TempDir folder;
    HostLists lists;
    ASSERT_TRUE(
        lists.Convert(FT_RAW, L"examples/mill-creek-simple.raw", type, folder.Path(L"out.sdr")));
    StringList messages;
    const auto sdr = ReadFile(folder.Path(L"out.sdr"), type, messages);
    ASSERT_TRUE(sdr);
    EXPECT_EQ(sdr->points.size(), log.points.size());
    for (const SurveyPoint& point : log.points) {
      SCOPED_TRACE(ToNarrow(point.name));
      const SurveyPoint* found = Find(*sdr, point.name);
      ASSERT_NE(found, nullptr);
      // The file has the scale factor to a thousandth: up to 2 cm at 152 m.
      EXPECT_NEAR(found->grid.north, point.grid.north, 0.02);
      EXPECT_NEAR(found->grid.east, point.grid.east, 0.02);
      EXPECT_NEAR(found->grid.elevation, point.grid.elevation, 0.002);
    }
    EXPECT_EQ(sdr->job, L"MILL CREEK");
  }
}

TEST(SurveyOfPair, HasThePointsOfBothFiles) {
  const TempDir folder;
  const std::wstring job = folder.Write(L"a.job", ReadBytes("examples/boundary.job"));
  folder.Write(L"a.raw",
               "JB,NMX,DT01-02-2026,TM08:00:00\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\n"
               "BK,OP1,BP2,BS0.0000,BC0.0000\nLS,HI1.0,HR1.0\n"
               "SS,OP1,FP999,AR90.0000,ZE90.0000,SD10.0,--\n");
  StringList messages;
  const auto survey = ReadFile(job, FT_JOB_RAW, messages);
  ASSERT_TRUE(survey);
  // The station is one of the job.
  EXPECT_NEAR(Find(*survey, L"999")->grid.north, 4191.04965, 1e-4);
  EXPECT_NEAR(Find(*survey, L"999")->grid.east, 7339.81431, 1e-4);
  EXPECT_EQ(survey->points.size(), 61u);
}

// ---- Failure

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
