// What is worth knowing of a file. The logs are made so that what comes of them can be reckoned in
// the head.
#include <gtest/gtest.h>

#include <string>

#include "ReadFile.h"
#include "TempDir.h"
#include "tools/Checks.h"
#include "tools/Info.h"
#include "tools/PointTable.h"
#include "tools/Wgs84.h"

namespace zelconvert::tools {
namespace {

Survey ReadText(const std::string& text, FileType type = FT_RAW) {
  const TempDir folder;
  StringList messages;
  const auto survey = ReadFile(folder.Write(L"in", text), type, messages);
  EXPECT_TRUE(survey.has_value());
  return survey.value_or(Survey());
}

const std::string kStart = "JB,NMX,DT01-02-2026,TM08:00:00\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\n";

// A square of 100 m: east, north, west, and back south with 99.97 m to the first station, where the
// rod is 2 cm shorter. Every angle to the right of the way back is 90 degrees.
const std::string kSquare =
    kStart +
    "OC,OP1,N 1000.0,E 1000.0,EL10.0,--\nBK,OP1,BP9,BS0.0000,BC0.0000\nLS,HI1.5,HR1.5\n"
    "SS,OP1,FPP,AR45.0000,ZE90.0000,SD50.0,--\nSS,OP1,FPP,AR45.0000,ZE90.0000,SD50.05,--\n"
    "TR,OP1,FPA,AR90.0000,ZE90.0000,SD100.0,--\nTR,OPA,FPB,AR90.0000,ZE90.0000,SD100.0,--\n"
    "TR,OPB,FPC,AR90.0000,ZE90.0000,SD100.0,--\nLS,HI1.5,HR1.48\n"
    "SS,OPC,FP1,AR90.0000,ZE90.0000,SD99.97,--\n";

TEST(Checks, FindsTheMisclosureOfATraverse) {
  const auto traverses = FindTraverses(ReadText(kSquare));
  ASSERT_EQ(traverses.size(), 1u);
  const Traverse& traverse = traverses[0];
  EXPECT_EQ(traverse.from, L"1");
  EXPECT_EQ(traverse.to, L"1");
  EXPECT_EQ(traverse.legs, 4u);
  EXPECT_NEAR(traverse.length, 399.97, 1e-4);
  EXPECT_NEAR(traverse.misclosure.north, 0.03, 1e-4);
  EXPECT_NEAR(traverse.misclosure.east, 0, 1e-4);
  EXPECT_NEAR(traverse.misclosure.elevation, 0.02, 1e-4);
  EXPECT_NEAR(traverse.plan, 0.03, 1e-4);
  EXPECT_EQ(traverse.line, 12);
}

// A look back to the station before is no traverse, nor is a shot to a known point from a known
// one.
TEST(Checks, TakesNoSideshotForATraverse) {
  EXPECT_TRUE(FindTraverses(ReadText(kStart + "SP,PN5,N 1100.0,E 1000.0,EL10.0,--\n"
                                              "OC,OP1,N 1000.0,E 1000.0,EL10.0,--\n"
                                              "BK,OP1,BP9,BS0.0000,BC0.0000\nLS,HI1.5,HR1.5\n"
                                              "SS,OP1,FP5,AR0.0000,ZE90.0000,SD100.1,--\n"
                                              "TR,OP1,FPA,AR90.0000,ZE90.0000,SD100.0,--\n"
                                              "SS,OPA,FP1,AR0.0000,ZE90.0000,SD100.1,--\n"))
                  .empty());
}

TEST(Checks, FindsPointsMeasuredAgain) {
  const auto repeats = FindRepeats(ReadText(kSquare));
  ASSERT_EQ(repeats.size(), 2u);
  EXPECT_EQ(repeats[0].name, L"1");  // stated, and shot at the end
  EXPECT_EQ(repeats[0].positions, 2u);
  EXPECT_NEAR(repeats[0].plan, 0.03, 1e-4);
  EXPECT_NEAR(repeats[0].height, 0.02, 1e-4);
  EXPECT_EQ(repeats[1].name, L"P");
  EXPECT_NEAR(repeats[1].plan, 0.05, 1e-4);
  EXPECT_NEAR(repeats[1].height, 0, 1e-4);
}

// The backsight lies due north, 100 m off and a centimetre higher: told as 10" east of it.
TEST(Checks, ComparesBacksightsWithCoordinates) {
  const Survey survey =
      ReadText(kStart +
               "SP,PN2,N 1100.0,E 1000.0,EL10.01,--\nOC,OP1,N 1000.0,E 1000.0,EL10.0,--\n"
               "BK,OP1,BP2,BS0.0010,BC0.0000\nLS,HI1.5,HR1.5\n"
               "SS,OP1,FP2,AR0.0000,ZE90.0000,SD100.02,--\n");
  const auto checks = CheckBacksights(survey);
  ASSERT_EQ(checks.size(), 1u);
  EXPECT_NEAR(checks[0].azimuth, 10 / 3600. * kPi / 180, 1e-9);
  EXPECT_NEAR(checks[0].distance, 0.02, 1e-4);
  EXPECT_NEAR(checks[0].height, -0.01, 1e-4);
  EXPECT_EQ(checks[0].line, 4);
  const Info info = MakeInfo(survey);
  EXPECT_NEAR(info.backsights[0].azimuth.value_or(0), 10, 0.05);
}

// In a set the circle counts from its own reading to the backsight: 0.5 degrees there, 90.5 to the
// foresight, which lies due east, in both faces.
TEST(Checks, ReducesSetsOfRounds) {
  const Survey survey =
      ReadText(kStart +
               "OC,OP1,N 1000.0,E 1000.0,EL10.0,--\nBK,OP1,BP9,BS0.0000,BC0.0000\n"
               "LS,HI1.5,HR1.5\nRB,OP1,BP9,AR0.3000,ZE90.0000,SD70.0,HR1.5,--\n"
               "RF,OP1,FPF,AR90.3000,ZE90.0000,SD50.0,HR1.5,--\n"
               "RF,OP1,FPF,AR270.3000,ZE270.0000,SD50.0,HR1.5,--\n");
  ASSERT_EQ(survey.shots.size(), 4u);
  for (const std::size_t i : {2u, 3u}) {
    EXPECT_NEAR(survey.shots[i].position.north, 1000, 1e-4);
    EXPECT_NEAR(survey.shots[i].position.east, 1050, 1e-4);
    EXPECT_NEAR(survey.shots[i].azimuth, kPi / 2, 1e-9);
  }
}

TEST(Checks, FindsWhatLooksWrong) {
  const auto position = [](const std::string& name, double north, double east) {
    const auto column = [](const std::string& text) {
      return std::string(16 - text.size(), ' ') + text;
    };
    return "69KI" + column(name) + column(std::to_string(north)) + column(std::to_string(east)) +
           "\n";
  };
  const std::string head = "00NMFX V10-70           01-02-2026 10:05111111\n";
  std::string dc = head;
  for (int i = 0; i < 10; ++i) dc += position(std::to_string(i), 5000 + i, 5000 - i);
  // Half of the points lie within 3.6 m of the middle, (5005, 4996): twenty times that is 72 m.
  EXPECT_TRUE(FindWarnings(ReadText(dc + position("far", 5070, 5000), FT_DC)).empty());
  const auto warnings = FindWarnings(ReadText(
      dc + position("far", 5100, 5000) + position("3", 5001, 5001) + position("3", 5, 5), FT_DC));
  ASSERT_EQ(warnings.size(), 3u);
  EXPECT_EQ(warnings[0].kind, WarningKind::FarPoint);
  EXPECT_EQ(warnings[0].name, L"far");
  EXPECT_EQ(warnings[1].name, L"3");
  EXPECT_EQ(warnings[2].kind, WarningKind::DuplicateName);
  EXPECT_EQ(warnings[2].count, 3u);

  const auto ofLog = FindWarnings(
      ReadText(kStart + "BK,OP7,BP9,BS0.0000,BC0.0000\nSS,OP7,FP8,AR0.0000,ZE90.0000,SD10.0,--\n"
                        "SS,OP7,FP9,AR1.0000,ZE90.0000,SD10.0,--\n"
                        "MO,AD0,UN0,SF1.0,EC0,EO0.0,AU0\n"));
  ASSERT_EQ(ofLog.size(), 2u);
  EXPECT_EQ(ofLog[0].kind, WarningKind::UnknownStation);
  EXPECT_EQ(ofLog[0].name, L"7");
  EXPECT_EQ(ofLog[0].count, 2u);
  EXPECT_EQ(ofLog[1].kind, WarningKind::UnitChange);
  EXPECT_EQ(ofLog[1].line, 6);
}

std::string Fix(const char* latitude, const char* longitude) {
  return std::string("EP,LA") + latitude + ",LN" + longitude +
         ",HT184.0,GM1,CL1,RH0.0081,RV0.0142\n";
}

// Three points in the North Central zone of Texas; the latitude of the second is 123 m north of it,
// that of the third 90.0 km off.
TEST(Checks, FindsCoordinatesOfAnotherZone) {
  std::string why;
  const Survey survey = ReadText(
      kStart + "LM,ME0,CS2,DA1,ZO102,HE0,FI\n" + Fix("32.452227810", "-97.081553870") +
      "GS,PN1,N 2121644.6125,E 727646.8828,EL1.0,--\n" + Fix("32.452645120", "-97.081574640") +
      "GS,PN2,N 2121649.8738,E 727641.4082,EL1.0,--\n" + Fix("32.452227810", "-97.081553870") +
      "GS,PN3,N 2100350.5000,E 640215.8000,EL1.0,--\n");
  if (Wgs84::Make(survey, why) == nullptr) GTEST_SKIP() << why;
  const auto warnings = FindWarnings(survey);
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_EQ(warnings[0].kind, WarningKind::GridApart);
  EXPECT_EQ(warnings[0].name, L"3");
  EXPECT_EQ(warnings[0].count, 2u);
  EXPECT_NEAR(warnings[0].distance, 89996, 300);
}

// A name that holds a line end makes no line.
TEST(Info, ShowsNamesOnOneLine) {
  Info info;
  info.file = "a\nb.job";
  info.job = "c\nd";
  EXPECT_NE(ToText(info).find("a\\nb.job\n"), std::string::npos);
  EXPECT_NE(ToText(info).find("c\\nd\n"), std::string::npos);
}

// The text and the JSON, of the square.
TEST(Info, ShowsTheSameAsTextAndJson) {
  Info info = MakeInfo(ReadText(kSquare));
  info.file = "square.raw";
  info.type = "raw";
  info.reason = "by hand";
  EXPECT_EQ(ToText(info),
            "square.raw\n"
            "  type        raw, by hand\n"
            "  job         X\n"
            "  dates       2026-01-02\n"
            "  units       m, degrees\n"
            "  system      none\n"
            "  points      5\n"
            "  shots       6 from 4 setups\n"
            "  north       1000.000 to 1100.000\n"
            "  east        1000.000 to 1100.000\n"
            "  elevation   10.000 (1) to 10.000 (1)\n"
            "  repeated    1: 2 positions, spread 0.0300 in plan, 0.0200 in height\n"
            "              P: 2 positions, spread 0.0500 in plan, 0.0000 in height\n"
            "  traverse    1 to 1: 4 legs, length 399.970, misclosure 0.0300 (N +0.0300, E "
            "+0.0000), 1 : 13332, height +0.0200\n"
            "  backsight   A to 1: azimuth +0.0\"\n"
            "              B to A: azimuth +0.0\"\n"
            "              C to B: azimuth +0.0\"\n"
            "  records     1  JB  job: name, date\n"
            "              1  MO  mode: units, scale\n"
            "              1  OC  occupied points\n"
            "              1  BK  backsights\n"
            "              2  LS  heights of instrument and rod\n"
            "              3  SS  sideshots\n"
            "              3  TR  traverse shots\n");
  const std::string json = ToLine(ToJson(info));
  for (const char* part :
       {R"("file":"square.raw","type":"raw","reason":"by hand","job":"X")",
        R"("system":null,"scale":1.0,"points":5,"deletedPoints":0,"setups":4,"shots":6)",
        R"("north":[1000.0,1100.0])", R"("lowest":{"elevation":10.0,"point":"1"})",
        R"({"point":"P","positions":2,"plan":0.05,"height":0.0})",
        R"({"from":"1","to":"1","legs":4,"length":399.97,"north":0.03,"east":)",
        R"("plan":0.03,"ratio":13332.0)", R"({"tag":"TR","name":"traverse shots","count":3})"}) {
    EXPECT_NE(json.find(part), json.npos) << part << "\n" << json;
  }
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

TEST(PointTable, QuotesWhatHasTo) {
  Survey survey;
  survey.lengthUnit = LinearUnit::InternationalFoot;
  survey.decimals = 3;
  survey.points.push_back(PointAt(L"A,1", L"say \"\u00e9\"", {304.8, 30.48, DC_NULL}));
  survey.points.push_back(PointAt(L"gps", L"", {}, {0.5, -0.25, 12.5, true}));
  survey.points.push_back(PointAt(L"gone", L"", {1, 2, 3}));
  survey.points.back().isDeleted = true;
  survey.points.push_back(PointAt(L"B", L"", {-0.00001, 0, 0}));
  const PointTable csv = PointsAsCsv(survey);
  EXPECT_EQ(csv.text,
            "name,north,east,elevation,code\r\n"
            "\"A,1\",1000.000,100.000,,\"say \"\"\xC3\xA9\"\"\"\r\n"
            "B,0.000,0.000,0.000,\r\n");
  EXPECT_EQ(csv.written, 2u);
  EXPECT_EQ(csv.leftOut, 1u);
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
