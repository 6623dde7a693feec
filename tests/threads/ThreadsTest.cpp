// Conversions side by side in the threads of one process: each makes what it makes alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "CaseFile.h"
#include "FilesIn.h"
#include "HostLists.h"
#include "TempDir.h"
#include "convert/GpsSecurity.h"
#include "front/CFileTypeManager.h"
#include "io/Clock.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

constexpr unsigned kThreads = 4;

struct Task {
  int from;
  std::wstring name, example;
  int to;
};

// Every pair of types, and inputs with roads and with GPS records.
std::vector<Task> Tasks() {
  std::vector<Task> tasks;
  int from = 0;
  for (const CaseFields& pairs : ReadCases("tests/golden-lines/pairs.txt")) {
    for (int to = 0; to < kFileTypeCount; ++to) tasks.push_back({from, pairs[0], pairs[1], to});
    ++from;
  }
  for (const int to : {FT_JOB, FT_CR5, FT_ILJ}) {
    tasks.push_back({FT_DC, L"in.dc", L"ridge-road.dc", to});
  }
  for (const int to : {FT_DC, FT_JXL}) tasks.push_back({FT_RAW, L"in.raw", L"prairie-rtk.raw", to});
  return tasks;
}

// What a conversion leaves: its result, its lists without the folder, every file.
struct Outcome {
  bool converted = false;
  std::vector<std::wstring> texts;
  Files files;
  bool operator==(const Outcome&) const = default;
};

Outcome Convert(const Task& task) {
  const TempDir dir;
  const std::wstring folder = dir.Path(L"");
  const std::string bytes = ReadBytes(std::filesystem::path("examples") / ToPath(task.example));
  const std::wstring input = dir.Write(task.name, bytes);
  HostLists lists;
  Outcome outcome;
  outcome.converted = lists.Convert(task.from, input, task.to, dir.Path(L"out.x"));
  for (const auto& list : {lists.Files(), lists.Messages()}) {
    for (std::wstring text : list) {
      if (const auto at = text.find(folder); at != text.npos) text.erase(at, folder.size());
      outcome.texts.push_back(text);
    }
  }
  outcome.files = FilesIn(dir.Folder());
  return outcome;
}

template <class Work>
void InThreads(Work work) {
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kThreads; ++i) threads.emplace_back([&work, i] { work(i); });
  for (std::thread& thread : threads) thread.join();
}

#if !defined(_WIN32)
// What arrives on a thread: from each of its conversions a start, and an end after it.
thread_local int t_running = 0;
std::atomic<int> g_disorder = 0, g_starts = 0;

std::intptr_t Receive(ZelWindow*, std::uint32_t, std::uintptr_t kind, std::intptr_t) {
  if (kind == 0) ++g_starts;
  if (kind == 0) ++t_running;
  if (t_running != 1) ++g_disorder;
  if (kind == 2) --t_running;
  return 0;
}
#endif

TEST(Threads, ConvertAsOneDoes) {
  const ScopedClock clock({2026, 3, 5, 13, 14, 15, 16, 789}, 1);
  const std::vector<Task> tasks = Tasks();
  std::vector<Outcome> alone;
  for (const Task& task : tasks) alone.push_back(Convert(task));
#if !defined(_WIN32)
  ZelWindow window{&Receive};
  cZelSetupZelConvertDLLCallBack(&window);
#endif
  std::atomic<int> unlike = 0;
  InThreads([&](unsigned thread) {
    for (std::size_t i = 0; i < tasks.size(); ++i) {
      const std::size_t at = (i + thread * tasks.size() / kThreads) % tasks.size();
      unlike += Convert(tasks[at]) != alone[at];
    }
  });
  EXPECT_EQ(unlike, 0);
#if !defined(_WIN32)
  cZelSetupZelConvertDLLCallBack(nullptr);
  EXPECT_EQ(g_disorder, 0);
  EXPECT_GT(g_starts, 0);
#endif
}

TEST(Threads, TellTypesAndChangeSettingsMeanwhile) {
  const TempDir dir;
  const std::wstring input = dir.Write(L"in.job", ReadBytes("examples/boundary.job"));
  std::atomic<int> unlike = 0;
  InThreads([&](unsigned thread) {
    for (int i = 0; i < 100; ++i) {
      if (thread == 0) {  // the input of a conversion is recognised all the same
        unlike += !HostLists().Convert(FT_JOB, input, FT_DC, dir.Path(L"out.dc"));
        continue;
      }
      unlike += cZelGetFileType(input.c_str()) != FT_JOB;
      int* list = nullptr;
      int count = 0;
      wchar_t text[128];
      unlike += cZelGetSupportedInputTypes(FT_SDR2, &list, &count) != 1 || count != 2;
#if !defined(_WIN32)
      std::free(list);
#endif
      unlike += cZelGetFileFilter(FT_JXL, text) != 1;
      cZelSetGpsSecurityInDcConversions(i % 2 != 0);
      cZelSetupZelConvertDLLCallBack(nullptr);
    }
  });
  cZelSetGpsSecurityInDcConversions(1);
  EXPECT_EQ(unlike, 0);
}

// The job between the two types has a name of its own in every thread.
TEST(Threads, ShareAFolder) {
  const TempDir dir;
  const std::string dc = ReadBytes("tests/golden/dc-to-cr5/numbers-in-metres/in.dc");
  const auto name = [](unsigned thread, const wchar_t* extension) {
    return std::to_wstring(thread) + extension;
  };
  for (unsigned i = 0; i < kThreads; ++i) dir.Write(name(i, L".dc"), dc);
  const auto convert = [&](unsigned i) {
    return HostLists().Convert(FT_DC, dir.Path(name(i, L".dc")), FT_CR5,
                               dir.Path(name(i, L".cr5")));
  };
  ASSERT_TRUE(convert(0));
  const std::string expected = dir.Read(L"0.cr5");
  std::atomic<int> unlike = 0;
  InThreads([&](unsigned i) {
    for (int times = 0; times < 20; ++times) {
      unlike += !convert(i) || dir.Read(name(i, L".cr5")) != expected;
    }
  });
  EXPECT_EQ(unlike, 0);
  EXPECT_EQ(FilesIn(dir.Folder()).size(), 2 * kThreads);
}

TEST(Threads, OpenAFileForOneWriterAtATime) {
  const TempDir dir;
  const std::wstring path = dir.Path(L"out.dc");
  std::atomic<int> writers = 0, crowds = 0, opened = 0;
  InThreads([&](unsigned) {
    for (int i = 0; i < 200; ++i) {
      platform::File file;
      if (!file.Open(path, platform::kCreateOutput)) continue;
      ++opened;
      crowds += ++writers != 1 || !dir.Exists(L"out.dc");  // nor may another delete it
      std::ignore = file.Write("x", 1);
      --writers;
    }
  });
  EXPECT_EQ(crowds, 0);
  EXPECT_GT(opened, 0);
}

TEST(Threads, ExemptNoOtherFromTheGpsSecurity) {
  const WithoutGpsSecurity exempt;
  bool isOnElsewhere = false;
  { const WithoutGpsSecurity again; }
  std::thread([&] { isOnElsewhere = IsGpsSecurityOn(); }).join();
  EXPECT_FALSE(IsGpsSecurityOn());
  EXPECT_TRUE(isOnElsewhere);
}

}  // namespace
}  // namespace zelconvert
