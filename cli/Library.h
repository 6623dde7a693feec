// The library's functions as the host calls them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/Host.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli {

std::string GetDescription(FileType type);
/// With the leading point.
std::string GetExtension(FileType type);
/// Of a type's short name; empty for an empty one.
std::string ExtensionNamed(const std::string& type);
std::string GetFilter(FileType type);
/// A FileType, or -1: by the file's own name and contents, whatever its folders are called.
int DetectType(const std::filesystem::path& path);

struct Conversion {
  FileType from, to;
  std::filesystem::path input, output;  ///< absolute
  std::filesystem::path read;           ///< what the library opens: the input, or of a pair the log
  std::filesystem::path job = {};       ///< whose points a log is given; empty: none
};

struct Result {
  ExitCode code = kFailed;
  std::vector<std::string> messages;  ///< as the library gave them, in UTF-8
};

Result Convert(const Conversion& conversion);

}  // namespace zelconvert::cli
