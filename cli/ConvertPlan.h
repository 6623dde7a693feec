// From a command line to a conversion that has a chance: types found, files looked at, wrong uses
// refused before anything is made.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/FileTypes.h"
#include "cli/GivenFiles.h"
#include "cli/Json.h"
#include "cli/Library.h"
#include "cli/Options.h"

namespace zelconvert::cli {

struct ConvertPlan {
  Conversion conversion;
  std::vector<std::string> warnings;  ///< a line each
  bool verify = false;                ///< whether the output is read back and compared
  bool keep = false;                  ///< whether one that lacks something is kept
};

/// Of `options` the type of the output, the job and whether files are replaced count. The path is
/// absolute. Throws a HostFailure.
ConvertPlan MakePlan(const InputFile& file, const std::filesystem::path& output,
                     const Options& options);

/// For those who print JSON, by the names that the user knows.
Json::Object Describe(const Conversion& conversion, const std::string& input,
                      const std::string& output);

}  // namespace zelconvert::cli
