// What stands in a folder.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "TempDir.h"

namespace zelconvert {

using Files = std::map<std::string, std::string>;  ///< contents by name

inline Files FilesIn(const std::filesystem::path& folder) {
  Files files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files[entry.path().filename().string()] = ReadBytes(entry.path());
  }
  return files;
}

}  // namespace zelconvert
