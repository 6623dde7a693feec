// What the name of a file says of its type, to the user and to the library.
#pragma once

#include <filesystem>
#include <string>

#include "cli/FileTypes.h"

namespace zelconvert::cli {

/// The type that a new file of this name is made as; null if its extension belongs to none.
const TypeInfo* TypeNamed(const std::filesystem::path& path);

// Each is one line for the user, empty if all is well.

/// The library would take the input for one of the other brand, since jobs and logs are told by
/// their extension as it is spelled.
std::string WarnOfInputName(FileType type, const std::filesystem::path& input);
/// The library doesn't take this for a job whose points a log may have.
std::string WarnOfJobName(const std::filesystem::path& job);
/// What is made as this type couldn't be read back under its name.
std::string WarnOfOutputName(FileType type, const std::filesystem::path& output);

}  // namespace zelconvert::cli
