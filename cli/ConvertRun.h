// Runs a planned conversion in a staging folder and moves what was made into place.
#pragma once

#include "cli/ConvertPlan.h"
#include "cli/Outcome.h"

namespace zelconvert::cli {

/// Appends the messages and the files made. Throws a HostFailure; the messages are there then, too.
void RunPlan(const ConvertPlan& plan, bool force, Outcome& outcome);

}  // namespace zelconvert::cli
