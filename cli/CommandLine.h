// From the words of a command line to a command that runs.
#pragma once

#include <string>
#include <vector>

#include "cli/Host.h"

namespace zelconvert::cli {

/// arguments: those after the program's name, in UTF-8. What goes wrong is told on standard error.
ExitCode RunCommandLine(std::vector<std::string> arguments);

}  // namespace zelconvert::cli
