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
  const std::filesystem::path& GetParent() const { return m_parent; }

  /// Where the files in it go, in the order of their names.
  std::vector<std::filesystem::path> GetTargets() const;
  /// Moves the files, all of them written to the disk, to these places, and returns them, `output`
  /// first. That is moved last: where it stands the others do. (The folder itself is for the caller
  /// to write, platform::FlushFolder, when no more is to come.) Of the others one that is there
  /// with the same bytes is left as it is. If one may not be replaced, as none of `kept` may, none
  /// is moved. Throws a HostFailure.
  std::vector<std::filesystem::path> MoveFiles(
      std::vector<std::filesystem::path> targets, const std::filesystem::path& output, bool replace,
      const std::vector<std::filesystem::path>& kept = {}) const;

 private:
  std::filesystem::path m_parent;
  TemporaryFolder m_folder;
};

}  // namespace zelconvert::cli
