// The host's commands, called by a program in whose process they run.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "cli/Host.h"

namespace zelconvert::bindings {

struct Answer {
  cli::ExitCode code = cli::kFailed;
  std::string json;  ///< the object that the host prints with --json, in UTF-8
};

/// Runs a command. words: as ParseCall takes them. onPercent: is told of every percent once, on
/// this thread; may be null, and throws nothing. Throws nothing: what ends a command too early,
/// such as lack of memory, is a failure with its text in `error`.
Answer Run(std::string_view words, const std::function<void(int percent)>& onPercent);

}  // namespace zelconvert::bindings
