// Runs a planned conversion in a staging folder and moves what was made into place.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/ConvertPlan.h"
#include "cli/Host.h"

namespace zelconvert::cli {

struct Outcome {
  ExitCode code = kFailed;
  std::string error;                         ///< the host's own line, empty on success
  std::vector<std::string> messages;         ///< the library's, about files that the user knows
  std::vector<std::filesystem::path> files;  ///< made, in their places, the output first
};

/// Throws a HostFailure; `outcome` then holds the messages.
void RunPlan(const ConvertPlan& plan, bool force, Outcome& outcome);

}  // namespace zelconvert::cli
