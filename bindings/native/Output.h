// What the commands print, kept for whoever called them.
#pragma once

#include <string>

namespace zelconvert::bindings {

/// All that this thread printed to standard output since the last call.
std::string TakeOutput();

}  // namespace zelconvert::bindings
