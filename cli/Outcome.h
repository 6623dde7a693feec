// What came of a command that makes files, and how the user is told.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "cli/Host.h"
#include "cli/Json.h"

namespace zelconvert::cli {

struct Outcome {
  ExitCode code = kFailed;
  Json::Object about;                        ///< what was asked for, where JSON is printed
  std::vector<std::string> warnings;         ///< the host's own, a line each
  std::vector<std::string> messages;         ///< the library's, about files that the user knows
  std::string error;                         ///< the host's own line, empty on success
  std::vector<std::filesystem::path> files;  ///< made, in their places, the output first
};

/// Runs what throws a HostFailure if it doesn't succeed.
void Attempt(Outcome& outcome, const std::function<void()>& work);

/// Appends a warning; nothing for an empty one.
void AddWarning(std::vector<std::string>& warnings, const std::string& text);
/// For what the texts call by a name that the user doesn't know.
void Rename(std::vector<std::string>& texts, const std::string& name, const std::string& known);
void Rename(Outcome& outcome, const std::string& name, const std::string& known);

Json::Object ToJson(const Outcome& outcome);
/// Prints all of it, and returns the code.
ExitCode Tell(const Outcome& outcome, bool asJson);

}  // namespace zelconvert::cli
