// From a command line to a conversion that has a chance: types found, files looked at, wrong uses
// refused before anything is made.
#pragma once

#include <string>
#include <vector>

#include "cli/Library.h"
#include "cli/Options.h"

namespace zelconvert::cli {

struct ConvertPlan {
  Conversion conversion;
  std::vector<std::string> warnings;  ///< a line each
};

/// Throws a HostFailure.
ConvertPlan MakePlan(const Options& options);

}  // namespace zelconvert::cli
