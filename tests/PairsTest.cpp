// Every pair of types: which route it takes and what comes of it, with an example as input.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostLists.h"
#include "TempDir.h"
#include "cli/FileTypes.h"
#include "front/CFileTypeManager.h"

namespace zelconvert {
namespace {

// What becomes of a pair.
enum Outcome : char {
  kConverts = 'C',     // the output and its path
  kThroughJob = 'T',   // the output, without any list
  kEmptyJob = 'E',     // an empty job that counts as converted, and the text of kUnsupported
  kUnsupported = 'U',  // the one text and no output
  kUnread = 'F',       // nothing at all: nobody opens a CR5 input
};

struct InputCase {
  int type;
  const wchar_t* name;
  const char* example;
  // By output type: CR5 JOB RAW JOB_RAW SDR2 SDR33 DC OLD_JOB RW5 CR5_RW5 DC77 DC1000 SEQ_CR5 ILJ
  // DC1070 JXL PW_JOB PW_RAW PW_JOB_RAW
  const char* outcomes;
};

constexpr InputCase kInputs[] = {
    {FT_CR5, L"in.cr5", "control.job", "UFUUUUFFUUFFUUFUFUU"},
    {FT_JOB, L"in.job", "boundary.job", "CUUUUUCUUUCCCUCUUUU"},
    {FT_RAW, L"in.raw", "mill-creek-simple.raw", "UUUUCCCUUUCCUUCCUUU"},
    {FT_JOB_RAW, L"in.job", "control.job", "UEUUUUCEUUCCUUCUEUU"},
    {FT_SDR2, L"in.sdr", "mill-creek.sdr", "UEUUUUUEUUUUUUUUEUU"},
    {FT_SDR33, L"in.sdr", "mill-creek.sdr", "UEUUUUUEUUUUUUUUEUU"},
    {FT_DC, L"in.dc", "../tests/golden/dc-to-cr5/numbers-in-metres/in.dc", "TCUUUUUCUUUUTCUUCUU"},
    {FT_OLD_JOB, L"in.job", "boundary-old.job", "CUUUUUCUUUCCCUCUUUU"},
    {FT_RW5, L"in.rw5", "mill-creek-simple.raw", "UUUUCCCUUUCCUUCCUUU"},
    {FT_CR5_RW5, L"in.cr5", "control.job", "UEUUUUCEUUCCUUCUEUU"},
    {FT_DC77, L"in.dc", "../tests/golden/dc-to-cr5/numbers-in-metres/in.dc", "TCUUUUUCUUUUTCUUCUU"},
    {FT_DC1000, L"in.dc", "../tests/golden/dc-to-cr5/numbers-in-metres/in.dc",
     "TCUUUUUCUUUUTCUUCUU"},
    {FT_SEQ_CR5, L"in.cr5", "control.job", "UFUUUUFFUUFFUUFUFUU"},
    {FT_ILJ, L"in.ilj", "grenze.ilj", "UEUUUUCEUUCCUUCUEUU"},
    {FT_DC1070, L"in.dc", "../tests/golden/dc-to-cr5/numbers-in-metres/in.dc",
     "TCUUUUUCUUUUTCUUCUU"},
    {FT_JXL, L"in.jxl", "mill-creek.sdr", "UEUUUUUEUUUUUUUUEUU"},
    {FT_PW_JOB, L"in.pwj", "boundary.pwj", "CUUUUUCUUUCCCUCUUUU"},
    {FT_PW_RAW, L"in.pwr", "mill-creek-simple.raw", "UUUUCCCUUUCCUUCCUUU"},
    {FT_PW_JOB_RAW, L"in.pwj", "boundary.pwj", "UEUUUUCEUUCCUUCUEUU"},
};

// A folder with the input and, for a pair of files, the log beside it.
struct Folder {
  explicit Folder(const InputCase& each) : input(Copy(each.name, each.example)) {
    if (each.type == FT_JOB_RAW) Copy(L"in.raw", "mill-creek-simple.raw");
    if (each.type == FT_CR5_RW5) Copy(L"in.rw5", "mill-creek-simple.raw");
    if (each.type == FT_PW_JOB_RAW) Copy(L"in.pwr", "mill-creek.pwr");
  }
  std::wstring Copy(const wchar_t* name, const char* example) {
    return temp.Write(name, ReadBytes(std::filesystem::path("examples") / example));
  }
  std::size_t Count() const {
    const std::filesystem::directory_iterator entries(temp.Folder());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

  TempDir temp;
  std::wstring input;
};

using Texts = std::vector<std::wstring>;
const std::wstring kNotSupported = L"The conversion you specified is not supported.";

void CheckPair(const InputCase& each, int outputType, Outcome expected) {
  const Folder folder(each);
  const std::string before = ReadBytes(ToPath(folder.input));
  const std::size_t files = folder.Count();
  const std::wstring output = folder.temp.Path(L"out.x");
  HostLists lists;
  const bool converted = cZelFileConvert(each.type, folder.input.c_str(), outputType,
                                         output.c_str(), &lists.files, &lists.messages, 0, nullptr);

  const bool makesFile = expected == kConverts || expected == kThroughJob || expected == kEmptyJob;
  const bool isRefused = expected == kUnsupported || expected == kEmptyJob;
  EXPECT_EQ(converted, makesFile);
  EXPECT_EQ(folder.temp.Exists(L"out.x"), makesFile);
  EXPECT_EQ(lists.Files(),
            expected == kConverts || expected == kEmptyJob ? Texts{output} : Texts{});
  if (isRefused) {
    EXPECT_EQ(lists.Messages(), Texts{kNotSupported});
  }
  if (expected == kUnread || expected == kThroughJob) {
    EXPECT_EQ(lists.messages, nullptr);
  }
  if (expected == kConverts) {
    for (const std::wstring& text : lists.Messages()) EXPECT_NE(text, kNotSupported);
  }
  EXPECT_EQ(folder.Count(), files + (makesFile ? 1 : 0));  // no temporary job stays
  EXPECT_EQ(ReadBytes(ToPath(folder.input)), before);
}

class Pairs : public testing::TestWithParam<InputCase> {};

TEST_P(Pairs, HaveTheirOutcome) {
  const InputCase& each = GetParam();
  for (int output = 0; output < kFileTypeCount; ++output) {
    SCOPED_TRACE(testing::Message()
                 << cli::FindType(each.type)->name << " to " << cli::FindType(output)->name);
    const auto expected = static_cast<Outcome>(each.outcomes[output]);
    CheckPair(each, output, expected);
    EXPECT_EQ(cli::ConvertsTo(*cli::FindType(each.type), *cli::FindType(output)),
              expected == kConverts || expected == kThroughJob);
  }
  CheckPair(each, 19, kUnsupported);
  CheckPair(each, -1, kUnsupported);
}

INSTANTIATE_TEST_SUITE_P(Types, Pairs, testing::ValuesIn(kInputs), [](const auto& input) {
  std::string name(cli::FindType(input.param.type)->name);
  std::replace(name.begin(), name.end(), '+', '_');
  return name;
});

TEST(Pairs, RefuseNumbersThatAreNoType) {
  for (const int type : {-1, 19, 2147483647}) {
    const InputCase each{type, L"in.x", "control.job", ""};
    CheckPair(each, FT_JOB, kEmptyJob);
    CheckPair(each, FT_DC, kUnsupported);
    CheckPair(each, type, kUnsupported);
  }
}

}  // namespace
}  // namespace zelconvert
