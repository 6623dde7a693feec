// Job to CR5 by the exported function, beside the plain loop over the same file.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "Generate.h"
#include "GenerateJob.h"
#include "PlainLoop.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::bench {
namespace {

// A CR5 record, in a size that sorts well.
struct PlainRecord {
  int number;
  char rest[41];
};

std::vector<PlainRecord> PlainPoints(const std::string& job) {
  std::vector<PlainRecord> records;
  records.reserve(job.size() / 108);
  for (std::size_t at = Load<std::uint32_t>(job.data() + 30); at + 8 <= job.size();) {
    const char* head = job.data() + at;
    const char* payload = head + 8;
    if (Load<std::uint32_t>(head) == 13) {
      PlainRecord record = {};
      for (const char* name = payload; *name != 0; name += 2) {
        record.number = record.number * 10 + (*name - '0');
      }
      std::memcpy(record.rest, payload + 68, 24);
      for (int i = 0; i < 16 && payload[34 + 2 * i] != 0; ++i) {
        record.rest[24 + i] = payload[34 + 2 * i];
      }
      records.push_back(record);
    }
    at += 8 + Load<std::uint32_t>(head + 4);
  }
  return records;
}

void PlainJobToCr5(const std::string& input, const std::string& output) {
  std::vector<PlainRecord> records = PlainPoints(ReadWhole(input));
  const auto below = [](const auto& a, const auto& b) { return a.number < b.number; };
  if (!std::is_sorted(records.begin(), records.end(), below)) {
    std::sort(records.begin(), records.end(), below);
  }
  std::string cr5("CONVTDLL");
  cr5.resize(38 + 45 * records.size());
  Store(cr5.data() + 30, records.back().number);
  Store(cr5.data() + 34, -1);
  char* place = cr5.data() + 38;
  for (const PlainRecord& record : records) {
    Store(place, record.number);
    std::memcpy(place + 4, record.rest, sizeof record.rest);
    place += 45;
  }
  WriteWhole(output, cr5);
}

template <Order order>
void PlainLoop(benchmark::State& state) {
  const Input input(".job", static_cast<std::size_t>(state.range(0)), MakeJob<order>);
  for (auto _ : state) PlainJobToCr5(input.Path(), input.OutputPath(".cr5"));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <Order order>
void JobToCr5(benchmark::State& state) {
  const Input input(".job", static_cast<std::size_t>(state.range(0)), MakeJob<order>);
  const std::wstring from = ToText(input.Path()), to = ToText(input.OutputPath(".cr5"));
  for (auto _ : state) {
    wchar_t** files = nullptr;
    wchar_t** messages = nullptr;
    if (cZelFileConvert(FT_JOB, from.c_str(), FT_CR5, to.c_str(), &files, &messages, 0, nullptr) ==
        0) {
      state.SkipWithError("not converted");
    }
    cZelFreeAfterFileConvert(files, messages);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK(PlainLoop<Order::Ascending>)->ZEL_SIZES;
BENCHMARK(JobToCr5<Order::Ascending>)->ZEL_SIZES;
BENCHMARK(PlainLoop<Order::Shuffled>)->ZEL_SIZES;
BENCHMARK(JobToCr5<Order::Shuffled>)->ZEL_SIZES;

}  // namespace
}  // namespace zelconvert::bench
