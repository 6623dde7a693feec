// SDR files to raw logs, the marks in comments, and the coordinates of the SDR route beside those
// of the DC and JobXML routes.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "DcOffice.h"
#include "HostLists.h"
#include "TempDir.h"
#include "io/Clock.h"
#include "raw/CConvRawSDRFile.h"

namespace zelconvert {
namespace {

constexpr platform::LocalTime kTime{2026, 3, 5, 13, 14, 15, 16, 789};

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

/// "%-*s"
std::string Pad(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

struct Imported {
  bool converted;
  std::string raw;
  StringList messages;
};

Imported Import(SdrVersion version, const std::string& sdr) {
  const TempDir folder;
  CFileCE sdrFile;
  CRawFile rawFile;
  EXPECT_TRUE(sdrFile.Open(folder.Write(L"in.sdr", sdr), platform::kOpenReadWrite));
  EXPECT_TRUE(rawFile.OpenForWrite(folder.Path(L"out.raw")));
  CConvRawSDRFile conversion(&rawFile, &sdrFile);
  conversion.SetSdrVersion(version);
  Imported result{};
  const ScopedClock clock(kTime, 0);
  result.converted = conversion.ConvertToRaw(result.messages);
  EXPECT_TRUE(rawFile.Close());
  result.raw = folder.Read(L"out.raw");
  return result;
}

const std::string kHeader33 = "00NMSDR33  V04-01.19000003-04-2026 10:00112211";
const std::string kHeader2 = "00NMSDR22  V03-01.7a000003-04-2026 10:00232211";  // gons, US feet
const std::string kJobAt = ",DT03-13-2026,TM14:15:16";

TEST(SdrToRaw, CarriesSettingsAtmospherePrismAndNotes) {
  const std::string prism33 =
      Pad("01NM", 67) + Pad("0.03", 16) + Pad("-30", 16);  // offset, then constant
  const std::string prism2 = Pad("01NM", 61) + Pad("1.5", 10) + Pad("2.25", 10);
  const std::string job1 = "JB,NM" + Pad("one", 16) + kJobAt;
  const std::string note(70, 'n');
  struct Case {
    const char* what;
    SdrVersion version;
    std::vector<std::string> sdr;
    std::vector<std::string> raw;
  };
  for (const Case& each : std::vector<Case>{
           {"what stands ahead of the job, and a scale that changes; the last scale holds first",
            SdrVersion::Sdr33,
            {kHeader33, "13NMearly", "04NM", "05NM" + Pad("760", 16) + "20.5", prism33, "06NM1.5",
             "10NMA long job name of many", "06NM1.5", "06NM0.9996", "13NMlate  ", "03NM1.5", "",
             "1", "99XX", "14NM", "02TV", "08KI", "09F1"},
            {"--TEMP 20.500000 C", "--PRESS 760.000000 MM", "--PRISM CONSTANT -30.000000",
             "--PRISM OFFSET 0.030000", "MO,AD0,UN1,SF1.5,EC0,EO0.0,AU0",
             "JB,NMA long job name " + kJobAt, "MO,AD0,UN1,SF1.5,EC0,EO0.0,AU0",
             "----COLLIMATION ON", "----COLLIMATION ON", "----early",
             "MO,AD0,UN1,SF0.9996,EC0,EO0.0,AU0", "--late  "}},
           {"two jobs, of which the second gets the comments again; a collimation too late",
            SdrVersion::Sdr2,
            {kHeader2, "10NM" + Pad("one", 16), "05NM" + Pad("29.92", 10) + "68", prism2,
             "08KI0001", "04NM", "13NM" + note, "10NMtwo"},
            {job1, "MO,AD0,UN2,SF1.0,EC0,EO0.0,AU1", "----COLLIMATION OFF", "----COLLIMATION OFF",
             "--TEMP 68.000000 F", "--PRESS 29.920000 INCH", "--PRISM CONSTANT 2.250000",
             "--PRISM OFFSET 1.500000", "--" + note.substr(0, 60), "JB,NMtwo" + kJobAt,
             "MO,AD0,UN2,SF1.0,EC0,EO0.0,AU1", "----COLLIMATION OFF", "----COLLIMATION OFF"}},
           {"unknown units, a job ahead of the header, a prism that isn't there",
            SdrVersion::Sdr33,
            {"10NM", "00NMSDR3" + std::string(32, '.') + "3 112", "01NM"},
            {"JB,NM" + kJobAt, "MO,AD0,UN0,SF1.0,EC0,EO0.0,AU0", "----COLLIMATION OFF",
             "--PRISM CONSTANT 0.000000", "--PRISM OFFSET 0.000000"}},
           {"no job: nothing but what needs none",
            SdrVersion::Sdr2,
            {kHeader2, "13NMlost", "06NM2", "06NM3"},
            {"MO,AD0,UN2,SF2.0,EC0,EO0.0,AU1", "MO,AD0,UN2,SF3.0,EC0,EO0.0,AU1"}}}) {
    SCOPED_TRACE(each.what);
    const Imported result = Import(each.version, Lines(each.sdr));
    EXPECT_TRUE(result.converted);
    EXPECT_EQ(result.raw, Lines(each.raw));
    EXPECT_TRUE(result.messages.empty());
  }
}

TEST(SdrToRaw, RefusesWithOneText) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/sdr-refused.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    std::string sdr;
    for (std::size_t i = 2; i < texts.size(); ++i) sdr += ToNarrow(texts[i]) + "\r\n";
    const Imported result = Import(texts[0] == L"2" ? SdrVersion::Sdr2 : SdrVersion::Sdr33, sdr);
    EXPECT_FALSE(result.converted);
    EXPECT_EQ(result.raw, "");
    EXPECT_EQ(result.messages, StringList{texts[1]});
  }
}

TEST(SdrToRaw, MakesSideshots) {
  struct Case {
    int mode;
    std::int32_t unit;
    CZelPoint point;
    const wchar_t* values;
  };
  // From N 100, E 200, elevation 10, with heights 1.5 and 2, where azimuth 10 reads 350.
  const CZelPoint station(L"S", 100, 200, 10, L"");
  for (const Case& each : std::vector<Case>{
           {1, 0, {L"P", 200, 300, 9.5, L"n"}, L"AR25.0000,ZE90.0000,SD141.4214"},
           {1, 0, {L"P", 97, 196, 21.5, L"n"}, L"AR213.1301,ZE22.6199,SD13.0000"},
           {0, 0, {L"P", 200, 200, -90.5, L"n"}, L"AR70.0000,ZE135.0000,SD141.4214"},
           {1, 1, {L"P", 100, 300, 9.5, L"n"}, L"AR77.7778,ZE90.0000,SD100.0000"},
           {1, 0, {L"P", 100.0009, 200.0009, 14.5, L"n"}, L"AR340.0000,ZE0.0146,SD5.0000"},
           {1, 0, {L"P", 100, 200, 14.5, L"n"}, L"AR340.0000,ZE90.0000,SD5.0000"}}) {
    EXPECT_EQ(CConvRawSDRFile::MakeSideshotLine(L"SS", each.mode, each.unit, station, 1.5, 2, 10,
                                                350, each.point),
              L"SS,OPS,FPP," + std::wstring(each.values) + L",--n\n");
  }
}

TEST(SdrLinesRead, KnowCodesAndDerivations) {
  const std::pair<const wchar_t*, int> codes[] = {{L"00NM", 0},  {L"13", 13},   {L"09F1", 9},
                                                  {L"14NM", -1}, {L"1", -1},    {L"", -1},
                                                  {L" 1NM", -1}, {L"-1NM", -1}, {L"1NM", -1}};
  for (const auto& [line, code] : codes) {
    EXPECT_EQ(GetSdrRecordCode(line), code) << code;
  }
  EXPECT_EQ(GetSdrDerivation(L"09F1"), 0);
  EXPECT_EQ(GetSdrDerivation(L"08KI"), 8);
  EXPECT_EQ(GetSdrDerivation(L"00NMx"), 17);
  EXPECT_EQ(GetSdrDerivation(L"08TA"), 28);
  EXPECT_EQ(GetSdrDerivation(L"08ki"), -1);
  EXPECT_EQ(GetSdrDerivation(L"08"), -1);
}

TEST(NoteMarks, AreTheFirstLettersOfAComment) {
  const std::map<std::wstring, NoteMark> marks = {
      {L"BC", NoteMark::BC},   {L"BEG", NoteMark::BEG}, {L"C2", NoteMark::C2},
      {L"C3", NoteMark::C3},   {L"CP1", NoteMark::CP1}, {L"CP2", NoteMark::CP2},
      {L"CP3", NoteMark::CP3}, {L"EC", NoteMark::EC},   {L"END", NoteMark::END},
      {L"JFS", NoteMark::JFS}, {L"JN", NoteMark::JN},   {L"JNS", NoteMark::JNS},
      {L"JP", NoteMark::JP},   {L"JT", NoteMark::JT},   {L"None", NoteMark::None},
      {L"R3", NoteMark::R3},   {L"SS", NoteMark::SS}};
  for (const CaseFields& texts : ReadCases("tests/golden-lines/note-marks.txt")) {
    std::wstring_view found = L"before";
    EXPECT_EQ(ParseNoteMark(texts[0], found), marks.at(texts[1])) << texts[0];
    EXPECT_EQ(found, texts.at(2)) << texts[0];
  }
}

// ---- The same log by three routes

std::string Convert(const std::string& raw, FileType type, const wchar_t* name) {
  const TempDir folder;
  const std::wstring in = folder.Write(L"in.raw", raw), out = folder.Path(name);
  HostLists lists;
  EXPECT_TRUE(lists.Convert(FT_RAW, in, type, out));
  return folder.Read(name);
}

std::string Column(const std::string& line, std::size_t start) {
  const std::string text = line.substr(start, 16);
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}
double Value(const std::string& line, std::size_t start) {
  return std::stod(line.substr(start, 16));
}

Points StationsOfSdr(const std::string& sdr) {
  Points stations;
  std::istringstream lines(sdr);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("02TV")) {
      stations[Column(line, 4)] = {Value(line, 20), Value(line, 36), Value(line, 52)};
    }
  }
  return stations;
}

