// Progress: what a host's window receives, in which order.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "HostLists.h"
#include "TempDir.h"
#include "cli/FileTypes.h"
#include "convert/CConvertProgress.h"
#include "front/CFileTypeManager.h"
#include "io/Clock.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert {
namespace {

#if !defined(_WIN32)  // a real window stands in tests/windows

struct Message {
  std::uint32_t number;
  std::uintptr_t wParam;
  std::intptr_t lParam;
  std::wstring text;  // of a start
  bool operator==(const Message&) const = default;
};

struct Host : ZelWindow {
  Host() : ZelWindow{&Receive} { cZelSetupZelConvertDLLCallBack(this); }
  ~Host() { cZelSetupZelConvertDLLCallBack(nullptr); }
  static std::intptr_t Receive(ZelWindow* window, std::uint32_t number, std::uintptr_t wParam,
                               std::intptr_t lParam) {
    Host& host = *static_cast<Host*>(window);
    auto& messages = host.messages;
    if (host.watch) host.watch();
    if (wParam == 0) {
      messages.push_back({number, wParam, 0, reinterpret_cast<const wchar_t*>(lParam)});
    } else {
      messages.push_back({number, wParam, lParam, L""});
    }
    return 0;
  }
  std::vector<Message> messages;
  std::function<void()> watch;  // called at each of them
};

constexpr std::uint32_t kMessage = ZEL_CONVERT_CALLBACK_MESSAGE;

TEST(Progress, SendsStartPercentAndEnd) {
  const Host host;
  {
    CConvertProgress progress;
    progress.SetPercent(1);  // not started: nothing
    progress.End();
    progress.Start();
    progress.Start(L"once only");
    progress.SetPercent(0);
    progress.SetPosition(1, 3);
    progress.SetPosition(2, 3);
    progress.SetPosition(3, 3);
    progress.SetPosition(3, 0);
    progress.End();  // once for all: its destruction ends it, too
  }
  const std::vector<Message> expected = {
      {kMessage, 0, 0, L"Start converting..."},
      {kMessage, 1, 0, L""},
      {kMessage, 1, 33, L""},
      {kMessage, 1, 67, L""},
      {kMessage, 1, 100, L""},
      {kMessage, 1, -1, L""},  // no length, no percentage
      {kMessage, 2, 0, L""},
  };
  EXPECT_EQ(host.messages, expected);
}

TEST(Progress, ReachesNoWindowThatIsGone) {
  Host host;
  {
    CConvertProgress progress;
    progress.Start();
    host.procedure = nullptr;
    progress.SetPercent(50);
    progress.End();
    progress.End();
  }
  EXPECT_EQ(host.messages.size(), 1u);
  cZelSetupZelConvertDLLCallBack(nullptr);
  CConvertProgress progress;
  progress.Start();
  progress.SetPosition(1, 2);
}

// How far these bytes have been read at each of their records: after a line, before the head
// of a job's record.
std::vector<std::size_t> Places(const std::string& bytes) {
  std::vector<std::size_t> places;
  if (bytes.find(" Job File") > bytes.find('\n')) {
    for (std::size_t at = 0; (at = bytes.find('\n', at)) != bytes.npos;) places.push_back(++at);
    return places;
  }
  std::uint32_t at = 0, length = 0;
  for (std::memcpy(&at, &bytes[30], 4); at < bytes.size(); at += 8 + length) {
    places.push_back(at);
    std::memcpy(&length, &bytes[at + 4], 4);
  }
  return places;
}

// Of a conversion that reads records `passes` times, but for the first `skipped`.
std::vector<Message> Told(const std::string& bytes, std::size_t passes, std::size_t skipped = 0) {
  std::vector<Message> told = {{kMessage, 0, 0, L"Start converting..."}};
  const std::vector<std::size_t> places = Places(bytes);
  for (std::size_t i = skipped; i < passes * places.size(); ++i) {
    const std::size_t read = i / places.size() * bytes.size() + places[i % places.size()];
    told.push_back(
        {kMessage, 1, std::lround(100.0 * double(read) / double(passes * bytes.size())), L""});
  }
  told.push_back({kMessage, 2, 0, L""});
  return told;
}

TEST(Progress, TellsHowFarEveryRouteHasRead) {
  int from = 0;
  for (const CaseFields& pairs : ReadCases("tests/golden-lines/pairs.txt")) {
    const std::string bytes = ReadBytes(std::filesystem::path("examples") / ToPath(pairs[1]));
    const bool isPair = cli::FindType(from)->name.find('+') != std::string_view::npos;
    for (int to = 0; to < kFileTypeCount && !isPair; ++to) {
      if (pairs[2].at(static_cast<std::size_t>(to)) != L'C') continue;
      SCOPED_TRACE(testing::Message() << from << " to " << to);
      const TempDir dir;
      const std::wstring input = dir.Write(pairs[0], bytes);
      const Host host;
      EXPECT_TRUE(HostLists().Convert(from, input, to, dir.Path(L"out")));
      const bool readsTwice = to == FT_CR5 || to == FT_SEQ_CR5;
      EXPECT_EQ(host.messages, Told(bytes, readsTwice ? 2 : 1, to == FT_JXL ? 1 : 0));
    }
    ++from;
  }
}

TEST(Progress, TellsOfTwoStagesAndTheJobBetweenThem) {
  const TempDir dir, current;
  const std::string dc = ReadBytes("tests/golden/dc-to-cr5/roads-alone/in.dc");
  const std::wstring input = dir.Write(L"in.dc", dc);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(current.Folder());
  EXPECT_TRUE(HostLists().Convert(FT_DC, input, FT_JOB, L"out.job"));
  EXPECT_TRUE(current.Exists(L"Main_St_.RD5"));  // beside the job
  std::vector<Message> expected = Told(dc, 1);
  for (const Message& message : Told(current.Read(L"out.job"), 2)) expected.push_back(message);
  for (const auto& [output, folder] :
       {std::pair{dir.Path(L"out.cr5"), &dir}, {L"out.cr5", &current}}) {
    const ScopedClock clock({}, 76);
    folder->Write(L"temp76.job", "precious");
    Host host;
    host.watch = [&, &folder = *folder] { EXPECT_TRUE(folder.Exists(L"temp77.job")); };
    EXPECT_TRUE(HostLists().Convert(FT_DC, input, FT_CR5, output));
    EXPECT_EQ(host.messages, expected);
    EXPECT_TRUE(folder->Exists(L"out.cr5") && !folder->Exists(L"temp77.job"));
    EXPECT_EQ(folder->Read(L"temp76.job"), "precious");
  }
  std::filesystem::current_path(before);
}

// Another conversion of a file, and of the same, from within the procedure.
TEST(Progress, LetsItsProcedureConvert) {
  const TempDir dir;
  const std::wstring job = dir.Write(L"in.job", ReadBytes("examples/boundary.job"));
  const std::wstring log = dir.Write(L"in.raw", ReadBytes("examples/mill-creek-simple.raw"));
  ASSERT_TRUE(HostLists().Convert(FT_JOB, job, FT_DC, dir.Path(L"alone.dc")));
  const auto alone = Told(dir.Read(L"in.job"), 1), inner = Told(dir.Read(L"in.raw"), 1);
  Host host;
  int calls = 0;
  host.watch = [&] {
    if (++calls != 4) return;  // in the midst of the job
    EXPECT_TRUE(HostLists().Convert(FT_RAW, log, FT_DC, dir.Path(L"inner.dc")));
    HostLists again;
    EXPECT_FALSE(again.Convert(FT_JOB, job, FT_CR5, dir.Path(L"again.cr5")));
    EXPECT_EQ(again.Messages(),
              std::vector<std::wstring>{L"Unable to open the file " + job + L"."});
    EXPECT_EQ(cZelGetFileType(job.c_str()), FT_JOB);
  };
  EXPECT_TRUE(HostLists().Convert(FT_JOB, job, FT_DC, dir.Path(L"out.dc")));
  EXPECT_EQ(dir.Read(L"out.dc"), dir.Read(L"alone.dc"));
  std::vector<Message> told(alone.begin(), alone.begin() + 3);
  told.insert(told.end(), inner.begin(), inner.end());
  told.insert(told.end(), alone.begin() + 3, alone.end());
  EXPECT_EQ(host.messages, told);
}

TEST(Progress, GoesToTheWindowOfItsStart) {
  Host host;
  {
    CConvertProgress progress;
    progress.Start();
    {
      const Host other;
      progress.SetPercent(50);
      progress.SetPosition(1, 2);
      EXPECT_TRUE(other.messages.empty());
    }
    progress.End();  // the first was taken away
  }
  EXPECT_EQ(host.messages.size(), 1u);
}

#endif

}  // namespace
}  // namespace zelconvert
