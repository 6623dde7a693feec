// What --verify adds to a conversion.
#pragma once

#include <string>

#include "cli/ConvertPlan.h"
#include "cli/Library.h"
#include "cli/Outcome.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli {

/// Throws a HostFailure for a type that can't be read back.
void CheckVerifiable(FileType output);

/// Compares the output that stands in its staging folder with the input. What is missing goes into
/// the outcome, as messages and for those who print JSON. Returns a line for the user, empty if all
/// has arrived.
std::string Verify(const ConvertPlan& plan, const Conversion& staged, Outcome& outcome);

}  // namespace zelconvert::cli
