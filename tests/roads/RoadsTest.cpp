// Roads of DC files into road files. tests/roads/ holds whole files, whose alignments
// scripts/golden/make_road_cases.py works out; here stand the rules that refuse a road, hostile
// files, and the forms of single values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "PageTables.h"
#include "TempDir.h"
#include "dc/CDcFile.h"
#include "io/Numbers.h"
#include "io/Strings.h"
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
    report = {};
    roads.clear();
  }

  bool Convert() {
    CDcFile file;
    EXPECT_TRUE(file.OpenForRead(m_dir.Path(L"in.dc")));
    const bool ok = ConvertDcRoads(file, report, roads, m_dir.Path(L"out"));
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
    for (const ROAD_HEADER& road : roads) names.push_back(ToWide(road.name));
    return names;
  }

  Report report;
  RoadHeaders roads;

 private:
  TempDir m_dir;
  std::string m_dc;
};

std::string Join(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

// Lines, and the parts of roads that "=" and a name stand for.
Lines Expand(const CaseFields& fields, const std::map<std::string, Lines>& parts) {
  Lines lines;
  for (std::size_t i = 1; i < fields.size(); ++i) {
    const std::string line = ToNarrow(fields[i]);
    const Lines more = line.starts_with('=') ? parts.at(line.substr(1)) : Lines{line};
    lines.insert(lines.end(), more.begin(), more.end());
  }
  return lines;
}

const std::map<std::string, Lines>& Parts() {
  static const std::map<std::string, Lines> parts = [] {
    std::map<std::string, Lines> made;
    for (const CaseFields& fields : ReadCases("tests/golden-lines/roads-parts.txt")) {
      made[ToNarrow(fields[0])] = Expand(fields, made);
    }
    return made;
  }();
  return parts;
}

// A file of the header and these lines.
std::string Dc(const Lines& lines) {
  CaseFields fields = {L"", L"=header"};
  for (const std::string& line : lines) fields.push_back(ToWide(line));
  return Join(Expand(fields, Parts()));
}

std::string Road(const std::string& name) {
  return "28KI" + name;
}

StringList Refusal(const std::wstring& text, const std::wstring& road) {
  return {text, L"Road " + road + L" in the DC file could not be converted to RD5 files."};
}

// Cases in a file: a text, or "good", and the lines of a road.
struct RoadCase {
  std::wstring text;  // empty: the road is good
  Lines lines;
};

std::vector<RoadCase> RoadCases(const char* path) {
  std::vector<RoadCase> cases;
  for (const CaseFields& fields : ReadCases(path)) {
    cases.push_back({fields[0] == L"good" ? L"" : fields[0], Expand(fields, Parts())});
  }
  return cases;
}

// The road of a case between two good ones.
std::string BetweenGoodRoads(const std::string& name, const RoadCase& each) {
  Lines lines = {Road("FIRST"), "=good", Road(name)};
  lines.insert(lines.end(), each.lines.begin(), each.lines.end());
  lines.insert(lines.end(), {Road("AFTER"), "=good"});
  return Dc(lines);
}

TEST(Roads, WholeFiles) {
  int cases = 0;
  for (const auto& entry : fs::directory_iterator("tests/roads")) {
    if (!entry.is_directory()) continue;
    SCOPED_TRACE(entry.path().filename().string());
    ++cases;
    Files expected = FilesIn(entry.path());
    Sandbox sandbox(expected[L"in.dc"]);
    StringList messages;
    std::istringstream texts(expected[L"messages.txt"]);
    for (std::string text; std::getline(texts, text);) messages.push_back(ToWide(text));
    for (const wchar_t* name : {L"in.dc", L"messages.txt", L"notes.txt"}) expected.erase(name);
    EXPECT_TRUE(sandbox.Convert());
    EXPECT_EQ(sandbox.report.messages, messages);
    EXPECT_EQ(sandbox.Made(), expected);
    EXPECT_EQ(sandbox.report.beside.GetCount(), expected.size());
  }
  EXPECT_GT(cases, 0);
}

// Each refused road stands between two good ones, which are converted all the same.
TEST(Roads, RefusedRoads) {
  const std::string page = ReadBytes("docs/formats/roads.md");
  for (const RoadCase& each : RoadCases("tests/golden-lines/roads-refused.txt")) {
    SCOPED_TRACE(testing::PrintToString(each.text) + Join(each.lines));
    EXPECT_NE(page.find(std::string(each.text.begin(), each.text.end())), page.npos);
    Sandbox sandbox(BetweenGoodRoads("  the one  ", each));
    EXPECT_TRUE(sandbox.Convert());
    std::vector<std::wstring> roads = {L"FIRST", L"AFTER"};
    std::vector<std::wstring> files = {L"AFTER.RD5", L"FIRST.RD5"};
    if (each.text.empty()) {
      roads.insert(roads.begin() + 1, L"the one");
      files.push_back(L"the_one.RD5");
      EXPECT_EQ(sandbox.report.messages, StringList());
    } else {
      EXPECT_EQ(sandbox.report.messages, Refusal(each.text, L"the one"));
    }
    EXPECT_EQ(sandbox.RoadNames(), roads);
    std::vector<std::wstring> made = NamesIn(sandbox.Made());
    std::erase_if(made, [](const std::wstring& name) { return !name.ends_with(L".RD5"); });
    EXPECT_EQ(made, files);
  }
}

// Roads are known by their names: one bad road takes its namesakes with it, and each bad one is
// told.
TEST(Roads, RefusedNamesakes) {
  Sandbox sandbox(
      Dc({Road("A"), "=good", Road("B"), Road(" A"), "=plan", Road("A"), "=plan", "=profile"}));
  EXPECT_TRUE(sandbox.Convert());
  EXPECT_EQ(sandbox.report.messages,
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
  for (const RoadCase& each : RoadCases("tests/golden-lines/roads-failed.txt")) {
    SCOPED_TRACE(testing::PrintToString(each.text) + Join(each.lines));
    Sandbox sandbox(BetweenGoodRoads("the one", each));
    EXPECT_EQ(sandbox.Convert(), each.text.empty());
    if (each.text.empty()) {
      EXPECT_EQ(sandbox.report.messages, StringList());
      EXPECT_EQ(sandbox.roads.size(), 3u);
    } else {
      EXPECT_EQ(sandbox.report.messages, Refusal(each.text, L"the one"));
      EXPECT_EQ(sandbox.RoadNames(), (std::vector<std::wstring>{L"FIRST", L"the one"}));
      EXPECT_EQ(sandbox.roads.back().north, 1000);
      EXPECT_TRUE(sandbox.Made().empty());
    }
  }
}

TEST(Roads, FilesThatCannotBeWritten) {
  for (const char* taken : {"ROAD.RD5", "EVEN.tp5"}) {
    SCOPED_TRACE(taken);
    Sandbox sandbox(Dc({Road("FIRST"), "=good", Road("ROAD"), "=plan", "=profile", "=template",
                        "=segment", "=slope"}));
    std::error_code refused;  // where there are no links
    fs::create_symlink("gone/away", sandbox.Out() / taken, refused);
    if (refused) fs::create_directory(sandbox.Out() / taken);
    EXPECT_FALSE(sandbox.Convert());
    EXPECT_TRUE(fs::exists(fs::symlink_status(sandbox.Out() / taken)));  // not the run's to delete
    const std::wstring road = taken[0] == 'R' ? L"ROAD" : L"FIRST";
    EXPECT_EQ(
        sandbox.report.messages,
        StringList{L"Road " + road + L" in the DC file could not be converted to RD5 files."});
    EXPECT_EQ(sandbox.RoadNames(), std::vector<std::wstring>{L"FIRST"});
    EXPECT_TRUE(sandbox.Made().empty());
  }
}

// An input that bears the name of a road file, in the output folder.
TEST(Roads, InputIsNoOutput) {
  const std::string dc = Dc({Road("FIRST"), "=good", Road("ROAD"), "=good"});
  TempDir dir;
  CDcFile file;
  ASSERT_TRUE(file.OpenForRead(dir.Write(L"ROAD.RD5", dc)));
  Report report;
  RoadHeaders roads;
  EXPECT_FALSE(ConvertDcRoads(file, report, roads, dir.Path(L"")));
  EXPECT_EQ(FilesIn(dir.Folder()), (Files{{L"ROAD.RD5", dc}}));
}

// The run ends there; what had been written by then is the caller's to delete.
TEST(Roads, ShortHeaderLine) {
  Sandbox sandbox(Dc({Road("FIRST"), "=good", Road("ROAD"), "=hal", "00NM", "=good"}));
  EXPECT_THROW(sandbox.Convert(), ConversionFailure);
  EXPECT_EQ(sandbox.report.messages, StringList());
  const Files made = sandbox.Made();
  EXPECT_EQ(NamesIn(made), (std::vector<std::wstring>{L"EVEN.tp5", L"FIRST.RD5", L"ROAD.RD5"}));
  EXPECT_EQ(sandbox.report.beside.GetCount(), made.size());
  EXPECT_EQ(made.at(L"ROAD.RD5"), std::string(50, '+') + "\r\nHR\r\n");
}

TEST(Roads, NamesStayInTheFolder) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/road-names.txt")) {
    SCOPED_TRACE(texts[0]);
    Sandbox sandbox(Dc({Road(ToNarrow(texts[0])), "=good"}));
    EXPECT_TRUE(sandbox.Convert());
    Files files = sandbox.Made();
    EXPECT_EQ(files.erase(L"EVEN.tp5"), 1u);
    EXPECT_EQ(NamesIn(files), std::vector<std::wstring>{texts.at(1) + L".RD5"});
  }
}

