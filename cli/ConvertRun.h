// Runs a planned conversion in a staging folder and moves what was made into place.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "cli/ConvertPlan.h"
#include "cli/Outcome.h"

namespace zelconvert::cli {

/// Told where the files of a conversion are to go if there are more than the output. Returns those
/// of them that must stay as they are there.
using Paths = std::vector<std::filesystem::path>;
using Approve = std::function<Paths(const Paths& targets)>;

/// Appends the messages and the files made. Throws a HostFailure; the messages are there then, too.
/// approve: null if nobody is to be asked.
void RunPlan(const ConvertPlan& plan, bool force, Outcome& outcome, const Approve& approve = {});

}  // namespace zelconvert::cli