Points PointsOfJxl(const std::string& jxl) {
  const std::size_t start = jxl.find("<Reductions>");
  Points points;
  const auto text = [&](const char* tag, std::size_t from) {
    const std::size_t at = jxl.find(tag, from) + std::string(tag).size();
    return jxl.substr(at, jxl.find('<', at) - at);
  };
  for (std::size_t at = jxl.find("<Point ", start); at != jxl.npos;
       at = jxl.find("<Point ", at + 1)) {
    points[text("<Name>", at)] = {std::stod(text("<North>", at)), std::stod(text("<East>", at)),
                                  std::stod(text("<Elevation>", at))};
  }
  return points;
}

TEST(SdrDcAndJxl, PutPointsInOnePlace) {
  std::string raw = "JB,NMx,DT01-02-2026,TM00:00:00\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\n";
  std::vector<std::string> names;
  for (int i = 0; i < 40; ++i) {
    const std::string n = std::to_string(i);
    names.push_back("T" + n);
    raw += "OC,OPA,N 5000.25,E 3000.125,EL100.5,--\nBK,OPA,BPB,BS" + std::to_string(i * 9) + "." +
           std::to_string(1000 + i) + ",BC" + std::to_string(353 - i * 7) +
           ".3015\nLS,HI1.61,HR1.3\n" + "TR,OPA,FPT" + n + ",AR" + std::to_string(i * 8) +
           ".2233,ZE" + std::to_string(70 + i) + ".4417,SD" + std::to_string(20 + i * 31) +
           ".12345,--\n";
  }
  const auto sdr = StationsOfSdr(Convert(raw, FT_SDR33, L"out.sdr"));
  const auto dc = Office(Convert(raw, FT_DC, L"out.dc")).points;
  const auto jxl = PointsOfJxl(Convert(raw, FT_JXL, L"out.jxl"));
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(sdr.contains(name) && dc.contains(name) && jxl.contains(name));
    const Point& p = sdr.at(name);
    for (const auto* other : {&dc.at(name), &jxl.at(name)}) {
      EXPECT_NEAR(p.north, other->north, 1.1e-5);
      EXPECT_NEAR(p.east, other->east, 1.1e-5);
      EXPECT_NEAR(p.elevation, other->elevation, 1.1e-5);
    }
  }
}

