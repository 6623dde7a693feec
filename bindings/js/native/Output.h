// What the commands print, kept for JavaScript.
#pragma once

#include <string>

namespace zelconvert::module {

/// All that was printed to standard output since the last ClearOutput.
const std::string& GetOutput();
void ClearOutput();

}  // namespace zelconvert::module
