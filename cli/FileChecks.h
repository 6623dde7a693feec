// What is found out about the files of a command before it makes anything.
#pragma once

#include <filesystem>
#include <string>

namespace zelconvert::cli {

/// Throws a HostFailure for an empty name.
std::filesystem::path Absolute(const std::string& argument);

// Each throws a HostFailure that tells the user what is wrong.

void CheckReadable(const std::filesystem::path& input);
/// That the name is one of a file.
void CheckNoFolder(const std::filesystem::path& output);
/// That a file can be made there, or replaced if it may be.
void CheckOutput(const std::filesystem::path& output, bool replace);
/// That the output isn't an input by any path or link.
void CheckDistinct(const std::filesystem::path& output, const std::filesystem::path& input);

}  // namespace zelconvert::cli
