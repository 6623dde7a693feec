// Raw logs to DC by the exported function, beside the plain loop over the same logs: sideshots, rod
// heights between them, GPS positions, and logs in which every second line looks ahead.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "GenerateLog.h"

namespace zelconvert::bench {
namespace {

// ---- The plain loop

void AppendName(std::string& dc, std::string_view name) {
  if (name.size() < 16) dc.append(16 - name.size(), ' ');
  dc += name;
}

void PlainShot(std::string& dc, std::string_view line) {
  dc += "D9F1";
  AppendName(dc, Field(line, ",OP"));
  AppendName(dc, Field(line, ",FP"));
  AppendNumber(dc, Number(Field(line, ",SD")), 16, 5);
  AppendNumber(dc, Degrees(Number(Field(line, ",ZE"))), 16, 9);
  AppendNumber(dc, Degrees(Number(Field(line, ",AR"))), 16, 9);
  AppendText(dc, Field(line, ",--"), 16);
  dc += "1         0.00100     0.000300000     0.000300000\r\n";
}

void PlainPosition(std::string& dc, std::string_view name, std::string_view position,
                   std::string_view code) {
  dc += "66XD";
  AppendName(dc, name);
  AppendNumber(dc, Degrees(Number(Field(position, ",LA"))), 16, 9);
  AppendNumber(dc, Degrees(Number(Field(position, ",LN"))), 16, 9);
  AppendNumber(dc, Number(Field(position, ",HT")) + 2, 16, 9);
  AppendText(dc, code, 16);
  dc += "21";
  AppendNumber(dc, Number(Field(position, ",RH")), 16, 9);
  AppendNumber(dc, Number(Field(position, ",RV")), 16, 9);
  dc += "\r\n";
}

void PlainRawToDc(const std::string& input, const std::string& output) {
  const std::string log = ReadWhole(input);
  std::string dc;
  dc.reserve(log.size() * 4);
  std::string_view rest = log, line, position;
  while (NextLine(rest, line)) {
    const std::string_view tag = line.substr(0, 2);
    if (tag == "SS" || tag == "TR") {
      PlainShot(dc, line);
    } else if (tag == "LS") {
      dc += "77NM";
      AppendNumber(dc, Number(Field(line, ",HR")), 16, 5);
      dc.append(32, ' ').append("\r\n");
    } else if (tag == "EP") {
      position = line;
    } else if (tag == "GS") {
      PlainPosition(dc, Field(line, ",PN"), position, Field(line, ",--"));
    }
  }
  WriteWhole(output, dc);
}

template <Log log>
void PlainLoop(benchmark::State& state) {
  const Input input(".raw", static_cast<std::size_t>(state.range(0)), MakeLog<log>);
  for (auto _ : state) PlainRawToDc(input.Path(), input.OutputPath(".dc"));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <Log log>
void RawToDc(benchmark::State& state) {
  const Input input(".raw", static_cast<std::size_t>(state.range(0)), MakeLog<log>);
  for (auto _ : state) {
    if (!ConvertLog(input.Path(), FT_DC, input.OutputPath(".dc"))) {
      state.SkipWithError("not converted");
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK_TEMPLATE(PlainLoop, Log::Sideshots)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToDc, Log::Sideshots)->ZEL_SIZES;
BENCHMARK_TEMPLATE(PlainLoop, Log::Heights)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToDc, Log::Heights)->ZEL_SIZES;
BENCHMARK_TEMPLATE(PlainLoop, Log::Gps)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToDc, Log::Gps)->ZEL_SIZES;
// The plain loop doesn't set instruments up.
BENCHMARK_TEMPLATE(RawToDc, Log::Traverse)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToDc, Log::Setups)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToDc, Log::Backsights)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToDc, Log::Vectors)->ZEL_SIZES;

}  // namespace
}  // namespace zelconvert::bench
