// Plans of points that a total station has shot, drawn from the survey in memory: the time for a
// point stays what it is, and so do its bytes.
#include <benchmark/benchmark.h>

#include <string>

#include "Generate.h"
#include "tools/Plot.h"

namespace zelconvert::bench {
namespace {

tools::Survey MakeSurvey(std::size_t points) {
  tools::Survey survey;
  survey.lengthUnit = LinearUnit::Metre;
  survey.setups.push_back({L"CP1", {240000.0, 710000.0}, 1.5, L""});
  for (std::size_t i = 0; i < points; ++i) {
    const Point from = MakePoint(i);
    tools::SurveyPoint point;
    point.name = std::to_wstring(from.number);
    point.code.assign(from.code.begin(), from.code.end());
    point.grid = {from.north, from.east, from.elevation};
    point.source = tools::PointSource::Shot;
    tools::Shot shot;
    shot.setup = 0;
    shot.station = L"CP1";
    shot.target = point.name;
    shot.position = point.grid;
    survey.points.push_back(std::move(point));
    survey.shots.push_back(std::move(shot));
  }
  return survey;
}

void DrawPlot(benchmark::State& state) {
  const tools::Survey survey = MakeSurvey(static_cast<std::size_t>(state.range(0)));
  std::size_t bytes = 0;
  for (auto _ : state) bytes = tools::DrawPlot(survey, L"bench.raw").svg.size();
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.counters["bytes/point"] = static_cast<double>(bytes) / static_cast<double>(state.range(0));
}
BENCHMARK(DrawPlot)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zelconvert::bench
