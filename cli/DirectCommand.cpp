#include "cli/DirectCommand.h"

#include <filesystem>

#include "cli/FileChecks.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"
#include "io/Strings.h"

namespace zelconvert::cli {

namespace fs = std::filesystem;

ExitCode RunDirect(const Options& options, const std::vector<std::string>& inputs,
                   const DirectConversion& convert) {
  const fs::path output = Absolute(options.output);
  DirectFiles files;
  for (const std::string& argument : inputs) {
    const fs::path input = Absolute(argument);
    CheckReadable(input);
    CheckDistinct(output, input);
    files.inputs.push_back(platform::ToLibrary(input));
  }
  CheckOutput(output, options.force);

  const StagingFolder staging(output.parent_path());
  files.output = platform::ToLibrary(staging.GetPath() / output.filename());
  convert(files);
  for (const fs::path& file : staging.MoveFiles(options.force)) {
    PrintOut(platform::ToText(file) + "\n");
  }
  return kConverted;
}

void PrintTexts(const std::vector<std::wstring>& texts) {
  std::vector<std::string> messages(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) AppendUtf8(messages[i], texts[i]);
  PrintMessages(messages);
}

}  // namespace zelconvert::cli
