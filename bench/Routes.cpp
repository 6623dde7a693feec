// Every route by the exported function beside two plain loops over the same file, in one run: the
// ratio of the route's processor time to the better loop's, and the memory of the route at its
// peak. bench/run.sh makes a table of it.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "LogLoops.h"
#include "PointLoops.h"
#include "RoadLoop.h"
#include "RouteInputs.h"

namespace zelconvert::bench {
namespace {

struct PlainLoop {
  void (*make)(const std::string& path, std::size_t records);  ///< of the inputs that it reads
  FileType to;
  void (*whole)(WholeFiles& files);
  void (*streamed)(StreamedFiles& files);
};
// No plain loop sets instruments up, reads vectors or deletes points.
constexpr PlainLoop kPlainLoops[] = {
    {MakeJob<Order::Ascending>, FT_CR5, PlainJobToCr5, PlainJobToCr5},
    {MakeJob<Order::Shuffled>, FT_CR5, PlainJobToCr5, PlainJobToCr5},
    {MakeJob<Order::Ascending>, FT_DC, PlainJobToDc, PlainJobToDc},
    {MakeDc, FT_JOB, PlainDcToJob, PlainDcToJob},
    {MakeDc, FT_ILJ, PlainDcToIlj, PlainDcToIlj},
    {MakeIlj, FT_DC, PlainIljToDc, PlainIljToDc},
    {MakeLog<Log::Sideshots>, FT_DC, PlainRawToDc, PlainRawToDc},
    {MakeLog<Log::Heights>, FT_DC, PlainRawToDc, PlainRawToDc},
    {MakeLog<Log::Gps>, FT_DC, PlainRawToDc, PlainRawToDc},
    {MakeLog<Log::Sideshots>, FT_SDR33, PlainRawToSdr, PlainRawToSdr},
    {MakeLog<Log::Heights>, FT_SDR33, PlainRawToSdr, PlainRawToSdr},
    {MakeLog<Log::Sideshots>, FT_JXL, PlainRawToJxl, PlainRawToJxl},
    {MakeLongRoad, FT_JOB, PlainRoads, PlainRoads},
    {MakeRoads, FT_JOB, PlainRoads, PlainRoads},
};

const PlainLoop* LoopOf(const RouteInput& route) {
  const auto* found = std::find_if(
      std::begin(kPlainLoops), std::end(kPlainLoops),
      [&](const PlainLoop& loop) { return loop.make == route.make && loop.to == route.to; });
  return found != std::end(kPlainLoops) ? found : nullptr;
}

/// Processor time, which other programs change little.
double Seconds() {
  std::timespec now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

template <class Work>
double Timed(Work work) {
  const double start = Seconds();
  work();
  return Seconds() - start;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// A line of /proc/self/status, in KiB.
double StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (double value = 0; word == name && status >> value) return value;
  }
  return 0;
}

/// What the work takes in memory, in KiB: measured in a process of its own.
template <class Work>
double PeakOf(Work work) {
  int ends[2];
  if (pipe(ends) != 0) return 0;
  const pid_t child = fork();
  if (child == 0) {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5;  // the peak starts anew
    const double before = StatusOf("VmRSS:");
    work();
    const double peak = StatusOf("VmHWM:") - before;
    _exit(write(ends[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
  }
  double peak = 0;
  close(ends[1]);
  if (read(ends[0], &peak, sizeof peak) != sizeof peak) peak = 0;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return peak;
}

void Measure(benchmark::State& state, const RouteInput& route) {
  const Input input(route.inputExtension, static_cast<std::size_t>(state.range(0)), route.make);
  const std::string output = input.OutputPath(route.outputExtension);
  const PlainLoop* loop = LoopOf(route);
  const auto convert = [&] {
    if (!ConvertRoute(route, input.Path(), output)) state.SkipWithError("not converted");
  };
  state.counters["peak"] = PeakOf(convert);
  std::vector<double> whole, streamed, ours;
  for (auto _ : state) {
    if (loop != nullptr) {
      whole.push_back(Timed([&] {
        WholeFiles files(input.Path(), output);
        loop->whole(files);
      }));
      streamed.push_back(Timed([&] {
        StreamedFiles files(input.Path(), output);
        loop->streamed(files);
      }));
    }
    ours.push_back(Timed(convert));
    state.SetIterationTime(ours.back());
  }
  const double time = Median(ours);
  state.counters["record"] = 1e9 * time / static_cast<double>(state.range(0));
  if (loop == nullptr) return;
  state.counters["whole"] = time / Median(whole);
  state.counters["streamed"] = time / Median(streamed);
  state.counters["ratio"] = time / std::min(Median(whole), Median(streamed));
}

void Register() {
  for (const RouteInput& route : kRouteInputs) {
    for (const auto& [records, times] :
         {std::pair(10'000, 31), {100'000, 7}, {1'000'000, 3}, {10'000'000, 1}}) {
      const auto measure = [&route](benchmark::State& state) { Measure(state, route); };
      auto* measured = benchmark::RegisterBenchmark(route.name, measure);
      measured->Arg(records)->Iterations(times)->UseManualTime()->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace
}  // namespace zelconvert::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  zelconvert::bench::Register();
  benchmark::RunSpecifiedBenchmarks();
}
