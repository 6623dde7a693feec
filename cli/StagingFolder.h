// Where a conversion writes before its outcome is known: a folder inside the output's, so that what
// was made moves into place without being copied, and a run that fails or is broken off costs
// nothing.
#pragma once

#include <filesystem>
#include <vector>

namespace zelconvert::cli {

class StagingFolder {
 public:
  /// Throws a HostFailure if `parent` can't be written.
  explicit StagingFolder(const std::filesystem::path& parent);
  /// Removes the folder with all that is left in it.
  ~StagingFolder();
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;

  const std::filesystem::path& GetPath() const { return m_path; }

  /// Moves all files into the parent and returns their paths there, in the order of their names.
  /// If one may not be replaced none is moved. Throws a HostFailure.
  std::vector<std::filesystem::path> MoveFiles(bool replace) const;

 private:
  std::filesystem::path m_parent;
  std::filesystem::path m_path;
};

/// Throws a HostFailure if `path` exists and may not be replaced by a new file.
void CheckReplaceable(const std::filesystem::path& path, bool replace);

}  // namespace zelconvert::cli
