// Commands for what no function of the library does: they run a conversion of the core, with the
// care for files that "convert" takes.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "cli/GivenFiles.h"
#include "cli/Host.h"
#include "cli/Options.h"
#include "cli/Outcome.h"

namespace zelconvert::cli {

/// A file to read as it was given, and the short name of its type, or empty if it tells it.
struct DirectInput {
  std::string argument;
  std::string type;
};

/// Makes the output, a file of a staging folder with its later name, or throws a HostFailure.
/// Warnings and texts go into the outcome.
using DirectConversion = std::function<void(const std::vector<InputFile>& inputs,
                                            const std::filesystem::path& output, Outcome& outcome)>;

/// Checks the files, converts, moves what was made into place, and tells the user. extension: of a
/// standard output.
ExitCode RunDirect(const Options& options, const std::vector<DirectInput>& inputs,
                   const std::string& extension, const DirectConversion& convert);

/// The texts of the core.
void AddMessages(Outcome& outcome, const std::vector<std::wstring>& texts);

}  // namespace zelconvert::cli
