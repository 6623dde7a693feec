// A file of the command line as a survey, for the commands that look at what it holds.
#pragma once

#include <string>
#include <vector>

#include "cli/GivenFiles.h"
#include "cli/Options.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::cli {

/// What --units and --job say.
tools::ReadOptions ReadOptionsOf(const Options& options);

/// What the file holds. messages: gets the texts of the reading. Throws a HostFailure if it can't
/// be read.
tools::Survey ReadSurveyOf(const InputFile& file, const tools::ReadOptions& how,
                           std::vector<std::string>& messages);

}  // namespace zelconvert::cli
