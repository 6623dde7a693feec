// Two surveys of as many points: the same in another order, of other names, or all of one name.
#include "tools/DiffSurveys.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>

#include "tools/DiffReport.h"

namespace zelconvert::bench {
namespace {

using tools::Survey;
using tools::SurveyPoint;

Survey MakeSurvey(std::int64_t count, std::wstring (*name)(std::int64_t number)) {
  Survey survey;
  for (std::int64_t i = 0; i < count; ++i) {
    SurveyPoint& point = survey.points.emplace_back();
    point.name = name(i);
    point.code = L"FENCE";
    const std::int64_t row = i / 1000;
    point.grid = {static_cast<double>(i % 1000), static_cast<double>(row), 100};
  }
  return survey;
}

std::wstring Number(std::int64_t number) {
  return std::to_wstring(number);
}
std::wstring OtherNumber(std::int64_t number) {
  return L"B" + std::to_wstring(number);
}
std::wstring OneName(std::int64_t) {
  return L"P";
}

void Run(benchmark::State& state, Survey first, Survey second) {
  std::shuffle(second.points.begin(), second.points.end(), std::mt19937(1));
  for (auto _ : state) {
    const tools::SurveyDiff diff = tools::DiffSurveys(first, second);
    benchmark::DoNotOptimize(tools::FormatDiff(diff, {}));
  }
  state.SetComplexityN(state.range(0));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Same(benchmark::State& state) {
  Run(state, MakeSurvey(state.range(0), Number), MakeSurvey(state.range(0), Number));
}
void AllDiffer(benchmark::State& state) {
  Run(state, MakeSurvey(state.range(0), Number), MakeSurvey(state.range(0), OtherNumber));
}
void AllOfOneName(benchmark::State& state) {
  Run(state, MakeSurvey(state.range(0), OneName), MakeSurvey(state.range(0), OneName));
}

BENCHMARK(Same)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(AllDiffer)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(AllOfOneName)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zelconvert::bench
