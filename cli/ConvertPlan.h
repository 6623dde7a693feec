// From a command line to a conversion that has a chance: types found, files looked at, wrong uses
// refused before anything is made.
#pragma once

#include <filesystem>
#include <string>

#include "cli/FileTypes.h"
#include "cli/Library.h"

namespace zelconvert::cli {

struct ConvertOptions {
  std::string input, output;
  std::string from, to;  ///< short names; empty: told by the files
  std::string units = "m";
  std::string featureFile;
  bool force = false;  ///< an output that exists is replaced
};

struct ConvertPlan {
  Conversion conversion;
  std::string warning;         ///< one line, empty mostly
  std::filesystem::path read;  ///< what the library opens: the input, or of a pair the log
};

/// Throws a HostFailure.
ConvertPlan MakePlan(const ConvertOptions& options);

/// The units that --units takes, with the library's number.
struct UnitName {
  const char* name;
  int number;
};
inline constexpr UnitName kUnits[] = {{"m", 0}, {"ft", 1}, {"usft", 2}};

}  // namespace zelconvert::cli
