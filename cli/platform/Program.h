// Other programs that do a part of a command's work.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zelconvert::cli::platform {

/// Runs a program that the system's search path leads to, without a shell, and waits for its end.
/// It shares standard error and has nothing to read. arguments: ASCII and paths, as they are.
/// Returns its exit code, -1 if it was ended from outside; nothing if there is no such program.
std::optional<int> RunProgram(const std::string& name,
                              const std::vector<std::filesystem::path>& arguments);

}  // namespace zelconvert::cli::platform
