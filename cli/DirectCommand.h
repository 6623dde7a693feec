// Commands for what no function of the library does: they run a conversion of the core, with the
// care for files that "convert" takes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/Host.h"
#include "cli/Options.h"
#include "cli/Outcome.h"

namespace zelconvert::cli {

/// A file to read as it was given, and the extension of a standard input in its place.
struct DirectInput {
  std::string argument;
  std::string extension;
};

/// Paths as the core takes them; the output is one of a staging folder, with its later name.
struct DirectFiles {
  std::vector<std::wstring> inputs;
  std::wstring output;
};

/// Makes the output, or throws a HostFailure. Warnings and texts go into the outcome.
using DirectConversion = std::function<void(const DirectFiles& files, Outcome& outcome)>;

/// Checks the files, converts, moves what was made into place, and tells the user. extension: of a
/// standard output.
ExitCode RunDirect(const Options& options, const std::vector<DirectInput>& inputs,
                   const std::string& extension, const DirectConversion& convert);

/// The texts of the core.
void AddMessages(Outcome& outcome, const std::vector<std::wstring>& texts);

}  // namespace zelconvert::cli
