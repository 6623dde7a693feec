// A folder that goes away with all that is in it, also when the run is broken off.
#pragma once

#include <filesystem>

#include "tools/ReadSurvey.h"

namespace zelconvert::cli {

class TemporaryFolder {
 public:
  /// A new one inside `parent`, which nobody else may look into. Throws a HostFailure if `parent`
  /// can't be written.
  explicit TemporaryFolder(const std::filesystem::path& parent);
  /// Inside the folder that the system has for such.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& GetPath() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

/// For readers: each folder goes when the next is made, or with the maker.
tools::FolderMaker MakeTemporaryFolders();

/// Removes those inside `parent` that a killed run has left.
void RemoveAbandonedFolders(const std::filesystem::path& parent);

}  // namespace zelconvert::cli
