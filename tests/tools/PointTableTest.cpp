// Points against their latitudes, and tables of them. What commands show of files stands in
// tests/tools/shown.
#include <gtest/gtest.h>

#include <string>

#include "ReadFile.h"
#include "TempDir.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "tools/Checks.h"
#include "tools/Info.h"
#include "tools/PointTable.h"
#include "tools/Wgs84.h"

namespace zelconvert::tools {
namespace {

std::string Fix(const char* latitude, const char* longitude) {
  return std::string("EP,LA") + latitude + ",LN" + longitude +
         ",HT184.0,GM1,CL1,RH0.0081,RV0.0142\n";
}

// Three points in the North Central zone of Texas; the latitude of the second is 123 m north of it,
// that of the third 90.0 km off.
TEST(Checks, FindsCoordinatesOfAnotherZone) {
  std::string why;
  const TempDir folder;
  StringList messages;
  const auto survey =
      ReadFile(folder.Write(L"in.raw",
                            "JB,NMX,DT01-02-2026,TM08:00:00\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\n"
                            "LM,ME0,CS2,DA1,ZO102,HE0,FI\n" +
                                Fix("32.452227810", "-97.081553870") +
                                "GS,PN1,N 2121644.6125,E 727646.8828,EL1.0,--\n" +
                                Fix("32.452645120", "-97.081574640") +
                                "GS,PN2,N 2121649.8738,E 727641.4082,EL1.0,--\n" +
                                Fix("32.452227810", "-97.081553870") +
                                "GS,PN3,N 2100350.5000,E 640215.8000,EL1.0,--\n"),
               FT_RAW, messages);
  ASSERT_TRUE(survey);
  if (Wgs84::Make(*survey, why) == nullptr) GTEST_SKIP() << why;
  const auto warnings = FindWarnings(*survey);
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_EQ(warnings[0].kind, WarningKind::GridApart);
  EXPECT_EQ(warnings[0].name, L"3");
  EXPECT_EQ(warnings[0].count, 2u);
  EXPECT_NEAR(warnings[0].distance, 89996, 300);
  const InfoWarning shown = MakeInfo(*survey).warnings.at(0);
  EXPECT_EQ(shown.kind, "grid-apart");
  EXPECT_EQ(
      shown.text,
      "grid and latitude of 2 points are apart, of 3 by 89.8 km: another zone, datum or unit?");
}

// Parallels on both sides of the equator, as far from it, make no cone.
TEST(Wgs84, RefusesWhatTheLibraryRefuses) {
  Survey survey;
  survey.hasSystem = true;
  CGeodeticDllIndices zone;
  zone.Set(0, CGeodeticDllIndices::kStatePlane1983, 1, 102, 0, {}, 0);
  ASSERT_TRUE(FillProjectionRecord(zone, survey.system));
  std::string why;
  if (Wgs84::Make(survey, why) == nullptr) GTEST_SKIP() << why;
  survey.system.parallel1 = -survey.system.parallel2;
  EXPECT_EQ(Wgs84::Make(survey, why), nullptr);
  EXPECT_EQ(why, "the PROJ library can't reckon the coordinate system of the file");
}

// A name that holds a line end makes no line.
TEST(Info, ShowsNamesOnOneLine) {
  Info info;
  info.file = "a\nb.job";
  info.job = "c\nd";
  EXPECT_NE(ToText(info).find("a\\nb.job\n"), std::string::npos);
  EXPECT_NE(ToText(info).find("c\\nd\n"), std::string::npos);
}

SurveyPoint PointAt(const wchar_t* name, const wchar_t* code, const GridPosition& grid,
                    const GeodeticPosition& geodetic = {}) {
  SurveyPoint point;
  point.name = name;
  point.code = code;
  point.grid = grid;
  point.geodetic = geodetic;
  return point;
}

// A plane that is its own map: east is longitude, north is latitude.
class Identity : public Wgs84 {
 public:
  bool Transform(const GridPosition& position, LongitudeLatitude& result) override {
    result = {position.east, position.north};
    return position.HasPlan();
  }
};

TEST(PointTable, MakesFeatures) {
  Survey survey;
  survey.lengthUnit = LinearUnit::Metre;
  survey.decimals = 2;
  survey.epsg = 32632;  // in metres, like the survey
  survey.points.push_back(PointAt(L"A", L"\"x\"", {48.5, 9.25, 100}));
  survey.points.push_back(PointAt(L"gps", L"", {}, {kPi / 4, -kPi / 2, 12.5, true}));
  survey.points.push_back(PointAt(L"gone", L"", {1, 2, 3}));
  survey.points.back().isDeleted = true;
  EXPECT_EQ(PointsAsCsv(survey).leftOut, 1u);
  const std::string start = "{\n  \"type\": \"FeatureCollection\",\n";
  const std::string feature =
      "{\"type\": \"Feature\", \"geometry\": {\"type\": \"Point\", "
      "\"coordinates\": [";
  const std::string about =
      "]}, \"properties\": {\"name\": \"A\", \"code\": \"\\\"x\\\"\", "
      "\"north\": 48.50, \"east\": 9.25, \"elevation\": 100.00}}";
  EXPECT_EQ(PointsAsGeoJson(survey, nullptr).text,
            start +
                "  \"crs\": {\"type\": \"name\", \"properties\": {\"name\": "
                "\"urn:ogc:def:crs:EPSG::32632\"}},\n  \"features\": [\n    " +
                feature + "9.25, 48.50" + about + "\n  ]\n}\n");
  Identity identity;
  EXPECT_EQ(PointsAsGeoJson(survey, &identity).text,
            start + "  \"features\": [\n    " + feature + "9.250000000, 48.500000000" + about +
                ",\n    " + feature +
                "-90.000000000, 45.000000000, 12.5000]}, \"properties\": {\"name\": \"gps\", "
                "\"code\": \"\", \"north\": null, \"east\": null, \"elevation\": null}}\n  ]\n}\n");
}

}  // namespace
}  // namespace zelconvert::tools