TEST(Roads, LongRoads) {
  constexpr std::size_t kMany = 100000;
  Lines lines = {Road("ROAD"), "=hal"};
  const auto add = [&](const char* line) { lines.insert(lines.end(), kMany, line); };
  add("33KI           0.001             50.");
  lines.push_back("=val");
  add("36KI            300.             50.             10.");
  lines.insert(lines.end(), {"=template", "=segment"});
  add("=outer");
  lines.push_back("=slope");
  add("=apply");
  add("=super");
  Sandbox sandbox(Dc(lines));
  ASSERT_TRUE(sandbox.Convert());
  const Files made = sandbox.Made();
  EXPECT_EQ(made.at(L"EVEN.tp5").substr(0, 10), "TH,100001,");
  const std::string& rd5 = made.at(L"ROAD.RD5");
  EXPECT_GT(std::count(rd5.begin(), rd5.end(), '\n'), 4 * static_cast<int>(kMany));
}

// "4-19 20-35 36 " for a number, another and a flag.
template <class Record>
std::string Spans() {
  std::string spans;
  for (const Column<Record>& column : kColumns<Record>) {
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
  for (const PageRow& row : ReadTables("docs/formats/roads.md")) {
    const std::string& head = row.cells[0];
    if (head.size() != 2 || !std::isdigit(head[1])) continue;
    std::string spans = row.cells.back();
    const auto other = [](char c) { return !std::isdigit(c) && c != '-'; };
    std::replace_if(spans.begin(), spans.end(), other, ' ');
    std::istringstream words(spans);
    for (std::string word; words >> word;) onPage[head] += word + " ";
  }
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
  for (const CaseFields& texts : ReadCases("tests/golden-lines/road-azimuths.txt")) {
    EXPECT_EQ(FormatFixed(DegreesToDms(ToReal(texts[0])), 5), texts.at(1)) << texts[0];
  }
}

TEST(Roads, LinesOfRoadFiles) {
  TempDir dir;
  CRd5File rd5;
  ASSERT_TRUE(rd5.OpenForWrite(dir.Path(L"a.RD5")));
  rd5.WriteSection(L"WL");
  rd5.WriteSection(L"wl");
  rd5.WriteVG(-9.99e27, 0.0005);
  for (const double station : {1234.5, 199.9999, -50.25, -1234.5, 1e12}) {
    rd5.WriteRT(SplitStation(station), L"T");
  }
  EXPECT_TRUE(rd5.Close() && !rd5.HasWriteFailed());
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
