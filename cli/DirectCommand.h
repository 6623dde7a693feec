// Commands for what no function of the library does: they run a conversion of the core, with the
// care for files that "convert" takes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/Host.h"
#include "cli/Options.h"

namespace zelconvert::cli {

/// Paths as the core takes them; the output is one of a staging folder, with its later name.
struct DirectFiles {
  std::vector<std::wstring> inputs;
  std::wstring output;
};

/// Makes the output, or throws a HostFailure.
using DirectConversion = std::function<void(const DirectFiles& files)>;

/// Checks the files, converts, and moves what was made into place. inputs: as they were given.
/// Returns kConverted or throws a HostFailure.
ExitCode RunDirect(const Options& options, const std::vector<std::string>& inputs,
                   const DirectConversion& convert);

/// As PrintMessages does.
void PrintTexts(const std::vector<std::wstring>& texts);

}  // namespace zelconvert::cli
