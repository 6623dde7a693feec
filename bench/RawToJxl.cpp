// Raw logs to JobXML by the exported function, beside the plain loop over the same logs: sideshots,
// stored points (the list of known points grows with each), and a deletion after each shot.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "GenerateLog.h"

namespace zelconvert::bench {
namespace {

void Element(std::string& xml, std::string_view indent, std::string_view name, double value,
             int decimals) {
  xml.append(indent).append("<").append(name).append(">");
  AppendNumber(xml, value, 0, decimals);
  xml.append("</").append(name).append(">\r\n");
}

void Grid(std::string& xml, std::string_view name, double north, double east, double elevation) {
  xml.append("            <").append(name).append(">\r\n");
  Element(xml, "                ", "North", north, 6);
  Element(xml, "                ", "East", east, 6);
  Element(xml, "                ", "Elevation", elevation, 5);
  xml.append("            </").append(name).append(">\r\n");
}

void Id(std::string& xml, std::uint32_t id) {
  char text[9];
  std::snprintf(text, sizeof text, "%08x", id);
  xml += text;
}

// The record of a shot, and its point.
void PlainShot(std::string& records, std::string& points, std::string_view line, std::uint32_t id) {
  const std::string_view name = Field(line, ",FP"), code = Field(line, ",--");
  const double circle = Degrees(Number(Field(line, ",AR")));
  const double zenith = Degrees(Number(Field(line, ",ZE")));
  const double slope = Number(Field(line, ",SD"));
  const double radians = 3.141592653589793 / 180;
  const double run = slope * std::sin(zenith * radians);
  const double north = 5000 + run * std::cos((45.2583 + circle) * radians);
  const double east = 5000 + run * std::sin((45.2583 + circle) * radians);
  const double elevation = 100 + slope * std::cos(zenith * radians);
  records += "\r\n        <PointRecord ID=\"";
  Id(records, id);
  records.append("\" TimeStamp=\"\">\r\n            <Name>").append(name);
  records.append("</Name>\r\n            <Code>").append(code);
  records +=
      "</Code>\r\n            <Method>DirectReading</Method>\r\n"
      "            <SurveyMethod>Fix</SurveyMethod>\r\n"
      "            <Classification>Normal</Classification>\r\n"
      "            <Deleted>false</Deleted>\r\n            <Circle>\r\n";
  Element(records, "                ", "HorizontalCircle", circle, 6);
  Element(records, "                ", "VerticalCircle", zenith, 6);
  Element(records, "                ", "EDMDistance", slope, 5);
  records +=
      "                <Face>Face1</Face>\r\n"
      "                <HorizontalCircleStandardError/>\r\n"
      "                <VerticalCircleStandardError/>\r\n"
      "                <EDMDistanceStandardError/>\r\n"
      "                <EDMMeasurementMode/>\r\n            </Circle>\r\n"
      "            <StationID>00000005</StationID>\r\n"
      "            <BackBearingID>00000007</BackBearingID>\r\n"
      "            <TargetID>00000008</TargetID>\r\n"
      "            <Pressure/>\r\n            <Temperature/>\r\n";
  Grid(records, "ComputedGrid", north, east, elevation);
  records += "        </PointRecord>\r\n";
  points += "        <Point ID=\"";
  Id(points, id);
  points += "\">\r\n            <ID>";
  Id(points, id);
  points.append("</ID>\r\n            <Name>").append(name);
  points.append("</Name>\r\n            <Code>").append(code).append("</Code>\r\n");
  Grid(points, "Grid", north, east, elevation);
  points += "        </Point>\r\n";
}

void PlainLoop(benchmark::State& state) {
  const Input input(".raw", static_cast<std::size_t>(state.range(0)), MakeLog<Log::Sideshots>);
  for (auto _ : state) {
    const std::string log = ReadWhole(input.Path());
    std::string records, points;
    std::uint32_t id = 0;
    std::string_view rest = log, line;
    while (NextLine(rest, line)) {
      if (line.starts_with("SS")) PlainShot(records, points, line, ++id);
    }
    WriteWhole(input.OutputPath(".jxl"), records + points);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <Log log>
void RawToJxl(benchmark::State& state) {
  const Input input(".raw", static_cast<std::size_t>(state.range(0)), MakeLog<log>);
  for (auto _ : state) {
    if (!ConvertLog(input.Path(), FT_JXL, input.OutputPath(".jxl"))) {
      state.SkipWithError("not converted");
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define ZEL_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK(PlainLoop)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToJxl, Log::Sideshots)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToJxl, Log::Stored)->ZEL_SIZES;
BENCHMARK_TEMPLATE(RawToJxl, Log::Deleted)->ZEL_SIZES;

}  // namespace
}  // namespace zelconvert::bench
