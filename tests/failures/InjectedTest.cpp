// Every route, with the first call of the system failing, then the second, until a run goes
// through; and the same with allocations.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "FilesIn.h"
#include "HostLists.h"
#include "RouteTable.h"
#include "TempDir.h"
#include "failures/FailingCalls.h"
#include "front/DriverRun.h"
#include "io/Clock.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;
using failing::Kind;
using failing::Times;
using failing::Watch;

constexpr std::size_t kNever = ~std::size_t{0};

// Others by two files, by a file on the way, and such as aren't supported.
constexpr Route kMoreRoutes[] = {
    {FT_JOB, L"in.job", "control.job", FT_JXL},
    {FT_DC, L"in.dc", "../tests/golden/dc-to-cr5/roads-alone/in.dc", FT_CR5},
    {FT_CR5, L"in.cr5", "../tests/golden/job-to-cr5/boundary/out.cr5", FT_DC},
    {FT_CR5, L"in.cr5", "../tests/golden/job-to-cr5/boundary/out.cr5", FT_PW_JOB},
    {FT_SDR33, L"in.sdr", "mill-creek.sdr", FT_JOB},
    {FT_RAW, L"in.raw", "mill-creek-simple.raw", FT_JOB},
    {FT_JOB_RAW, L"in.job", "control.job", FT_DC, L"in.raw", "mill-creek-simple.raw"},
    {FT_CR5_RW5, L"in.cr5", "control.job", FT_DC77, L"in.rw5", "mill-creek-simple.raw"},
};

struct Outcome {
  bool converted = false;
  std::vector<std::wstring> files, messages;
  Files made;
  bool operator==(const Outcome&) const = default;
};

// One folder for all runs of a route, so that paths are the same in all texts.
class Runs {
 public:
  explicit Runs(const Route& route) : m_route(route) {
    for (const auto& [name, example] :
         {std::pair{route.input, route.example}, {route.second, route.secondExample}}) {
      if (*name == L'\0') continue;
      dir.Write(name, ReadBytes(fs::path("examples") / example));
      fs::permissions(ToPath(dir.Path(name)), fs::perms(0444));
    }
    m_inputs = FilesIn(dir.Folder());
  }

  Outcome Convert(Kind kind, std::size_t number, Times times) {
    const ScopedClock clock({2026, 3, 5, 13, 14, 15, 16, 789}, 1);
    const std::wstring input = dir.Path(m_route.input), output = dir.Path(L"out.x");
    const std::wstring job = *m_route.second == L'p' ? dir.Path(m_route.second) : L"";
    Outcome outcome;
    HostLists lists;
    {
      const Watch watch(kind, number, times);
      outcome.converted = lists.Convert(m_route.from, input, m_route.to, output, 0, job);
      count = watch.Count();
      failed = watch.Failed();
      open = watch.Open();
    }
    outcome.files = lists.Files();
    outcome.messages = lists.Messages();
    outcome.made = FilesIn(dir.Folder());
    for (const auto& [name, bytes] : m_inputs) {
      inputsAreAsTheyWere = outcome.made[name] == bytes && IsReadOnly(dir.Folder() / name);
      fs::permissions(dir.Folder() / name, fs::perms(0444));
      outcome.made.erase(name);
    }
    for (const auto& [name, bytes] : outcome.made) fs::remove(dir.Folder() / name);
    return outcome;
  }

  const TempDir dir;
  std::size_t count = 0;
  std::string failed;
  int open = 0;
  bool inputsAreAsTheyWere = false;

 private:
  static bool IsReadOnly(const fs::path& path) {
    return fs::status(path).permissions() == fs::perms(0444);
  }

  const Route m_route;
  Files m_inputs;
};

bool Holds(const std::vector<std::wstring>& messages, std::wstring_view text) {
  return std::any_of(messages.begin(), messages.end(), [text](const std::wstring& message) {
    return message.find(text) != message.npos;
  });
}