// ---- The examples of the documentation

// The indented lines behind `mark`, without their indent and the blanks at their ends.
std::string Block(const std::string& page, const std::string& mark) {
  std::istringstream lines(page.substr(page.find(mark)));
  std::string block, line;
  while (std::getline(lines, line) && !line.starts_with("    ")) continue;
  for (; line.starts_with("    "); std::getline(lines, line)) block += line.substr(4) + "\n";
  return block;
}

std::string WithoutTrailingBlanks(const std::string& text) {
  std::istringstream lines(text);
  std::string trimmed;
  for (std::string line; std::getline(lines, line);) {
    trimmed += line.substr(0, line.find_last_not_of(" \r") + 1) + "\n";
  }
  return trimmed;
}

TEST(SdrAndJxlDocs, ShowWhatIsMade) {
  const std::string sdr = ReadBytes("docs/formats/sdr.md");
  EXPECT_EQ(WithoutTrailingBlanks(Convert(Block(sdr, "The log"), FT_SDR33, L"out.sdr")),
            Block(sdr, "becomes, in SDR33"));
  const std::string jxl = ReadBytes("docs/formats/jxl.md");
  const std::string shot = Block(jxl, "gives for its shot");
  const std::string made =
      WithoutTrailingBlanks(Convert(Block(jxl, "The log"), FT_JXL, L"out.jxl"));
  EXPECT_NE(made.find(shot), made.npos) << made;
  EXPECT_GT(shot.size(), 1000u);
}

}  // namespace
}  // namespace zelconvert
