// From a command line to a conversion that has a chance: types found, files looked at, wrong uses
// refused before anything is made.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/FileTypes.h"
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

/// Whether a file of this type stands beside another, which is what is read.
bool IsPair(FileType type);

/// What is read for an input of this type: of a pair the log. Throws a HostFailure for a name that
/// has none beside it.
std::filesystem::path FileRead(FileType from, const std::filesystem::path& input);

/// Of a file to read: the type named, or else what its name and contents tell. option: what names
/// it. Throws a HostFailure.
const TypeInfo& TypeOfInput(const std::string& named, const std::filesystem::path& input,
                            const char* option);

/// Of `options` the types, the job and whether files are replaced count. Both paths are absolute.
/// Throws a HostFailure.
ConvertPlan MakePlan(const std::filesystem::path& input, const std::filesystem::path& output,
                     const Options& options);

/// For those who print JSON, by the names that the user knows.
Json::Object Describe(const Conversion& conversion, const std::string& input,
                      const std::string& output);

}  // namespace zelconvert::cli
