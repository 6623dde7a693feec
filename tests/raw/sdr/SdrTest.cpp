// SDR files to raw logs, and the marks in comments.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "Office.h"
#include "io/Clock.h"
#include "raw/RawUnits.h"
#include "raw/sdr/CConvRawSDRFile.h"
#include "raw/sdr/NoteMarks.h"

namespace zelconvert {
namespace {

constexpr platform::LocalTime kTime{2026, 3, 5, 13, 14, 15, 16, 789};

std::string Lines(const CaseFields& lines) {
  std::string text;
  for (const std::wstring& line : lines) text += ToNarrow(line) + "\r\n";
  return text;
}

struct Imported {
  bool converted;
  std::string raw;
  StringList messages;
};

Imported Import(const std::wstring& version, const CaseFields& sdr) {
  const TempDir folder;
  CFileCE sdrFile;
  CRawFile rawFile;
  EXPECT_TRUE(sdrFile.Open(folder.Write(L"in.sdr", Lines(sdr)), platform::kOpenReadWrite));
  EXPECT_TRUE(rawFile.OpenForWrite(folder.Path(L"out.raw")));
  CConvRawSDRFile conversion(&rawFile, &sdrFile);
  conversion.SetSdrVersion(version == L"2" ? SdrVersion::Sdr2 : SdrVersion::Sdr33);
  Imported result{};
  const ScopedClock clock(kTime, 0);
  Report report;
  result.converted = conversion.ConvertToRaw(report);
  result.messages = report.messages;
  EXPECT_TRUE(rawFile.Close());
  result.raw = folder.Read(L"out.raw");
  return result;
}

TEST(SdrToRaw, CarriesSettingsAtmospherePrismAndNotes) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/sdr-settings.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto raw = texts.begin() + 2 + ToInteger(texts[1]);
    const Imported result = Import(texts[0], CaseFields(texts.begin() + 2, raw));
    EXPECT_TRUE(result.converted);
    EXPECT_EQ(result.raw, Lines(CaseFields(raw, texts.end())));
    EXPECT_TRUE(result.messages.empty());
  }
}

TEST(SdrToRaw, RefusesWithOneText) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/sdr-refused.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const Imported result = Import(texts[0], CaseFields(texts.begin() + 2, texts.end()));
    EXPECT_FALSE(result.converted);
    EXPECT_EQ(result.raw, "");
    EXPECT_EQ(result.messages, StringList{texts[1]});
  }
}

TEST(SdrToRaw, MakesSideshots) {
  const CZelPoint station{L"S", 100, 200, 10, L""};
  for (const CaseFields& texts : ReadCases("tests/golden-lines/sdr-sideshots.txt")) {
    const CZelPoint point{L"P", ToReal(texts[2]), ToReal(texts[3]), ToReal(texts[4]), L"n"};
    EXPECT_EQ(CConvRawSDRFile::MakeSideshotLine(L"SS", ToInteger(texts[0]),
                                                AngularUnitOfRaw(ToInteger(texts[1])), station, 1.5,
                                                2, 10, 350, point),
              L"SS,OPS,FPP," + texts[5] + L",--n\n");
  }
}

TEST(SdrLines, FillIntegersOnTheRight) {
  std::string line = "00";
  for (const std::size_t width : {4u, 2u}) sdr::FormatInteger(line, 123, width);
  EXPECT_EQ(line, "00123 12");
}

TEST(SdrLinesRead, KnowCodesAndDerivations) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/sdr-codes.txt")) {
    EXPECT_EQ(GetSdrRecordCode(texts[0]), ToInteger(texts[1])) << texts[0];
    EXPECT_EQ(GetSdrDerivation(texts[0]), ToInteger(texts.at(2))) << texts[0];
  }
}

TEST(NoteMarks, AreTheFirstLettersOfAComment) {
  const std::wstring names[] = {L"None", L"BEG", L"BC", L"END", L"EC", L"C2", L"C3", L"CP1", L"CP2",
                                L"CP3",  L"JFS", L"JN", L"JNS", L"JP", L"JT", L"R3", L"SS"};
  for (const CaseFields& texts : ReadCases("tests/golden-lines/note-marks.txt")) {
    std::wstring_view found = L"before";
    const auto mark = static_cast<std::size_t>(ParseNoteMark(texts[0], found));
    EXPECT_EQ(names[mark], texts[1]) << texts[0];
    EXPECT_EQ(found, texts.at(2)) << texts[0];
  }
}

// ---- The examples of the documentation

// The indented lines after `mark`, without their indent and the blanks at their ends.
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
  EXPECT_EQ(WithoutTrailingBlanks(ConvertLog(Block(sdr, "The log"), FT_SDR33)),
            Block(sdr, "becomes, in SDR33"));
  const std::string jxl = ReadBytes("docs/formats/jxl.md");
  const std::string shot = Block(jxl, "gives for its shot");
  const std::string made = WithoutTrailingBlanks(ConvertLog(Block(jxl, "The log"), FT_JXL));
  EXPECT_NE(made.find(shot), made.npos) << made;
  EXPECT_GT(shot.size(), 1000u);
}

}  // namespace
}  // namespace zelconvert
