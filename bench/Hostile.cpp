// Hostile files at two sizes: time for a byte of the larger one over that of the smaller is the
// counter "ratio", near 1 where time grows with the input and no faster. ZEL_HOSTILE_MIB in the
// environment is the larger size, 8 without it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

#include "tests/HostLists.h"
#include "tests/TempDir.h"
#include "tests/memory/HostileFiles.h"

namespace zelconvert::bench {
namespace {

std::size_t LargeSize() {
  const char* const mebibytes = std::getenv("ZEL_HOSTILE_MIB");
  return static_cast<std::size_t>(mebibytes == nullptr ? 8 : std::max(2, std::atoi(mebibytes)))
         << 20;
}

// Of the process, in seconds for a byte: the best of some runs.
double Time(const HostileFile& file, FileType to, std::size_t size, int runs) {
  const TempDir dir;
  const std::wstring input = dir.Write(L"in.x", MakeHostile(file, size));
  std::clock_t best = std::numeric_limits<std::clock_t>::max();
  for (int i = 0; i < runs; ++i) {
    const std::clock_t start = std::clock();
    HostLists().Convert(file.type, input, to, dir.Path(L"out.job"));
    best = std::min(best, std::clock() - start);
  }
  return static_cast<double>(best) / CLOCKS_PER_SEC / static_cast<double>(size);
}

void Hostile(benchmark::State& state, const HostileFile& file, FileType to) {
  const std::size_t large = LargeSize(), small = large / 8;
  for (auto _ : state) {
    const double slow = Time(file, to, large, 1);
    state.SetIterationTime(slow * static_cast<double>(large));
    state.counters["ns_a_byte"] = slow * 1e9;
    state.counters["ratio"] = slow / Time(file, to, small, 3);
  }
}

bool Register() {
  for (const HostileFile& file : ReadHostileFiles()) {
    for (const FileType to : OutputsOf(file.type)) {
      const std::string name = file.name + "/" + std::to_string(to);
      benchmark::RegisterBenchmark(name.c_str(), Hostile, file, to)
          ->Iterations(1)
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    }
  }
  return true;
}
const bool kRegistered = Register();

}  // namespace
}  // namespace zelconvert::bench
