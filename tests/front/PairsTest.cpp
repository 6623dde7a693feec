// Every pair of types: which route it takes and what comes of it, with an example as input.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CaseFile.h"
#include "FilesIn.h"
#include "HostLists.h"
#include "TempDir.h"
#include "cli/FileTypes.h"
#include "front/CFileTypeManager.h"
#include "front/Routes.h"
#include "io/Strings.h"

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
  std::wstring name;
  std::string example;
  std::string outcomes;  // by output type
};

std::vector<InputCase> InputCases() {
  std::vector<InputCase> cases;
  for (const CaseFields& texts : ReadCases("tests/golden-lines/pairs.txt")) {
    const int type = static_cast<int>(cases.size());
    cases.push_back({type, texts[0], ToNarrow(texts[1]), ToNarrow(texts.at(2))});
  }
  return cases;
}

// A folder with the input and, for a pair of files, the log beside it.
struct Folder {
  explicit Folder(const InputCase& each) : input(Copy(each.name, each.example)) {
    if (each.type == FT_JOB_RAW) Copy(L"in.raw", "mill-creek-simple.raw");
    if (each.type == FT_CR5_RW5) Copy(L"in.rw5", "mill-creek-simple.raw");
    if (each.type == FT_PW_JOB_RAW) Copy(L"in.pwr", "mill-creek.pwr");
  }
  std::wstring Copy(const std::wstring& name, const std::string& example) {
    return temp.Write(name, ReadBytes(std::filesystem::path("examples") / example));
  }
  std::size_t Count() const { return FilesIn(temp.Folder()).size(); }

  TempDir temp;
  std::wstring input;
};

using Texts = std::vector<std::wstring>;
const std::wstring kNotSupported = L"The conversion you specified is not supported.";

bool IsCarried(int inputType, int outputType) {
  const Route* route = FindRoute(inputType, outputType);
  return route != nullptr && route->carries;
}

void CheckPair(const InputCase& each, int outputType, Outcome expected) {
  const Folder folder(each);
  const std::string before = ReadBytes(ToPath(folder.input));
  const std::size_t files = folder.Count();
  const std::wstring output = folder.temp.Path(L"out.x");
  HostLists lists;
  wchar_t* none[] = {nullptr};  // an empty list leaves what the host had there
  lists.files = lists.messages = none;
  const bool converted = lists.Convert(each.type, folder.input, outputType, output);
  for (wchar_t*** list : {&lists.files, &lists.messages}) {
    EXPECT_TRUE(*list == none || **list != nullptr);
    if (*list == none) *list = nullptr;
  }

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
    const auto expected = static_cast<Outcome>(each.outcomes.at(static_cast<std::size_t>(output)));
    CheckPair(each, output, expected);
    EXPECT_EQ(IsCarried(each.type, output), expected == kConverts || expected == kThroughJob);
  }
  CheckPair(each, 19, kUnsupported);
  CheckPair(each, -1, kUnsupported);
}

INSTANTIATE_TEST_SUITE_P(Types, Pairs, testing::ValuesIn(InputCases()), [](const auto& input) {
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
