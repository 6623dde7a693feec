#include "cli/StagingFolder.h"

#include <algorithm>
#include <random>
#include <string>
#include <system_error>

#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace fs = std::filesystem;
namespace {

std::string RandomName() {
  return ".zelconvert-" + std::to_string(std::random_device()());
}

}  // namespace

StagingFolder::StagingFolder(const fs::path& parent) : m_parent(parent) {
  std::error_code error;
  do {
    m_path = m_parent / RandomName();
  } while (!platform::MakeTemporaryFolder(m_path, error) && !error);
  if (error) {
    throw HostFailure(kNoOutput, "the folder " + platform::ToText(m_parent) +
                                     " can't be written: " + error.message());
  }
}

StagingFolder::~StagingFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

std::vector<fs::path> StagingFolder::MoveFiles(bool replace) const {
  std::vector<fs::path> targets;
  for (const auto& entry : fs::directory_iterator(m_path)) {
    targets.push_back(m_parent / entry.path().filename());
  }
  std::sort(targets.begin(), targets.end());
  for (const fs::path& target : targets) CheckReplaceable(target, replace);
  for (const fs::path& target : targets) {
    std::error_code error;
    fs::rename(m_path / target.filename(), target, error);
    if (error) {
      throw HostFailure(kNoOutput,
                        platform::ToText(target) + " can't be written: " + error.message());
    }
  }
  return targets;
}

void CheckReplaceable(const fs::path& path, bool replace) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (!fs::exists(fs::symlink_status(path, ignored))) return;
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw HostFailure(kNoOutput, platform::ToText(path) + " is no file to be replaced");
  }
  if (!replace) {
    throw HostFailure(kNoOutput, platform::ToText(path) + " exists; --force replaces it");
  }
}

}  // namespace zelconvert::cli
