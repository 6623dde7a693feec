#include "cli/DirectCommand.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

#include "cli/FileChecks.h"
#include "cli/GivenFiles.h"
#include "cli/ProgressBar.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"
#include "io/Strings.h"

namespace zelconvert::cli {

namespace fs = std::filesystem;
using platform::ToText;

namespace {

void RunIntoPlace(const Options& options, const std::vector<InputFile>& inputs,
                  const fs::path& output, const DirectConversion& convert, Outcome& outcome) {
  DirectFiles files;
  for (const InputFile& input : inputs) {
    CheckReadable(input.GetPath());
    CheckDistinct(output, input.GetPath());
    files.inputs.push_back(platform::ToLibrary(input.GetPath()));
  }
  CheckOutput(output, options.force);
  const StagingFolder staging(output.parent_path());
  files.output = platform::ToLibrary(staging.GetPath() / output.filename());
  {
    std::optional<ProgressBar> bar;
    if (ShowsProgress()) bar.emplace();
    convert(files, outcome);
  }
  outcome.files = staging.MoveFiles(staging.GetTargets(), output, options.force);
}

void CheckStreams(const Options& options, const std::vector<DirectInput>& inputs) {
  if (std::count_if(inputs.begin(), inputs.end(),
                    [](const DirectInput& each) { return IsStandardStream(each.argument); }) > 1) {
    throw HostFailure(kWrongUsage, "standard input is one file");
  }
  if (options.json && IsStandardStream(options.output)) {
    throw HostFailure(kWrongUsage, "standard output can't take both OUT and what --json prints");
  }
}

}  // namespace

ExitCode RunDirect(const Options& options, const std::vector<DirectInput>& inputs,
                   const std::string& extension, const DirectConversion& convert) {
  Outcome outcome;
  Attempt(outcome, [&] {
    CheckStreams(options, inputs);
    const OutputFile output(options.output, extension);
    std::vector<InputFile> files;
    for (const auto& [argument, ofInput] : inputs) files.emplace_back(argument, ofInput);
    Json::List names;
    for (const InputFile& file : files) names.emplace_back(file.GetName());
    outcome.about = {{"inputs", std::move(names)}, {"output", output.GetName()}};
    Attempt(outcome, [&] {
      RunIntoPlace(options, files, output.GetPath(), convert, outcome);
      output.Send(outcome);
    });
    for (const InputFile& file : files) file.RenameIn(outcome);
    output.RenameIn(outcome);
  });
  return Tell(outcome, options.json);
}

void AddMessages(Outcome& outcome, const std::vector<std::wstring>& texts) {
  for (const std::wstring& text : texts) AppendUtf8(outcome.messages.emplace_back(), text);
}

}  // namespace zelconvert::cli
