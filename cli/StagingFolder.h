// Where a conversion writes before its outcome is known: a folder inside the output's, so that what
// was made moves into place without being copied, and a run that fails or is broken off costs
// nothing.
#pragma once

#include <filesystem>
#include <vector>

#include "cli/TemporaryFolder.h"

namespace zelconvert::cli {

class StagingFolder {
 public:
  /// Throws a HostFailure if `parent` can't be written.
  explicit StagingFolder(const std::filesystem::path& parent)
      : m_parent(parent), m_folder(parent) {}

  const std::filesystem::path& GetPath() const { return m_folder.GetPath(); }

  /// Moves all files into the parent and returns their paths there, in the order of their names.
  /// If one may not be replaced none is moved. Throws a HostFailure.
  std::vector<std::filesystem::path> MoveFiles(bool replace) const;

 private:
  std::filesystem::path m_parent;
  TemporaryFolder m_folder;
};

/// Throws a HostFailure if `path` exists and may not be replaced by a new file.
void CheckReplaceable(const std::filesystem::path& path, bool replace);

}  // namespace zelconvert::cli
