// zelconvert points FILE: its points as rows, or as features of a map.
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/FileChecks.h"
#include "cli/InputSurvey.h"
#include "cli/Outcome.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"
#include "tools/PointTable.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

tools::PointTable MakeTable(const Options& options, const tools::Survey& survey) {
  std::unique_ptr<tools::Wgs84> wgs84;
  if (options.crs == "wgs84") {
    if (options.format != "geojson") {
      throw HostFailure(kWrongUsage, "--crs wgs84 goes with --format geojson");
    }
    std::string why;
    wgs84 = tools::Wgs84::Make(survey, why);
    if (wgs84 == nullptr) throw HostFailure(kFailed, why);
  }
  return options.format == "geojson" ? tools::PointsAsGeoJson(survey, wgs84.get())
                                     : tools::PointsAsCsv(survey);
}

bool WriteTo(const fs::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  return file.good();
}

std::vector<fs::path> Store(const Options& options, const InputFile& input,
                            const std::string& text) {
  const fs::path output = Absolute(options.output);
  const OutputPlace place(output);
  place.CheckDistinct(input.GetPath());
  place.CheckNoFolder();
  place.CheckReplaceable(options.force);
  const StagingFolder staging(output.parent_path());
  if (!WriteTo(staging.GetPath() / output.filename(), text)) {
    throw HostFailure(kNoOutput, platform::ToText(output) + " can't be written");
  }
  const std::vector<fs::path> files =
      staging.MoveFiles(staging.GetTargets(), output, options.force);
  platform::FlushFolder(output.parent_path());
  return files;
}

// Line ends are those of the format, on every system. What a program reads is the data as it is.
void Print(const std::string& text) {
  platform::UseBinaryStreams();
  platform::IsOutputATerminal() ? PrintOut(text) : WriteOut(text);
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    throw HostFailure(kNoOutput, "standard output can't be written");
  }
}

std::string TellLeftOut(std::size_t count, const std::string& crs) {
  const bool isOne = count == 1;
  return std::to_string(count) + (isOne ? " point has" : " points have") + " no place in " +
         (crs == "wgs84" ? "WGS 84" : "the grid") + (isOne ? " and is" : " and are") + " left out";
}

void Run(const Options& options, Outcome& outcome) {
  const bool toScreen = options.output.empty() || IsStandardStream(options.output);
  if (toScreen && options.json) {
    throw HostFailure(kWrongUsage, "--json needs -o: standard output takes one of both");
  }
  const InputFile input(options.input, options.from);
  outcome.about = {{"input", input.GetGivenName()}};
  const tools::PointTable table =
      MakeTable(options, ReadSurveyOf(input, ReadOptionsOf(options), outcome.messages));
  if (table.leftOut > 0) {
    AddWarning(outcome.warnings, TellLeftOut(table.leftOut, options.crs));
  }
  outcome.about.emplace_back("points", static_cast<std::int64_t>(table.written));
  if (toScreen) {
    Print(table.text);
  } else {
    outcome.files = Store(options, input, table.text);
  }
}

}  // namespace

ExitCode RunPoints(const Options& options) {
  Outcome outcome;
  Attempt(outcome, [&] { Run(options, outcome); });
  return Tell(outcome, options.json);
}

}  // namespace zelconvert::cli
