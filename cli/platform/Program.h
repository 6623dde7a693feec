// Other programs that do a part of a command's work.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelconvert::cli::platform {

/// Runs a program that the system's search path leads to, without a shell, and waits for its end.
/// words: its name and its arguments, in ASCII and without blanks. It reads `input` as its standard
/// input, to the end before it writes; what it writes is appended to `output`. It shares standard
/// error. Returns its exit code, -1 if it was ended from outside; nothing if there is no such
/// program.
std::optional<int> RunProgram(const std::vector<std::string>& words, std::string_view input,
                              std::string& output);

}  // namespace zelconvert::cli::platform
