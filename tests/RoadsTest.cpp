// Roads of DC files into road files. tests/roads/ holds whole files, worked out by
// scripts/golden/make_road_cases.py; here stand the rules that refuse a road, hostile files, and the
// forms of single values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "TempDir.h"
#include "dc/CDcFile.h"
#include "io/Numbers.h"
#include "roads/CRd5File.h"
#include "roads/CTp5File.h"
#include "roads/ConvertDcRoads.h"
#include "roads/RoadGeometry.h"
#include "roads/RoadRecords.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::wstring, std::string>;  // contents by name
using Lines = std::vector<std::string>;

Files FilesIn(const fs::path& folder) {
  Files files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.is_regular_file()) files[ToText(entry.path().filename())] = ReadBytes(entry.path());
  }
  return files;
}

std::vector<std::wstring> NamesIn(const Files& files) {
  std::vector<std::wstring> names;
  for (const auto& [name, contents] : files) names.push_back(name);
  return names;
}

// A DC file beside an empty output folder, which is all that a run may touch.
class Sandbox {
 public:
  explicit Sandbox(const std::string& dc) {
    fs::create_directory(Out());
    Restart(dc);
  }

  void Restart(const std::string& dc) {
    m_dc = dc;
    fs::remove(m_dir.Folder() / "in.dc");  // making one is faster than emptying it
    m_dir.Write(L"in.dc", dc);
    for (const auto& [name, contents] : Made()) fs::remove(Out() / ToPath(name));
    messages.clear();
    roads.clear();
  }

  bool Convert() {
    CDcFile file;
    EXPECT_TRUE(file.OpenForRead(m_dir.Path(L"in.dc")));
    const bool ok = ConvertDcRoads(file, messages, roads, m_dir.Path(L"out"));
    ExpectUnharmed();
    return ok;
  }
  void ExpectUnharmed() const {
    EXPECT_EQ(m_dir.Read(L"in.dc"), m_dc);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_dir.Folder()), {}), 2);
  }
  fs::path Out() const { return m_dir.Folder() / "out"; }
  Files Made() const { return FilesIn(Out()); }
  std::vector<std::wstring> RoadNames() const {
    std::vector<std::wstring> names;
    for (const ROAD_HEADER& road : roads) names.push_back(road.name);
    return names;
  }

  StringList messages;
  std::vector<ROAD_HEADER> roads;

 private:
  TempDir m_dir;
  std::string m_dc;
};

// A DC line: fields of one character are columns of one, all others of 16.
std::string Line(const std::string& head, std::initializer_list<std::string> fields) {
  std::string line = head;
  for (const std::string& field : fields) {
    if (field.size() != 1 && field.size() < 16) line.append(16 - field.size(), ' ');
    line += field;
  }
  return line;
}

