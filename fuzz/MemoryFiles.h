// The files of a fuzz target, in memory: MemoryFiles.cpp takes the place of the platform layer's
// files when a target is linked, so that a run asks the system for nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelconvert {

/// All files that there are. They lie in one folder, or wherever a run has made some.
class MemoryFiles {
 public:
  /// The path of a file of the folder, there or not, as the library takes it.
  static std::wstring Path(std::wstring_view name);
  /// Makes a file, or gives it other bytes, and returns its path.
  static std::wstring Write(std::wstring_view name, std::string_view bytes);
  /// The whole file; empty if there is none.
  static std::string Read(std::wstring_view name);
  static bool Exists(std::wstring_view name);
  /// What there is, in order: names in the folder, for other files their whole paths.
  static std::vector<std::wstring> Names();
  /// Deletes all files.
  static void Clear();
  /// How many are open.
  static int CountOpen();
};

}  // namespace zelconvert
