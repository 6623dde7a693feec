#include "cli/DirectCommand.h"

#include <optional>
#include <utility>

#include "cli/FileChecks.h"
#include "cli/ProgressBar.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {

namespace fs = std::filesystem;

namespace {

void RunIntoPlace(const Options& options, const std::vector<InputFile>& inputs,
                  const fs::path& output, const DirectConversion& convert, Outcome& outcome) {
  const OutputPlace place(output);
  for (const InputFile& input : inputs) {
    CheckReadable(input.GetPath());
    place.CheckDistinct(input.GetPath());
  }
  place.CheckNoFolder();
  place.CheckReplaceable(options.force);
  const StagingFolder staging(output.parent_path());
  {
    std::optional<ProgressBar> bar;
    if (ShowsProgress()) bar.emplace();
    const fs::path staged = staging.GetPath() / output.filename();
    Attempt(outcome, [&] { convert(inputs, staged, outcome); });
    Rename(outcome, platform::ToText(staged), platform::ToText(output));
  }
  if (outcome.code != kConverted) throw HostFailure(outcome.code, outcome.error);
  outcome.files = staging.MoveFiles(staging.GetTargets(), output, options.force);
  platform::FlushFolder(output.parent_path());
}

}  // namespace

ExitCode RunDirect(const Options& options, const std::vector<DirectInput>& inputs,
                   const std::string& extension, const DirectConversion& convert) {
  Outcome outcome;
  Attempt(outcome, [&] {
    const OutputFile output(options.output, extension, options.json);
    std::vector<InputFile> files;
    for (const auto& [argument, type] : inputs) files.emplace_back(argument, type);
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
  for (const std::wstring& text : texts) {
    outcome.messages.push_back(platform::FromLibraryText(text));
  }
}

}  // namespace zelconvert::cli
