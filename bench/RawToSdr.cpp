// Raw logs to SDR33 by the exported function, beside the plain loop over the same logs.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "GenerateLog.h"

namespace zelconvert::bench {
namespace {

void AppendName(std::string& sdr, std::string_view name) {
  if (name.size() < 16) sdr.append(16 - name.size(), ' ');
  sdr += name;
}

// Numbers stand at the left of their columns.
void AppendReal(std::string& sdr, double value, int decimals) {
  const std::size_t start = sdr.size();
  AppendNumber(sdr, value, 0, decimals);
  sdr.append(start + 16 - sdr.size(), ' ');
}

void PlainRawToSdr(const std::string& input, const std::string& output) {
  const std::string log = ReadWhole(input);
  std::string sdr;
  sdr.reserve(log.size() * 3);
  std::string_view rest = log, line;
  while (NextLine(rest, line)) {
    const std::string_view tag = line.substr(0, 2);
    if (tag == "SS" || tag == "TR") {
      sdr += "09F1";
      AppendName(sdr, Field(line, ",OP"));
      AppendName(sdr, Field(line, ",FP"));
      AppendReal(sdr, Number(Field(line, ",SD")), 5);
      AppendReal(sdr, Degrees(Number(Field(line, ",ZE"))), 5);
      AppendReal(sdr, Degrees(Number(Field(line, ",AR"))), 5);
      AppendText(sdr, Field(line, ",--"), 16);
      sdr += "\r\n";
    } else if (tag == "LS") {
      sdr += "03NM";
      AppendReal(sdr, Number(Field(line, ",HR")), 3);
      sdr += "\r\n";
    }
  }
  WriteWhole(output, sdr);
}

template <Log log>
void PlainLoop(benchmark::State& state) {
  const Input input(".raw", static_cast<std::size_t>(state.range(0)), MakeLog<log>);
  for (auto _ : state) PlainRawToSdr(input.Path(), input.OutputPath(".sdr"));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <Log log>
void RawToSdr(benchmark::State& state) {
  const Input input(".raw", static_cast<std::size_t>(state.range(0)), MakeLog<log>);
  for (auto _ : state) {
    if (!ConvertLog(input.Path(), FT_SDR33, input.OutputPath(".sdr"))) {
      state.SkipWithError("not converted");
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK_TEMPLATE(PlainLoop, Log::Sideshots)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToSdr, Log::Sideshots)->ZEL_SIZES;
BENCHMARK_TEMPLATE(PlainLoop, Log::Heights)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToSdr, Log::Heights)->ZEL_SIZES;
// The plain loop doesn't set instruments up.
BENCHMARK_TEMPLATE(RawToSdr, Log::Traverse)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToSdr, Log::Setups)->ZEL_SIZES;

}  // namespace
}  // namespace zelconvert::bench
