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
#include "dc/CDcFile.h"
#include "front/CFileTypeManager.h"
#include "io/Numbers.h"
#include "io/Paths.h"
#include "io/Strings.h"
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
  EXPECT_TRUE(HasExtensionIgnoringCase(TextOf(cZelGetExtension, FT_DC),
                                       L'.' + CDcFile::GetDefaultExtension()));
}

TEST(FileTypes, RefusesWhatIsNone) {
  for (const int type : {-1, 19, -2147483647 - 1, 2147483647}) {
    SCOPED_TRACE(type);
    for (const TextFunction function : {cZelGetExtension, cZelGetDescription, cZelGetFileFilter}) {
      EXPECT_EQ(TextOf(function, type), L"refused, untouched");
    }
    EXPECT_EQ(ListOf(cZelGetSupportedInputTypes, type), Types{});
    EXPECT_EQ(ListOf(cZelGetSupportedOutputTypes, type), Types{});
    Types row = {FT_DC};
    EXPECT_TRUE(CFileTypeManager().GetSupportedOutputTypes(type, row) && row.empty());
  }
  int count = 7;
  EXPECT_FALSE(cZelGetSupportedInputTypes(FT_DC, nullptr, &count));
  EXPECT_EQ(count, 7);
  int* list = nullptr;
  EXPECT_FALSE(cZelGetSupportedOutputTypes(FT_DC, &list, nullptr));
  EXPECT_FALSE(cZelGetExtension(FT_DC, nullptr));
}

TEST(FileTypes, AreDetected) {
  const TempDir folder;
  for (const CaseFields& texts : ReadCases("tests/golden-lines/detection.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    if (!texts[1].empty()) folder.Write(texts[0], ToNarrow(texts[1]));
    EXPECT_EQ(cZelGetFileType(folder.Path(texts[0]).c_str()), ToInteger(texts.at(2)));
  }
  EXPECT_EQ(cZelGetFileType(L".cr5"), -1);
  EXPECT_EQ(cZelGetFileType(L""), -1);
  EXPECT_EQ(cZelGetFileType(nullptr), -1);
}

}  // namespace
}  // namespace zelconvert
