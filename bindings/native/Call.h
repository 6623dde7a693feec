// A call of another language as the host's commands take it.
#pragma once

#include <string_view>

#include "cli/Commands.h"

namespace zelconvert::bindings {

struct Call {
  cli::ExitCode (*run)(const cli::Options&);
  cli::Options options;
};

/// words: the name of a command, then names and values of options in turn, each ended by a zero
/// character. The names are those of the members of Options; the value of a switch is empty. Throws
/// a HostFailure for what there isn't.
Call ParseCall(std::string_view words);

}  // namespace zelconvert::bindings
