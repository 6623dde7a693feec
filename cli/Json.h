// Output for programs: that of the views of a file.
#pragma once

#include "tools/Json.h"

namespace zelconvert::cli {

using tools::Json;
using tools::ToLine;
using tools::ToLines;

}  // namespace zelconvert::cli
