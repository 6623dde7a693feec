// Which files a batch makes of which, found before anything runs.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/Options.h"

namespace zelconvert::cli {

struct BatchFile {
  std::string given;                    ///< the input as the user named it
  std::filesystem::path input, output;  ///< absolute
};

/// In the order they were given. The output of "a/b.raw" is "a/b.dc" below the folder for outputs;
/// of an absolute path the root is left out, as are "..". Throws a HostFailure if two inputs would
/// make one file, or an output take the place of an input.
std::vector<BatchFile> PlanBatch(const Options& options);

}  // namespace zelconvert::cli
