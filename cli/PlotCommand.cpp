// zelconvert plot FILE OUT: a plan of what a file holds, as SVG, or as PNG through a converter.
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <utility>

#include "cli/Commands.h"
#include "cli/DirectCommand.h"
#include "cli/InputSurvey.h"
#include "cli/platform/Host.h"
#include "cli/platform/Program.h"
#include "io/Paths.h"
#include "tools/Plot.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kConverterMissing =
    "a PNG is made by rsvg-convert, which isn't there (Debian has it in librsvg2-bin); an SVG "
    "needs "
    "no other program";

bool IsPng(const fs::path& path) {
  return HasExtensionIgnoringCase(platform::ToLibrary(path), L".png");
}

void CheckOutputName(const std::string& output) {
  if (IsStandardStream(output)) return;
  const fs::path path = platform::ToPath(output);
  if (!IsPng(path) && !HasExtensionIgnoringCase(platform::ToLibrary(path), L".svg")) {
    throw HostFailure(kWrongUsage, "the name of OUT ends in .svg or .png");
  }
}

void Write(const fs::path& path, const std::string& drawing) {
  std::ofstream file(path, std::ios::binary);
  file.write(drawing.data(), static_cast<std::streamsize>(drawing.size()));
  file.close();
  if (!file) throw HostFailure(kNoOutput, platform::ToText(path) + " can't be written");
}

// For a large sheet that is still read easily on a screen.
constexpr const char* kDotsPerInch = "150";

std::string MakePng(const std::string& svg) {
  std::string png;
  const std::optional<int> code = platform::RunProgram(
      {"rsvg-convert", "--unlimited", "--dpi-x", kDotsPerInch, "--dpi-y", kDotsPerInch}, svg, png);
  if (!code) throw HostFailure(kFailed, kConverterMissing);
  if (*code == 0) return png;
  throw HostFailure(kFailed,
                    "rsvg-convert makes no PNG: it ended with code " + std::to_string(*code));
}

Json::Object Counts(std::initializer_list<std::pair<const char*, std::size_t>> counts) {
  Json::Object fields;
  for (const auto& [name, count] : counts) fields.emplace_back(name, static_cast<int>(count));
  return fields;
}

void Tell(const tools::PlotSummary& summary, Outcome& outcome) {
  std::wstring leftOut;
  for (const std::wstring& each : tools::TellLeftOut(summary)) {
    leftOut.append(leftOut.empty() ? L"left out: " : L", ").append(each);
  }
  if (!leftOut.empty()) AddMessages(outcome, {leftOut});
  if (summary.scale == 0) {
    AddWarning(outcome.warnings, "the file holds nothing that has a place in plan");
  }
  const auto add = [&outcome](const char* name, Json value) {
    outcome.about.emplace_back(name, std::move(value));
  };
  add("scale", static_cast<int>(summary.scale));
  add("paper", std::string(summary.isPortrait ? "A3 portrait" : "A3 landscape"));
  add("geographic", summary.isGeographic);
  add("dots", summary.isInDots);
  add("drawn", Counts({{"points", summary.points},
                       {"names", summary.names},
                       {"sights", summary.sights},
                       {"vectors", summary.vectors},
                       {"roads", summary.roads}}));
  add("leftOut", Counts({{"names", summary.unplacedNames},
                         {"farPoints", summary.outsidePoints},
                         {"pointsWithoutCoordinates", summary.unplacedPoints},
                         {"deletedPoints", summary.deletedPoints},
                         {"linesWithoutCoordinates", summary.unplacedLines},
                         {"roadsWithoutAlignment", summary.unplacedRoads}}));
}

}  // namespace

ExitCode RunPlot(const Options& options) {
  CheckOutputName(options.output);
  const auto draw = [&options](const std::vector<InputFile>& inputs, const fs::path& output,
                               Outcome& outcome) {
    const InputFile& input = inputs.front();
    const tools::Survey survey = ReadSurveyOf(input, ReadOptionsOf(options), outcome.messages);
    const fs::path name = platform::ToPath(input.GetGivenName()).filename();
    const tools::Plot plot = tools::DrawPlot(survey, platform::ToLibrary(name));
    Write(output, IsPng(output) ? MakePng(plot.svg) : plot.svg);
    Tell(plot.summary, outcome);
  };
  return RunDirect(options, {{options.input, options.from}}, ".svg", draw);
}

}  // namespace zelconvert::cli
