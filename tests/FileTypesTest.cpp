// What a host learns of the file types: texts, lists, detection.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "TempDir.h"
#include "cli/FileTypes.h"
#include "front/CFileTypeManager.h"
#include "zelconvert/zelconvert.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace zelconvert {
namespace {

using Types = std::vector<int>;

void FreeFromHost(int* list) {
#if defined(_WIN32)
  HeapFree(GetProcessHeap(), 0, list);
#else
  std::free(list);
#endif
}

using TextFunction = char (*)(int, wchar_t*) noexcept;

std::wstring TextOf(TextFunction function, int type) {
  wchar_t buffer[64] = L"untouched";
  const bool known = function(type, buffer) != 0;
  return known ? buffer : std::wstring(L"refused, ") + buffer;
}

using ListFunction = char (*)(int, int**, int*) noexcept;

Types ListOf(ListFunction function, int type) {
  int* list = nullptr;
  int count = -1;
  EXPECT_TRUE(function(type, &list, &count));
  EXPECT_NE(list, nullptr);  // also when nothing is in it
  Types types(list, list + count);
  FreeFromHost(list);
  return types;
}

TEST(FileTypes, HaveTextsAndLists) {
  const std::vector<CaseFields> cases = ReadCases("tests/golden-lines/file-types.txt", '\t');
  ASSERT_EQ(cases.size(), 19u);
  std::vector<Types> rows;  // of the conversion table: the types with a one
  for (const CaseFields& texts : cases) {
    std::wistringstream numbers(texts.at(3));
    rows.emplace_back();
    for (int type; numbers >> type;) rows.back().push_back(type);
  }
  ASSERT_EQ(cZelGetNumFileTypes(), 19);
  for (int type = 0; type < 19; ++type) {
    SCOPED_TRACE(type);
    const CaseFields& texts = cases[static_cast<std::size_t>(type)];
    EXPECT_EQ(TextOf(cZelGetExtension, type), texts[0]);
    EXPECT_EQ(TextOf(cZelGetDescription, type), texts[1]);
    EXPECT_EQ(TextOf(cZelGetFileFilter, type), texts[2]);

    Types column;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (std::count(rows[row].begin(), rows[row].end(), type) != 0) {
        column.push_back(static_cast<int>(row));
      }
    }
    EXPECT_EQ(ListOf(cZelGetSupportedInputTypes, type), column);
    EXPECT_EQ(ListOf(cZelGetSupportedOutputTypes, type), column);
    Types row;
    EXPECT_TRUE(CFileTypeManager().GetSupportedOutputTypes(type, row));
    EXPECT_EQ(row, rows[static_cast<std::size_t>(type)]);
  }
  EXPECT_EQ(ListOf(cZelGetSupportedInputTypes, FT_RAW), Types{FT_JXL});
}

TEST(FileTypes, RefusesWhatIsNone) {
  for (const int type : {-1, 19, -2147483647 - 1, 2147483647}) {
    SCOPED_TRACE(type);
    for (const TextFunction function : {cZelGetExtension, cZelGetDescription, cZelGetFileFilter}) {
      EXPECT_EQ(TextOf(function, type), L"refused, untouched");
    }
    EXPECT_EQ(ListOf(cZelGetSupportedInputTypes, type), Types{});
    EXPECT_EQ(ListOf(cZelGetSupportedOutputTypes, type), Types{});
  }
  int count = 7;
  EXPECT_FALSE(cZelGetSupportedInputTypes(FT_DC, nullptr, &count));
  EXPECT_EQ(count, 7);
  EXPECT_FALSE(cZelGetExtension(FT_DC, nullptr));
}

TEST(FileTypes, AreDetected) {
  const std::string job = "Zelmont Geodata Ltd Job File";
  const std::string pwj = "Corvane Surveying Job File  ";
  const TempDir folder;
  struct {
    std::wstring name;
    std::string contents;  // empty: the file isn't there
    int type;
  } const cases[] = {
      {L"SURVEY.JOB", job + std::string(6, '\0'), FT_JOB},
      {L"shout.job", "ZELMONT GEODATA LTD JOB FILE", FT_JOB},
      {L"x.raw.job", job, FT_JOB},
      {L"short.job", job.substr(0, 27), FT_JOB_RAW},
      {L"line.job", "Zelmont Geodata Ltd Job\nFile", FT_JOB_RAW},
      {L"marked.job", "\xEF\xBB\xBF" + job, FT_JOB_RAW},
      {L"absent.job", "", FT_JOB_RAW},
      {L"brand.job", pwj, FT_JOB_RAW},
      {L"a.pwj", pwj + "x", FT_PW_JOB},
      {L"cut.pwj", pwj.substr(0, 27) + "x", FT_PW_JOB_RAW},
      {L"brand.pwj", job, FT_PW_JOB_RAW},
      {L"absent.cr5", "", FT_CR5},
      {L"a.Rw5", "", FT_RW5},
      {L"a.sdr", "", FT_SDR2},
      {L"a.ilj", "", FT_ILJ},
      {L"a.jxl", "", FT_JXL},
      {L"a.pwr", "", FT_PW_RAW},
      {L"job.raw", "", FT_RAW},
      {L"a.dc", "", FT_DC},
      {L"a.dcx", "", FT_DC},  // the extension lies in the last four characters
      {L"a.dc12", "", -1},    // and here it doesn't
      {L"a.dc.dc", "", -1},   // the first occurrence decides
      {L"x.job.bak", "", -1},
      {L"a.txt", "", -1},
  };
  for (const auto& [name, contents, type] : cases) {
    SCOPED_TRACE(ToPath(name).string());
    if (!contents.empty()) folder.Write(name, contents);
    EXPECT_EQ(cZelGetFileType(folder.Path(name).c_str()), type);
  }
  EXPECT_EQ(cZelGetFileType(L".cr5"), -1);
  EXPECT_EQ(cZelGetFileType(L""), -1);
  EXPECT_EQ(cZelGetFileType(nullptr), -1);
}

}  // namespace
}  // namespace zelconvert