class Injected : public testing::TestWithParam<Route> {
 protected:
  void FailEach(Kind kind, Times times) {
    Runs runs(GetParam());
    const Outcome whole = runs.Convert(kind, kNever, times);
    const std::size_t count = runs.count;
    ASSERT_GT(count, 0u);
    RecordProperty("runs", static_cast<int>(count));
    for (std::size_t number = 0; number < count; ++number) {
      const Outcome outcome = runs.Convert(kind, number, times);
      SCOPED_TRACE(testing::Message()
                   << "call " << number << " of " << count << ": " << runs.failed);
      EXPECT_EQ(runs.open, 0);
      // What isn't possible any more can't be put back, nor taken away.
      const bool isStuck = times == Times::FromThenOn && kind == Kind::Call;
      EXPECT_TRUE(runs.inputsAreAsTheyWere || isStuck || runs.failed == "chmod");
      if (outcome == whole || IsLess(outcome, whole)) continue;
      EXPECT_FALSE(outcome.converted);
      EXPECT_EQ(outcome.files, std::vector<std::wstring>());
      const bool mayStay = isStuck || runs.failed == "unlink" || runs.failed == "lstat";
      for (const auto& [name, bytes] : outcome.made) EXPECT_TRUE(mayStay) << name;
      if (kind == Kind::Call) CheckText(runs, outcome, times);
    }
  }

  // Converted all the same, without roads, or without the points of the job of a log. Between DC
  // and CR5 files the job that couldn't be deleted may have stayed.
  static bool IsLess(const Outcome& outcome, const Outcome& whole) {
    const Files& made = outcome.made;
    if (!outcome.converted || !whole.converted || !made.contains("out.x")) return false;
    if (outcome.files.empty()) return made.at("out.x") == whole.made.at("out.x");
    const bool isWithoutRoads = Holds(outcome.messages, L"could not be converted to RD5 files.");
    const bool isWithoutPoints = Holds(outcome.messages, L"points.job could not be read.");
    return (isWithoutRoads || isWithoutPoints) && made.size() == 1;
  }

  void CheckText(const Runs& runs, const Outcome& outcome, Times times) {
    const Route& route = GetParam();
    if (route.from == FT_CR5 || (route.from == FT_DC && route.to == FT_CR5)) return;
    const std::wstring input = runs.dir.Path(GetLog(route));
    ASSERT_FALSE(outcome.messages.empty());
    std::vector<DriverText> expected = {DriverText::FileMissing,  DriverText::RawFileMissing,
                                        DriverText::CannotOpen,   DriverText::CannotConvert,
                                        DriverText::CannotCreate, DriverText::CannotWrite,
                                        DriverText::NotSupported};
    if (runs.failed == "write") expected = {DriverText::CannotWrite};
    if (runs.failed == "read" && times == Times::Once)
      expected = {DriverText::CannotConvert, DriverText::CannotOpen};
    EXPECT_TRUE(std::any_of(expected.begin(), expected.end(), [&](DriverText text) {
      const bool isOfOutput = text == DriverText::CannotWrite || text == DriverText::CannotCreate;
      const std::wstring path = isOfOutput ? runs.dir.Path(L"out.x") : input;
      return outcome.messages.back() == FormatDriverText(text, path);
    })) << ToPath(outcome.messages.back());
  }

  static std::wstring_view GetLog(const Route& route) {
    return route.from == FT_JOB_RAW || route.from == FT_CR5_RW5 ? route.second : route.input;
  }
};

TEST_P(Injected, CallsThatFailOnce) {
  FailEach(Kind::Call, Times::Once);
}
TEST_P(Injected, CallsThatFailFromThenOn) {
  FailEach(Kind::Call, Times::FromThenOn);
}
TEST_P(Injected, AllocationsThatFailOnce) {
  FailEach(Kind::Allocation, Times::Once);
}
TEST_P(Injected, AllocationsThatFailFromThenOn) {
  FailEach(Kind::Allocation, Times::FromThenOn);
}

INSTANTIATE_TEST_SUITE_P(Routes, Injected, testing::ValuesIn(kRoutes),
                         RouteName<testing::TestParamInfo<Route>>);
INSTANTIATE_TEST_SUITE_P(MoreRoutes, Injected, testing::ValuesIn(kMoreRoutes),
                         RouteName<testing::TestParamInfo<Route>>);

}  // namespace
}  // namespace zelconvert
