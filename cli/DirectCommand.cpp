#include "cli/DirectCommand.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "cli/FileChecks.h"
#include "cli/Host.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"
#include "io/Strings.h"

namespace zelconvert::cli {

namespace fs = std::filesystem;

std::shared_ptr<DirectArguments> AddDirectArguments(CLI::App& command,
                                                    const std::vector<std::string>& inputs) {
  auto arguments = std::make_shared<DirectArguments>();
  arguments->inputs.resize(inputs.size());
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    command.add_option(inputs[i], arguments->inputs[i], "A file to read")
        ->required()
        ->type_name("");
  }
  command.add_option("OUT", arguments->output, "The file to make")->required()->type_name("");
  command.add_flag("--force", arguments->force, "Replace a file that exists");
  return arguments;
}

void RunDirect(const DirectArguments& arguments, const DirectConversion& convert) {
  const fs::path output = Absolute(arguments.output);
  DirectFiles files;
  for (const std::string& argument : arguments.inputs) {
    const fs::path input = Absolute(argument);
    CheckReadable(input);
    CheckDistinct(output, input);
    files.inputs.push_back(platform::ToLibrary(input));
  }
  CheckOutput(output, arguments.force);

  const StagingFolder staging(output.parent_path());
  files.output = platform::ToLibrary(staging.GetPath() / output.filename());
  convert(files);
  for (const fs::path& file : staging.MoveFiles(arguments.force)) {
    PrintOut(platform::ToText(file) + "\n");
  }
}

void PrintMessages(const std::vector<std::wstring>& messages) {
  for (const std::wstring& message : messages) {
    std::string line;
    AppendUtf8(line, message);
    PrintError(line.ends_with('\n') ? line : line + "\n");
  }
}

}  // namespace zelconvert::cli
