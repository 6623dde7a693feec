// What a host learns of the file types: texts, lists, detection.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

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

struct TypeCase {
  const wchar_t* extension;
  const wchar_t* description;
  const wchar_t* filter;
  Types row;  // ones in the row of the conversion table
};

const Types kDc = {FT_DC, FT_DC77, FT_DC1000, FT_DC1070};
const TypeCase kTypeCases[] = {
    {L".cr5", L"ZEL CR5 File", L"ZEL CR5 File (*.cr5)|*.cr5||", {1, 6, 7, 10, 11, 14, 16}},
    {L".job", L"ZEL JOB File ", L"ZEL JOB File (*.job)|*.job||", {0, 6, 10, 11, 12, 14}},
    {L".raw", L"ZEL RAW File", L"ZEL RAW File (*.raw)|*.raw||", {4, 5, 6, 10, 11, 14}},
    {L".job", L"ZEL JOB and RAW Files", L"ZEL JOB and RAW Files (*.job,*.raw)|*.job|*.raw||", kDc},
    {L".sdr", L"Sokkia SDR2 File", L"Sokkia SDR2 File (*.sdr)|*.sdr||", {}},
    {L".sdr", L"Sokkia SDR33 File", L"Sokkia SDR33 File (*.sdr)|*.sdr||", {}},
    {L".dc", L"Kestrum DC File", L"Kestrum DC File (*.dc)|*.dc||", {0, 1, 7, 12, 13, 16}},
    {L".job",
     L"ZEL Old JOB File(GLCE 1.x/2.x)",
     L"ZEL JOB File (*.job)|*.job||",
     {0, 6, 10, 11, 12, 13, 14}},
    {L".rw5", L"ZEL RW5 File", L"ZEL RW5 File (*.rw5)|*.rw5||", kDc},
    {L".cr5", L"ZEL CR5 and RW5 Files", L"ZEL CR5 and RW5 Files (*.cr5,*.rw5)|*.cr5|*.rw5||", kDc},
    {L".dc", L"Kestrum DC File (DC7.7)", L"Kestrum DC File (*.dc)|*.dc||", {0, 1, 7, 12, 13, 16}},
    {L".dc", L"Kestrum DC File (DC10.00)", L"Kestrum DC File (*.dc)|*.dc||", {0, 1, 7, 12, 13, 16}},
    {L".cr5",
     L"ZEL Sequential CR5 File",
     L"ZEL CR5 File (*.cr5)|*.cr5||",
     {1, 6, 7, 10, 11, 14, 16}},
    {L".ilj", L"ZEL Interlock Job File", L"ZEL ILJ File (*.ilj)|*.ilj||", {6, 10, 11, 13, 14}},
    {L".dc", L"Kestrum DC File (DC10.70)", L"Kestrum DC File (*.dc)|*.dc||", {0, 1, 7, 12, 13, 16}},
    {L".jxl", L"Kestrum JobXML File", L"Kestrum JXL File (*.jxl)|*.jxl||", {2, 17}},
    {L".pwj",
     L"Plumbwick V2 Job File",
     L"Plumbwick V2 Job File (*.pwj)|*.pwj||",
     {0, 6, 10, 11, 12, 14}},
    {L".pwr",
     L"Plumbwick V2 Raw File",
     L"Plumbwick V2 Raw File (*.pwr)|*.pwr||",
     {4, 5, 6, 10, 11, 14}},
    {L".pwj", L"Plumbwick V2 Job and Raw Files",
     L"Plumbwick V2 Job and Raw Files (*.pwj,*.pwr)|*.pwj|*.pwr||", kDc},
};

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
  ASSERT_EQ(cZelGetNumFileTypes(), 19);
  for (int type = 0; type < 19; ++type) {
    SCOPED_TRACE(type);
    const TypeCase& expected = kTypeCases[type];
    EXPECT_EQ(TextOf(cZelGetExtension, type), expected.extension);
    EXPECT_EQ(TextOf(cZelGetDescription, type), expected.description);
    EXPECT_EQ(TextOf(cZelGetFileFilter, type), expected.filter);

    Types column;
    for (int row = 0; row < 19; ++row) {
      const Types& ones = kTypeCases[row].row;
      if (std::find(ones.begin(), ones.end(), type) != ones.end()) column.push_back(row);
    }
    EXPECT_EQ(ListOf(cZelGetSupportedInputTypes, type), column);
    EXPECT_EQ(ListOf(cZelGetSupportedOutputTypes, type), column);
    Types row;
    EXPECT_TRUE(CFileTypeManager().GetSupportedOutputTypes(type, row));
    EXPECT_EQ(row, expected.row);
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
