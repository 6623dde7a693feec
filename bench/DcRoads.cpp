// Roads of a DC file into RD5 and TP5 files, beside the plain loop over the same file: many roads,
// where the time goes into making files, and one long road, where it goes into its elements. With
// TMPDIR on a RAM disk the disk isn't measured.
#include <benchmark/benchmark.h>

#include <vector>

#include "Generate.h"
#include "PlainLoop.h"
#include "dc/CDcFile.h"
#include "roads/ConvertDcRoads.h"

namespace zelconvert::bench {
namespace {

void AppendRecord(std::string& dc, std::string_view head, std::initializer_list<double> numbers) {
  dc += head;
  for (const double number : numbers) AppendNumber(dc, number, 16, 5);
  dc += "\r\n";
}

/// A tangent, a spiral, an arc, a spiral: 285.5 along.
void AppendElements(std::string& dc, double azimuth) {
  AppendRecord(dc, "31KI", {azimuth, 120});
  AppendRecord(dc, "33KI", {40, 200});
  AppendRecord(dc, "32KI", {85.5, -200});
  AppendRecord(dc, "33KI", {40, 200});
}

void AppendRoad(std::string& dc, std::size_t number, std::size_t groups) {
  const double length = static_cast<double>(groups) * 285.5;
  dc += "28KI" + std::to_string(number) + "\r\n";
  AppendRecord(dc, "84KI", {0, 25.5, 5326100, 540050, 514});
  for (std::size_t i = 0; i < groups; ++i) {
    AppendElements(dc, static_cast<double>((number + i) % 360) + 0.12345);
  }
  AppendRecord(dc, "34KI", {0, 514});
  AppendRecord(dc, "36KI", {140, 517.5, 60});
  AppendRecord(dc, "37KI", {length, 513.2});
  dc += "39KIT" + std::to_string(number) + "\r\n";
  AppendRecord(dc, "46KI3", {3.5, -2, 0, 0, 0});
  AppendRecord(dc, "46KI3", {1.5, -4, 0, 0, 0});
  dc += "97KI1        50.000001        33.33330         0.00000TOE\r\n";
  dc += "B9KI         0.000003T               3T\r\n";
  dc +=
      "44KI       100.000001         4.000001        -4.00000         0.50000         0.500002\r\n";
  dc +=
      "44KI       200.000001        -2.000001        -2.00000         0.00000         0.000002\r\n";
}

const std::string kHeader = "00NMFX V10-70           09-16-2026 10:05111111\r\n";

/// `count` roads of four elements.
void MakeRoads(const std::string& path, std::size_t count) {
  std::string dc = kHeader;
  for (std::size_t i = 0; i < count; ++i) AppendRoad(dc, i, 1);
  WriteWhole(path, dc);
}

/// One road of `count` elements.
void MakeLongRoad(const std::string& path, std::size_t count) {
  std::string dc = kHeader;
  AppendRoad(dc, 1, count / 4);
  WriteWhole(path, dc);
}

double FieldOf(std::string_view line, std::size_t index, std::size_t start = 4) {
  const std::size_t at = start + 16 * index;
  return at < line.size() ? NumberIn(line.substr(at, 16)) : 0;
}

/// Copies the numbers of a record after a tag.
void AppendPlain(std::string& out, std::string_view tag, std::string_view line, std::size_t fields,
                 std::size_t start = 4) {
  out += tag;
  for (std::size_t i = 0; i < fields; ++i) {
    out += ',';
    AppendNumber(out, FieldOf(line, i, start), 0, 3);
  }
  out += "\r\n";
}

/// The same files of about the same lines, with no geometry and no rules.
void PlainRoads(const std::string& input, const std::string& folder) {
  const std::string dc = ReadWhole(input);
  std::string_view rest = dc, line;
  std::string name, rd5, tp5;
  const auto write = [&] {
    if (name.empty()) return;
    WriteWhole(folder + "/" + name + ".RD5", rd5);
    WriteWhole(folder + "/T" + name + ".tp5", tp5);
    rd5.clear();
    tp5.clear();
  };
  while (NextLine(rest, line)) {
    const std::string_view type = line.substr(0, 2);
    if (type == "28") {
      write();
      name = line.substr(4);
    } else if (type == "31" || type == "37") {
      AppendPlain(rd5, "HL", line, 2);
    } else if (type == "32" || type == "33") {
      AppendPlain(rd5, "HC,-1.00000", line, 2);
    } else if (type == "36") {
      AppendPlain(rd5, "VC", line, 3);
    } else if (type == "46") {
      AppendPlain(tp5, "TS", line, 2, 5);
    } else if (type == "97") {
      AppendPlain(tp5, "TH", line, 1, 5);
    } else if (type == "44") {
      AppendPlain(rd5, "RS", line, 1);
    }
  }
  write();
}

template <void (*Make)(const std::string&, std::size_t)>
void PlainLoop(benchmark::State& state) {
  const Input input(".dc", static_cast<std::size_t>(state.range(0)), Make);
  const TempDir out;
  for (auto _ : state) PlainRoads(input.Path(), out.Folder().string());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <void (*Make)(const std::string&, std::size_t)>
void ConvertRoads(benchmark::State& state) {
  const Input input(".dc", static_cast<std::size_t>(state.range(0)), Make);
  const TempDir out;
  for (auto _ : state) {
    CDcFile file;
    Report report;
    std::vector<ROAD_HEADER> roads;
    if (!file.OpenForRead(ToText(input.Path())) ||
        !ConvertDcRoads(file, report, roads, out.Path(L"")) || !report.messages.empty()) {
      state.SkipWithError("not converted");
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(PlainLoop<MakeRoads>)->RangeMultiplier(10)->Range(10, 1000);
BENCHMARK(ConvertRoads<MakeRoads>)->RangeMultiplier(10)->Range(10, 1000);
BENCHMARK(PlainLoop<MakeLongRoad>)->RangeMultiplier(10)->Range(10000, 1000000);
BENCHMARK(ConvertRoads<MakeLongRoad>)->RangeMultiplier(10)->Range(10000, 1000000);

}  // namespace
}  // namespace zelconvert::bench
