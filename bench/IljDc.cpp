// ILJ to DC and DC to ILJ by the exported function, beside plain loops over the same files.
#include <benchmark/benchmark.h>

#include "GenerateDc.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::bench {
namespace {

void AppendField(std::string& line, std::string_view tag, double value) {
  line += tag;
  AppendNumber(line, value, 0, 5);
}

void AppendPoint(std::string& ilj, std::string_view name, std::string_view code, double north,
                 double east, double elevation) {
  ilj += "POINT\tDATE:20260917\tTIME:090001\tDERV:KI\tPTNM:";
  ilj += name;
  ilj += "\tDESC:";
  ilj += code;
  AppendField(ilj, "\tNRTH:", north);
  AppendField(ilj, "\tEAST:", east);
  AppendField(ilj, "\tELEV:", elevation);
  ilj += "\tCDTY:9\tCDOR:1\tCDCL:1\r\n";
}

void MakeIlj(const std::string& path, std::size_t points) {
  std::string ilj = "\xEF\xBB\xBFJOBMO\tDATE:20260917\tTIME:090001\tUNDI:1\tUNAN:0\tDESC:1.0.0\r\n";
  for (std::size_t i = 0; i < points; ++i) {
    const Point point = MakePoint(i);
    AppendPoint(ilj, "P" + std::to_string(point.number), point.code, point.north, point.east,
                point.elevation);
  }
  WriteWhole(path, ilj);
}

std::string_view ValueOf(std::string_view line, std::string_view tag) {
  const std::size_t at = line.find(tag);
  if (at == line.npos) return {};
  line.remove_prefix(at + tag.size());
  return line.substr(0, line.find('\t'));
}

void PlainIljToDc(const std::string& input, const std::string& output) {
  constexpr double kFeet = 3.280839895013123;
  const std::string ilj = ReadWhole(input);
  std::string dc = "00NMFX V10               13-Mar-26 14:15122112\r\n";
  std::string_view rest = ilj, line;
  while (NextLine(rest, line)) {
    if (!line.starts_with("POINT")) continue;
    const std::string_view name = ValueOf(line, "\tPTNM:");
    dc += "69";
    dc += ValueOf(line, "\tDERV:");
    dc.append(16 - name.size(), ' ');
    dc += name;
    AppendNumber(dc, NumberIn(ValueOf(line, "\tNRTH:")) * kFeet, 16, 5);
    AppendNumber(dc, NumberIn(ValueOf(line, "\tEAST:")) * kFeet, 16, 5);
    AppendNumber(dc, NumberIn(ValueOf(line, "\tELEV:")) * kFeet, 16, 5);
    AppendText(dc, ValueOf(line, "\tDESC:"), 16);
    dc += ValueOf(line, "\tCDOR:");
    dc += ValueOf(line, "\tCDCL:");
    dc += "\r\n";
  }
  WriteWhole(output, dc);
}

std::string_view WithoutBlanks(std::string_view column) {
  while (!column.empty() && column.front() == ' ') column.remove_prefix(1);
  while (!column.empty() && column.back() == ' ') column.remove_suffix(1);
  return column;
}

void PlainDcToIlj(const std::string& input, const std::string& output) {
  const std::string dc = ReadWhole(input);
  std::string ilj = "\xEF\xBBJOBMO\tDATE:20260917\tTIME:090001\tUNDI:0\tUNAN:0\tDESC:1.0.0\r\n";
  std::string_view rest = dc, line;
  while (NextLine(rest, line)) {
    if (!line.starts_with("69")) continue;
    AppendPoint(ilj, WithoutBlanks(line.substr(4, 16)), WithoutBlanks(line.substr(68, 16)),
                NumberIn(line.substr(20, 16)), NumberIn(line.substr(36, 16)),
                NumberIn(line.substr(52, 16)));
  }
  WriteWhole(output, ilj);
}

struct Route {
  FileType from, to;
  const char *inputExtension, *outputExtension;
  void (*make)(const std::string& path, std::size_t points);
  void (*plain)(const std::string& input, const std::string& output);
};
constexpr Route kIljToDc{FT_ILJ, FT_DC, ".ilj", ".dc", MakeIlj, PlainIljToDc};
constexpr Route kDcToIlj{FT_DC, FT_ILJ, ".dc", ".ilj", MakeDc, PlainDcToIlj};

void PlainLoop(benchmark::State& state, const Route& route) {
  const Input input(route.inputExtension, static_cast<std::size_t>(state.range(0)), route.make);
  for (auto _ : state) route.plain(input.Path(), input.OutputPath(route.outputExtension));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Convert(benchmark::State& state, const Route& route) {
  const Input input(route.inputExtension, static_cast<std::size_t>(state.range(0)), route.make);
  const std::wstring from = ToText(input.Path());
  const std::wstring to = ToText(input.OutputPath(route.outputExtension));
  for (auto _ : state) {
    wchar_t** files = nullptr;
    wchar_t** messages = nullptr;
    if (cZelFileConvert(route.from, from.c_str(), route.to, to.c_str(), &files, &messages, 0,
                        nullptr) == 0 ||
        messages != nullptr) {
      state.SkipWithError("not converted");
    }
    cZelFreeAfterFileConvert(files, messages);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK_CAPTURE(PlainLoop, ilj_to_dc, kIljToDc)->ZEL_SIZES;
BENCHMARK_CAPTURE(Convert, ilj_to_dc, kIljToDc)->ZEL_SIZES;
BENCHMARK_CAPTURE(PlainLoop, dc_to_ilj, kDcToIlj)->ZEL_SIZES;
BENCHMARK_CAPTURE(Convert, dc_to_ilj, kDcToIlj)->ZEL_SIZES;

}  // namespace
}  // namespace zelconvert::bench
