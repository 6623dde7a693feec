// Job to DC by the exported function, beside the plain loop over the same file.
#include <benchmark/benchmark.h>

#include "Generate.h"
#include "GenerateJob.h"
#include "PlainLoop.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::bench {
namespace {

std::string_view Text(const char* units, char* text) {
  std::size_t size = 0;
  for (; size < 16 && units[2 * size] != 0; ++size) text[size] = units[2 * size];
  return {text, size};
}

void PlainJobToDc(const std::string& input, const std::string& output) {
  const std::string job = ReadWhole(input);
  std::string dc;
  dc.reserve(job.size());
  for (std::size_t at = Load<std::uint32_t>(job.data() + 30); at + 8 <= job.size();) {
    const char* head = job.data() + at;
    const char* payload = head + 8;
    if (Load<std::uint32_t>(head) == 13) {
      char text[16];
      const std::string_view name = Text(payload, text);
      dc.append("69KI").append(16 - name.size(), ' ').append(name);
      AppendNumber(dc, Load<double>(payload + 76), 16, 5);
      AppendNumber(dc, Load<double>(payload + 68), 16, 5);
      AppendNumber(dc, Load<double>(payload + 84), 16, 5);
      AppendText(dc, Text(payload + 34, text), 16);
      dc.append("11\r\n");
    }
    at += 8 + Load<std::uint32_t>(head + 4);
  }
  WriteWhole(output, dc);
}

void PlainLoop(benchmark::State& state) {
  const Input input(".job", static_cast<std::size_t>(state.range(0)), MakeJob<Order::Ascending>);
  for (auto _ : state) PlainJobToDc(input.Path(), input.OutputPath(".dc"));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void JobToDc(benchmark::State& state) {
  const Input input(".job", static_cast<std::size_t>(state.range(0)), MakeJob<Order::Ascending>);
  const std::wstring from = ToText(input.Path()), to = ToText(input.OutputPath(".dc"));
  for (auto _ : state) {
    wchar_t** files = nullptr;
    wchar_t** messages = nullptr;
    if (cZelFileConvert(FT_JOB, from.c_str(), FT_DC, to.c_str(), &files, &messages, 0, nullptr) ==
        0) {
      state.SkipWithError("not converted");
    }
    cZelFreeAfterFileConvert(files, messages);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK(PlainLoop)->ZEL_SIZES;
BENCHMARK(JobToDc)->ZEL_SIZES;

}  // namespace
}  // namespace zelconvert::bench
