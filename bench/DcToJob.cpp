// DC to job by the exported function, beside the plain loop over the same file; and DC files of
// roads, for the time per road.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>

#include "GenerateDc.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::bench {
namespace {

constexpr std::size_t kRecordSize = 108;  // head and payload of a point

void MakeRoads(const std::string& path, std::size_t roads) {
  constexpr const char* kElements[][2] = {
      {"31", "45.0 100.0"}, {"32", "80.0 200.0"}, {"33", "40.0 200.0"}, {"31", "67.9 100.0"}};
  const auto numbers = [](std::string& line, std::initializer_list<double> values) {
    for (const double value : values) AppendNumber(line, value, 16, 5);
    line += "\r\n";
  };
  std::string dc;
  AppendHeader(dc);
  for (std::size_t i = 0; i < roads; ++i) {
    dc += "28KIR" + std::to_string(i) + "\r\n84KI";
    numbers(dc, {0.0, 45.0, 1000.0, 2000.0, 100.0});
    for (int repeat = 0; repeat < 5; ++repeat) {
      for (const auto& [type, fields] : kElements) {
        const std::string_view both = fields;
        const std::size_t blank = both.find(' ');
        dc.append(type).append("KI");
        numbers(dc, {NumberIn(both.substr(0, blank)), NumberIn(both.substr(blank))});
      }
    }
    dc += "34KI";
    numbers(dc, {0.0, 100.0});
    dc += "37KI";
    numbers(dc, {1600.0, 110.0});
    dc += "39KIT" + std::to_string(i) + "\r\n46KI3";
    AppendNumber(dc, 3.5, 16, 5);
    numbers(dc, {-2.0, 0.0});
    dc += "97KI1";
    AppendNumber(dc, 50.0, 16, 5);
    dc += '1';
    numbers(dc, {50.0});
  }
  WriteWhole(path, dc);
}

void StoreText(char* field, std::string_view text) {
  for (const char c : text) {
    *field = c;
    field += 2;
  }
}

std::string_view WithoutBlanks(std::string_view column) {
  while (!column.empty() && column.front() == ' ') column.remove_prefix(1);
  while (!column.empty() && column.back() == ' ') column.remove_suffix(1);
  return column;
}

void PlainDcToJob(const std::string& input, const std::string& output) {
  const std::string dc = ReadWhole(input);
  std::string job(4618, '\0');
  std::string_view rest = dc, line;
  while (NextLine(rest, line)) {
    if (!line.starts_with("69")) continue;
    char record[kRecordSize] = {};
    Store(record, std::uint32_t{13});
    Store(record + 4, std::uint32_t{100});
    StoreText(record + 8, WithoutBlanks(line.substr(4, 16)));
    StoreText(record + 42, WithoutBlanks(line.substr(68, 16)));
    Store(record + 76, NumberIn(line.substr(36, 16)));
    Store(record + 84, NumberIn(line.substr(20, 16)));
    Store(record + 92, NumberIn(line.substr(52, 16)));
    Store(record + 100, std::uint32_t{101});
    job.append(record, sizeof record);
  }
  WriteWhole(output, job);
}

void Convert(benchmark::State& state, const Input& input) {
  const std::wstring from = ToText(input.Path()), to = ToText(input.OutputPath(".job"));
  for (auto _ : state) {
    wchar_t** files = nullptr;
    wchar_t** messages = nullptr;
    if (cZelFileConvert(FT_DC, from.c_str(), FT_JOB, to.c_str(), &files, &messages, 0, nullptr) ==
            0 ||
        messages != nullptr) {
      state.SkipWithError("not converted");
    }
    cZelFreeAfterFileConvert(files, messages);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void PlainLoop(benchmark::State& state) {
  const Input input(".dc", static_cast<std::size_t>(state.range(0)), MakeDc);
  for (auto _ : state) PlainDcToJob(input.Path(), input.OutputPath(".job"));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void DcToJob(benchmark::State& state) {
  Convert(state, Input(".dc", static_cast<std::size_t>(state.range(0)), MakeDc));
}

void DcRoadsToJob(benchmark::State& state) {
  Convert(state, Input(".dc", static_cast<std::size_t>(state.range(0)), MakeRoads));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK(PlainLoop)->ZEL_SIZES;
BENCHMARK(DcToJob)->ZEL_SIZES;
BENCHMARK(DcRoadsToJob)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zelconvert::bench
