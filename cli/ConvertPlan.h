// From a command line to a conversion that has a chance: types found, files looked at, wrong uses
// refused before anything is made.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/FileTypes.h"
#include "cli/Library.h"

namespace zelconvert::cli {

struct ConvertOptions {
  std::string input, output;
  std::string from, to;            ///< short names; empty: told by the files
  std::optional<std::string> job;  ///< whose points a log is given
  bool force = false;              ///< an output that exists is replaced
};

struct ConvertPlan {
  Conversion conversion;
  std::vector<std::string> warnings;  ///< a line each
  std::filesystem::path read;         ///< what the library opens: the input, or of a pair the log
};

/// Throws a HostFailure.
ConvertPlan MakePlan(const ConvertOptions& options);

}  // namespace zelconvert::cli
