// DC to job through the exported functions: what is refused and with which texts. The bytes of
// whole jobs are golden cases.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "FilesIn.h"
#include "HostLists.h"
#include "TempDir.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using LineList = std::vector<std::string>;

const std::string kHeader = "00NMFX V10-70           03-13-2026 14:15111111";

std::string Point(const std::string& name) {
  return "69KI" + std::string(16 - name.size(), ' ') + name +
         "         1.00000         2.00000         3.00000                11";
}

std::string Join(const LineList& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

TEST(DcToJob, RefusalsAndWarnings) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/dc-to-job.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const bool converted = texts[1] == L"converted";
    LineList lines;
    for (std::size_t i = 3; i < texts.size(); ++i) lines.push_back(ToNarrow(texts[i]));
    const TempDir folder;
    const std::wstring input = folder.Write(L"in.dc", Join(lines));
    std::vector<std::wstring> expected;
    std::wistringstream messages(texts[2]);
    for (std::wstring text; std::getline(messages, text, L'~');) {
      expected.push_back(FormatText(text, input));
    }
    for (const FileType type : {FT_JOB, FT_OLD_JOB, FT_PW_JOB}) {
      HostLists lists;
      EXPECT_EQ(lists.Convert(FT_DC, input, type, folder.Path(L"out.job")), converted);
      EXPECT_EQ(lists.Messages(), expected);
      EXPECT_EQ(folder.Exists(L"out.job"), converted);
      EXPECT_EQ(lists.Files().size(), converted ? 1u : 0u);
      std::filesystem::remove(folder.Folder() / "out.job");
    }
    // The names are no numbers, so that one of the stages fails in any case.
    HostLists lists;
    EXPECT_FALSE(lists.Convert(FT_DC, input, FT_CR5, folder.Path(L"out.cr5")));
    EXPECT_EQ(lists.messages, nullptr);
    EXPECT_EQ(FilesIn(folder.Folder()), (Files{{"in.dc", Join(lines)}}));
  }
}

TEST(DcToJob, DuplicatesAreFoundAmongThousands) {
  LineList lines = {kHeader};
  for (int i = 0; i < 20000; ++i) lines.push_back(Point("a long name" + std::to_string(i)));
  const TempDir folder;
  const auto convert = [&] {
    const std::wstring input = folder.Write(L"in.dc", Join(lines));
    HostLists lists;
    return lists.Convert(FT_DC, input, FT_JOB, folder.Path(L"out.job"));
  };
  EXPECT_TRUE(convert());
  lines.push_back(Point("a long name77"));
  EXPECT_FALSE(convert());
}

// The job has nothing of a road whose RD5 file can't be made.
TEST(DcToJob, RoadWithoutAFile) {
  const TempDir folder;
  std::filesystem::create_directory(folder.Folder() / "RIDGE_RO.RD5");
  const std::string example = ReadBytes("examples/ridge-road.dc");
  const std::wstring input = folder.Write(L"in.dc", example.substr(example.find("28KI")));
  HostLists lists;
  EXPECT_FALSE(lists.Convert(FT_DC, input, FT_JOB, folder.Path(L"out.job")));
  EXPECT_EQ(lists.Messages(),
            (std::vector<std::wstring>{
                L"Road RIDGE ROAD in the DC file could not be converted to RD5 files.",
                L"No points were found in the DC file."}));
}

}  // namespace
}  // namespace zelconvert