std::string Join(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::string Road(const std::string& name) {
  return "28KI" + name;
}

const std::string kHeader = "00NMFX V10-70           09-16-2026 10:05111111";
const std::string kHal = Line("84KI", {"100.", "0.", "1000.", "2000.", "50."});
const std::string kStraight = Line("31KI", {"0.", "200."});
const std::string kVal = Line("34KI", {"100.", "50."});
const std::string kPoint = Line("37KI", {"300.", "52."});
const std::string kTemplate = Line("39KI", {"EVEN"});
const std::string kSegment = Line("46KI", {"3", "3.5", "-2.", "", "", "", "1", "1", "EP"});
const std::string kOuter = Line("46KI", {"3", "1.5", "-4.", "", "", "", "0", "0", "SH"});
const std::string kHinge = Line("B5KI", {"3.5", "-0.07", "1", "1", "EP"});
const std::string kSlope = Line("97KI", {"1", "50.", "1", "50.", "", "TOE"});
const std::string kApply = Line("B9KI", {"100.", "3", "EVEN", "3", "EVEN"});
const std::string kSuper = Line("44KI", {"150.", "1", "-2.", "1", "-2.", "", "", "2"});

// The good road, with or without a part.
const Lines kPlan = {kHal, kStraight};
const Lines kProfile = {kVal, kPoint};
const Lines kCross = {kTemplate, kSegment, kSlope, kApply, kSuper};

Lines operator+(Lines lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

const Lines kGood = kPlan + kProfile + kCross;

StringList Refusal(const std::wstring& text, const std::wstring& road) {
  return {text, L"Road " + road + L" in the DC file could not be converted to RD5 files."};
}

TEST(Roads, WholeFiles) {
  int cases = 0;
  for (const auto& entry : fs::directory_iterator("tests/roads")) {
    if (!entry.is_directory()) continue;
    SCOPED_TRACE(entry.path().filename().string());
    ++cases;
    Files expected = FilesIn(entry.path());
    Sandbox sandbox(expected[L"in.dc"]);
    expected.erase(L"in.dc");
    EXPECT_TRUE(sandbox.Convert());
    EXPECT_EQ(sandbox.messages, StringList());
    EXPECT_EQ(sandbox.Made(), expected);
  }
  EXPECT_GT(cases, 0);
}

// Each refused road stands between two good ones, which are converted all the same.
TEST(Roads, RefusedRoads) {
  const std::wstring noVertical = L"This road does not have a vertical alignment.";
  const std::wstring noTemplate = L"This road does not have a template.";
  const std::wstring unlikeStarts =
      L"The start station of the horizontal alignment is not as same as that of the vertical "
      L"alignment.";
  const std::wstring circular =
      L"Vertical circular curve records in DC file cannot be converted to ZEL RD5 file.";
  const std::wstring asymmetric =
      L"Vertical Asymmetric Parabolic records in DC file cannot be converted to ZEL RD5 file.";
  const std::wstring noSlope =
      L"Template that does not have a side slope record is not supported in the ZEL road "
      L"definition.";
  const std::wstring onlySlope = L"Templates that contain only a side slope element are not valid.";
  const std::wstring noGrade =
      L"The width of the first segment of a template cannot be zero in RD5 file.";
  const std::wstring noOffset = L"The first segment width must be greater than zero in RD5 file.";
  const std::wstring others =
      L"Applying super-elevation or widening to the segments other than the first one is not "
      L"supported in RD5 file.";
  const std::wstring ditch = L"Cut-ditches are not supported in the ZEL road definition.";
  const std::wstring nullSlope =
      L"Templates with a null side slope are not supported in the ZEL road definition.";
  const std::wstring interpolate =
      L"Template type Interpolate or None is not compatiable with the ZEL road definition.";
  const std::wstring pivot =
      L"The pivot position cannot be left or right when widening and superelevation are applied.";

  const std::string flatSegment = Line("46KI", {"1", "3.5", "0.", "-0.1", "", "", "0", "0", "EP"});
  const std::string zeroWidth = Line("46KI", {"3", "0.", "-2.", "", "", "", "0", "0", "EP"});
  const std::string superOuter = Line("46KI", {"3", "1.5", "-4.", "", "", "", "1", "0", "SH"});
  const std::string widerOuter = Line("46KI", {"3", "1.5", "-4.", "", "", "", "0", "1", "SH"});
  const std::string zeroHinge = Line("B5KI", {"0.", "-0.1", "0", "0", "EP"});
  const std::string superHinge = Line("B5KI", {"5.", "-0.1", "1", "0", "EP"});
  const std::string widerHinge = Line("B5KI", {"5.", "-0.1", "0", "1", "EP"});
  const std::string ditched = Line("97KI", {"5", "50.", "1", "50.", "-0.5", "TOE"});
  const std::string nullCut = Line("97KI", {"5", "50.", "1", "50.", "", "TOE"});
  const std::string nullFill = Line("97KI", {"1", "50.", "5", "50.", "", "TOE"});
  const auto apply = [](const char* left, const char* right) {
    return Line("B9KI", {"100.", left, "EVEN", right, "EVEN"});
  };
  const auto pivotAt = [](const char* digit) {
    return Line("44KI", {"150.", "1", "-2.", "1", "-2.", "", "", digit});
  };
  const Lines bare = {kTemplate, kSegment};

  struct Case {
    std::wstring text;  // empty: the road is good
    Lines lines;
  };
  const std::vector<Case> cases = {
      {noVertical, {}},
      {noVertical, kPlan + kCross},
      {noVertical, kPlan},  // before the template is missed
      {noTemplate, kPlan + kProfile},
      {noTemplate, kPlan + kProfile + Lines{kSegment, kSlope}},
      {unlikeStarts, kPlan + Lines{Line("34KI", {"100.0000000001", "50."})} + kCross},
      {unlikeStarts, Lines{kVal, kHal, kStraight, kPoint} + kCross},  // 84 too late: held against 0
      {unlikeStarts,
       Lines{kHal, Line("84KI", {"0."}), kStraight} + kProfile + kCross},  // the later
      {L"", Lines{kHal, "84DL", kStraight} + kProfile + kCross},
      {circular, kPlan + Lines{"35KI"} + kProfile + kCross},
      {asymmetric, Lines{"b8KI"} + kPlan},
      {circular, Lines{"35KI", "B8KI"}},  // only the first rule has a say
      {noSlope, kPlan + kProfile + bare},
      {noSlope, kPlan + kProfile + bare + kCross},  // at the next template
      {noSlope, kPlan + kProfile + Lines{kTemplate}},
      {noSlope, kPlan + kProfile + Lines{kSlope} + bare},  // the slope before the first counts not
      {onlySlope, kPlan + kProfile + Lines{kTemplate, kSlope}},
      {onlySlope, kPlan + kProfile + Lines{kTemplate, kSlope} + kCross},
      {L"", kPlan + kProfile + Lines{kTemplate, kHinge, kSlope}},
      {noGrade, kPlan + kProfile + Lines{kTemplate, flatSegment}},
      {noGrade, kPlan + kProfile + Lines{kTemplate, "46KI3             3.5"}},  // cut short
      {noGrade, kPlan + kProfile + Lines{flatSegment} + kCross},  // before any template
      {L"", kPlan + kProfile + Lines{kTemplate, zeroWidth, flatSegment, kSlope}},
      {others, kPlan + kProfile + bare + Lines{superOuter}},
      {others, kPlan + kProfile + bare + Lines{widerOuter}},
      {L"", kPlan + kProfile + Lines{kTemplate, superOuter, kOuter, kSlope}},
      {noOffset, kPlan + kProfile + Lines{kTemplate, zeroHinge}},
      {others, kPlan + kProfile + Lines{kTemplate, kHinge, superHinge}},
      {others, kPlan + kProfile + Lines{kTemplate, kHinge, widerHinge}},
      {L"", kPlan + kProfile + Lines{kTemplate, kHinge, zeroHinge, kSlope}},
      {L"", kPlan + kProfile + Lines{kTemplate, kSegment, superHinge, kSlope}},  // counted apart
      {ditch, kPlan + kProfile + bare + Lines{ditched}},
      {nullSlope, kPlan + kProfile + bare + Lines{nullCut}},
      {nullSlope, kPlan + kProfile + bare + Lines{nullFill}},
      {interpolate, kGood + Lines{apply("1", "3")}},
      {interpolate, kGood + Lines{apply("3", "1")}},
      {interpolate, kGood + Lines{apply("2", "0")}},
      {interpolate, kGood + Lines{apply("4", "2")}},
      {L"", kGood + Lines{apply("0", "x")}},
      {pivot, kGood + Lines{pivotAt("1")}},
      {pivot, kGood + Lines{pivotAt("3")}},
      {pivot, kGood + Lines{"44KI150."}},  // none
  };
  const std::string page = ReadBytes("docs/formats/roads.md");
  for (const Case& each : cases) {
    SCOPED_TRACE("case " + std::to_string(&each - cases.data()));
    EXPECT_NE(page.find(std::string(each.text.begin(), each.text.end())), page.npos);
    Lines lines = Lines{kHeader, Road("FIRST")} + kGood;
    lines = lines + Lines{Road("  the one  ")} + each.lines + Lines{Road("AFTER")} + kGood;
    Sandbox sandbox(Join(lines));
    EXPECT_TRUE(sandbox.Convert());
    std::vector<std::wstring> roads = {L"FIRST", L"AFTER"};
    std::vector<std::wstring> made = {L"AFTER.RD5", L"EVEN.tp5", L"FIRST.RD5"};
    if (each.text.empty()) {
      roads.insert(roads.begin() + 1, L"the one");
      made.push_back(L"the_one.RD5");
      EXPECT_EQ(sandbox.messages, StringList());
    } else {
      EXPECT_EQ(sandbox.messages, Refusal(each.text, L"the one"));
    }
    EXPECT_EQ(sandbox.RoadNames(), roads);
    EXPECT_EQ(NamesIn(sandbox.Made()), made);
  }
}

// Roads are known by their names: one bad road takes its namesakes with it, and each bad one is
// told.
TEST(Roads, RefusedNamesakes) {
  Sandbox sandbox(Join(Lines{kHeader, Road("A")} + kGood + Lines{Road("B")} + Lines{Road(" A")} +
                       kPlan + Lines{Road("A")} + kPlan + kProfile));
  EXPECT_TRUE(sandbox.Convert());
  EXPECT_EQ(sandbox.messages,
            (StringList{L"This road does not have a vertical alignment.",
                        L"Road B in the DC file could not be converted to RD5 files.",
                        L"This road does not have a vertical alignment.",
                        L"Road A in the DC file could not be converted to RD5 files.",
                        L"This road does not have a template.",
                        L"Road A in the DC file could not be converted to RD5 files."}));
  EXPECT_TRUE(sandbox.roads.empty());
  EXPECT_TRUE(sandbox.Made().empty());
}

// A failure on the way takes the files of all roads with it.
TEST(Roads, FailedRuns) {
  const std::wstring outside = L"Superelevation/Widening is outside the extents of the alignment.";
  const std::wstring left =
      L"Templates on the left side of the road have unequal number of segments.";
  const std::wstring right =
      L"Templates on the right side of the road have unequal number of segments.";
  const std::wstring tooShort = L"The vertical alignment is shorter than the horizontal alignment.";

  const auto super = [](const char* station) {
    return Line("44KI", {station, "1", "-2.", "1", "-2.", "", "", "2"});
  };
  const Lines odd = {Line("39KI", {"ODD"}), kSegment, kOuter, kSlope};
  const auto apply = [](const char* leftName, const char* rightName) {
    return Line("B9KI", {"200.", "3", leftName, "3", rightName});
  };
  const auto profileTo = [](const char* station) {
    return Lines{kVal, Line("37KI", {station, "52."})};
  };

  struct Case {
    std::wstring text;  // empty: the run succeeds
    Lines lines;
  };
  const std::vector<Case> cases = {
      {outside, kGood + Lines{super("98.9")}},
      {outside, kGood + Lines{super("300.002")}},
      {L"", kGood + Lines{super("99.9995"), super("300.0005")}},
      // Held against what has been reached so far: behind record 34 that is its station.
      {outside, Lines{kHal, super("150.")} + kGood},
      {outside, kPlan + Lines{kVal, super("150."), kPoint} + kCross},
      {left, kGood + odd + Lines{apply("ODD", "EVEN")}},
      {right, kGood + odd + Lines{apply("EVEN", "ODD")}},
      {left, kGood + odd + Lines{apply("ODD", "ODD")}},
      {L"", kGood + odd + Lines{apply("GONE", "")}},
      {L"", kGood + odd},
      {tooShort, kPlan + profileTo("299.99") + kCross},
      {L"", kPlan + profileTo("299.9995") + kCross},
      {left, kPlan + profileTo("299.99") + kCross + odd + Lines{apply("ODD", "ODD")}},
      // What follows record 34 is no part of the horizontal alignment.
      {L"", kGood + Lines{kStraight}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE("case " + std::to_string(&each - cases.data()));
    Sandbox sandbox(Join(Lines{kHeader, Road("FIRST")} + kGood + Lines{Road("the one")} +
                         each.lines + Lines{Road("AFTER")} + kGood));
    EXPECT_EQ(sandbox.Convert(), each.text.empty());
    if (each.text.empty()) {
      EXPECT_EQ(sandbox.messages, StringList());
      EXPECT_EQ(sandbox.roads.size(), 3u);
    } else {
      EXPECT_EQ(sandbox.messages, Refusal(each.text, L"the one"));
      EXPECT_EQ(sandbox.RoadNames(), (std::vector<std::wstring>{L"FIRST", L"the one"}));
      EXPECT_TRUE(sandbox.Made().empty());
    }
  }
}

TEST(Roads, FilesThatCannotBeWritten) {
  for (const char* taken : {"ROAD.RD5", "EVEN.tp5"}) {
    SCOPED_TRACE(taken);
    Sandbox sandbox(Join(Lines{kHeader, Road("FIRST")} + kGood + Lines{Road("ROAD")} +
                         Lines{kHal, kStraight, kVal, kPoint, kTemplate, kSegment, kSlope}));
    fs::create_directory(sandbox.Out() / taken);
    EXPECT_FALSE(sandbox.Convert());
    const std::wstring road = taken[0] == 'R' ? L"ROAD" : L"FIRST";
    EXPECT_EQ(
        sandbox.messages,
        StringList{L"Road " + road + L" in the DC file could not be converted to RD5 files."});
    EXPECT_TRUE(sandbox.Made().empty());
  }
}

// Windows keeps some names for devices, in every folder: no file can bear them, and none is lost.
TEST(Roads, NamesOfDevices) {
  for (const char* name : {"NUL", "AUX", "CON", "COM1"}) {
    SCOPED_TRACE(name);
    Sandbox sandbox(Join(Lines{kHeader, Road(name)} + kGood));
    const bool made = sandbox.Convert();
    EXPECT_EQ(sandbox.messages.size(), made ? 0u : 1u);
    EXPECT_EQ(sandbox.Made().size(), made ? 2u : 0u);
  }
}

// A disk that fills up is no success.
TEST(Roads, FullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
  for (const char* name : {"ROAD.RD5", "EVEN.tp5"}) {
    SCOPED_TRACE(name);
    Sandbox sandbox(Join(Lines{kHeader, Road("ROAD")} + kGood));
    fs::create_symlink("/dev/full", sandbox.Out() / name);
    EXPECT_FALSE(sandbox.Convert());
    EXPECT_EQ(sandbox.messages.size(), 1u);
    EXPECT_TRUE(fs::is_empty(sandbox.Out()));
  }
}

// An input that bears the name of a road file, in the output folder.
TEST(Roads, InputIsNoOutput) {
  const std::string dc = Join(Lines{kHeader, Road("FIRST")} + kGood + Lines{Road("ROAD")} + kGood);
  TempDir dir;
  CDcFile file;
  ASSERT_TRUE(file.OpenForRead(dir.Write(L"ROAD.RD5", dc)));
  StringList messages;
  std::vector<ROAD_HEADER> roads;
  EXPECT_FALSE(ConvertDcRoads(file, messages, roads, dir.Path(L"")));
  EXPECT_EQ(FilesIn(dir.Folder()), (Files{{L"ROAD.RD5", dc}}));
}

TEST(Roads, Headers) {
  Sandbox sandbox(Join(Lines{"00NMFX V10-70           09-16-2026 10:05111121", Road(" ONE ")} +
                       kGood + Lines{Road("TWO"), Line("84KI", {"1.", "2.", "3.", "4.", "5."})} +
                       kGood));
  ASSERT_TRUE(sandbox.Convert());
  ASSERT_EQ(sandbox.roads.size(), 2u);
  for (const ROAD_HEADER& road : sandbox.roads) {  // of the last record 84
    EXPECT_EQ(road.name, &road == &sandbox.roads[0] ? L"ONE" : L"TWO");
    EXPECT_EQ(road.startStation, 100);
    EXPECT_EQ(road.north, 2000);  // the second coordinate: east comes first
    EXPECT_EQ(road.east, 1000);
    EXPECT_EQ(road.elevation, 50);
  }
}

// The run ends there, and what had been written by then stays.
TEST(Roads, ShortHeaderLine) {
  Sandbox sandbox(Join(Lines{Road("FIRST")} + kGood + Lines{Road("ROAD"), kHal, "00NM"} + kGood));
  EXPECT_THROW(sandbox.Convert(), ConversionFailure);
  EXPECT_EQ(sandbox.messages, StringList());
  const Files made = sandbox.Made();
  EXPECT_EQ(NamesIn(made), (std::vector<std::wstring>{L"EVEN.tp5", L"FIRST.RD5", L"ROAD.RD5"}));
  EXPECT_EQ(made.at(L"ROAD.RD5"), std::string(50, '+') + "\r\nHR\r\n");
}

TEST(Roads, NamesStayInTheFolder) {
  struct Case {
    const char* name;
    const wchar_t* made;
  };
  for (const auto& [name, made] :
       {Case{"../../evil", L"______ev.RD5"}, Case{"..\\..\\evil", L"______ev.RD5"},
        Case{"/etc/x", L"_etc_x.RD5"}, Case{"C:\\x", L"C__x.RD5"}, Case{"..", L"__.RD5"},
        Case{"a.b", L"a_b.RD5"}, Case{"a%s%n", L"a_s_n.RD5"}, Case{"\xFF\x81\tx", L"___x.RD5"},
        Case{"$-_aZ09", L"$-_aZ09.RD5"}, Case{"", L".RD5"}, Case{"\t  ", L".RD5"}}) {
    SCOPED_TRACE(name);
    Sandbox sandbox(Join(Lines{kHeader, Road(name)} + kGood));
    EXPECT_TRUE(sandbox.Convert());
    Files files = sandbox.Made();
    EXPECT_EQ(files.erase(L"EVEN.tp5"), 1u);
    EXPECT_EQ(NamesIn(files), std::vector<std::wstring>{made});
  }
}

// Lengths, radii and grades of nothing, and numbers past every bound: something is printed.
TEST(Roads, NumbersWithoutBounds) {
  Lines lines = {kHeader, Road("ROAD"), kHal};
  for (const char* type : {"30KI", "31KI", "32KI", "B3KI", "B4KI", "33KI"}) {
    for (const char* first : {"0.", "1e300", "-1e999", "1e-320", "xyz"}) {
      for (const char* second : {"0.", "1e300", "1e999", "-1e-320"}) {
        lines.push_back(Line(type, {first, second}));
      }
    }
  }
  lines.push_back(kVal);
  for (const char* type : {"36KI", "37KI"}) {
    for (const char* station : {"100.", "1e300", "1e999"}) {
      lines.push_back(Line(type, {station, "0.", "1e999"}));
      lines.push_back(Line(type, {station, "1e999", "-1e300"}));
    }
  }
  lines = lines + kCross +
          Lines{Line("B9KI", {"-1e999", "3", "EVEN", "3", "EVEN"}),
                Line("B9KI", {"1e999", "3", "EVEN", "3", "EVEN"}),
                Line("B9KI", {"1e999", "3", "EVEN", "3", "EVEN"})};
  Sandbox sandbox(Join(lines));
  sandbox.Convert();
  EXPECT_EQ(sandbox.Made().size(), sandbox.messages.empty() ? 2u : 0u);
}

TEST(Roads, LongRoads) {
  constexpr std::size_t kMany = 100000;
  const auto many = [](const std::string& line) { return Lines(kMany, line); };
  Sandbox sandbox(Join(Lines{kHeader, Road("ROAD"), kHal} + many(Line("33KI", {"0.001", "50."})) +
                       Lines{kVal} + many(Line("36KI", {"300.", "50.", "10."})) +
                       Lines{kTemplate, kSegment} + many(kOuter) + Lines{kSlope} + many(kApply) +
                       many(kSuper)));
  ASSERT_TRUE(sandbox.Convert());
  const Files made = sandbox.Made();
  EXPECT_EQ(made.at(L"EVEN.tp5").substr(0, 10), "TH,100001,");
  const std::string& rd5 = made.at(L"ROAD.RD5");
  EXPECT_GT(std::count(rd5.begin(), rd5.end(), '\n'), 4 * static_cast<int>(kMany));
}

// Every truncation of a file with everything in it, and every byte replaced.
TEST(Roads, DamagedFiles) {
  const std::string whole = Join(Lines{kHeader, Road("R"), kHal} + kGood + Lines{kHinge, kOuter});
  Sandbox sandbox(whole);
  const auto run = [&](const std::string& dc) {
    sandbox.Restart(dc);
    try {
      if (!sandbox.Convert()) {
        EXPECT_TRUE(sandbox.Made().empty());
      }
    } catch (const ConversionFailure&) {  // a header line that is too short
      sandbox.ExpectUnharmed();
    }
  };
  for (std::size_t i = 0; i < whole.size(); ++i) {
    run(whole.substr(0, i));
    std::string damaged = whole;
    damaged[i] = "9-\n\0"[i % 4];
    run(damaged);
  }
}

// "4-19 20-35 36 " for a number, another and a flag.
template <class Record>
std::string Spans() {
  std::string spans;
  for (const Column<Record>& column : kRoadColumns<Record>) {
    spans += std::to_string(column.start);
    if (column.width > 1) spans += "-" + std::to_string(column.start + column.width - 1);
    spans += " ";
  }
  return spans;
}

template <class... Records>
std::map<std::string, std::string> SpansByType() {
  return {{std::string(Records::kHead, Records::kHead + 2), Spans<Records>()}...};
}

TEST(Roads, ColumnsOnThePage) {
  std::map<std::string, std::string> onPage;
  std::istringstream page(ReadBytes("docs/formats/roads.md"));
  for (std::string line; std::getline(page, line) && line.rfind("## From", 0) != 0;) {
    const std::size_t cell = line.rfind('|', line.size() - 2);
    if (!line.starts_with("| ") || !std::isalnum(line[2]) || line[4] != ' ') continue;
    std::string spans = line.substr(cell + 1);
    const auto other = [](char c) { return !std::isdigit(c) && c != '-'; };
    std::replace_if(spans.begin(), spans.end(), other, ' ');
    std::istringstream words(spans);
    std::string& found = onPage[line.substr(2, 2)];
    for (std::string word; words >> word;) found += word + " ";
  }
  EXPECT_EQ(onPage.erase("29"), 1u);  // has no columns
  const auto inCode =
      SpansByType<tDC_ROAD_HEADERRecord, tDC_ROAD_HALRecord, tDC_ROAD_STRAIGHT_POINTRecord,
                  tDC_ROAD_STRAIGHTRecord, tDC_ROAD_ARCRecord, tDC_ROAD_ARC_DIRECTIONRecord,
                  tDC_ROAD_ARC_ANGLERecord, tDC_ROAD_SPIRALRecord, tDC_ROAD_VALRecord,
                  tDC_ROAD_VCIRCULARRecord, tDC_ROAD_VPARABOLARecord, tDC_ROAD_VPOINTRecord,
                  tDC_ROAD_VASYMMETRICRecord, tDC_ROAD_TEMPLATERecord, tDC_ROAD_SEGMENTRecord,
                  tDC_ROAD_HINGERecord, tDC_ROAD_SIDESLOPERecord, tDC_ROAD_APPLYTEMPLATERecord,
                  tDC_ROAD_APPLYSUPERRecord, tDC_ROAD_45Record>();
  EXPECT_EQ(onPage, inCode);
}

TEST(Roads, DegreesToDms) {
  struct Case {
    double degrees, dms;
  };
  for (const auto& [degrees, dms] :
       {Case{0, 0}, Case{12.35, 12.21}, Case{25.5, 25.3}, Case{61.45, 61.27},
        Case{1.0 / 3600, 0.0001}, Case{0.04 / 3600, 0}, Case{0.06 / 3600, 0.00001},
        Case{10 - 0.04 / 3600, 10}, Case{10 - 0.06 / 3600, 9.59599}, Case{59.999 / 60, 0.59599},
        Case{59.9999 / 60, 1}, Case{359.99999, 0}, Case{359.9999, 359.59596}, Case{360, 0},
        Case{-90, 270}, Case{-1e-12, 0}, Case{725.5, 5.3}}) {
    EXPECT_EQ(FormatFixed(DegreesToDms(degrees), 5), FormatFixed(dms, 5)) << degrees;
  }
}

TEST(Roads, LinesOfRoadFiles) {
  TempDir dir;
  CRd5File rd5;
  ASSERT_TRUE(rd5.OpenForWrite(dir.Path(L"a.RD5")));
  EXPECT_TRUE(rd5.WriteSection(L"WL"));
  EXPECT_TRUE(rd5.WriteSection(L"wl"));
  EXPECT_TRUE(rd5.WriteVG(-9.99e27, 0.0005));
  for (const double station : {1234.5, 199.9999, -50.25, -1234.5, 1e12}) {
    EXPECT_TRUE(rd5.WriteRT(SplitStation(station), L"T"));
  }
  EXPECT_TRUE(rd5.Close());
  EXPECT_EQ(dir.Read(L"a.RD5"),
            std::string(50, '+') +
                "\r\nWL\r\nwl\r\nVG,-9990000000000000993110523904.000,0.001\r\n" +
                "RT,12,34.500,T\r\nRT,1,100.000,T\r\nRT,0,-50.250,T\r\nRT,-12,-34.500,T\r\n" +
                "RT,2147483647,0.000,T\r\n");
  EXPECT_TRUE(rd5.OpenForRead(dir.Path(L"a.RD5")));
  EXPECT_FALSE(CTp5File().OpenForRead(dir.Path(L"absent.tp5")));
}

}  // namespace
}  // namespace zelconvert
