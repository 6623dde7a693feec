#include "cli/StagingFolder.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace fs = std::filesystem;

std::vector<fs::path> StagingFolder::MoveFiles(bool replace) const {
  std::vector<fs::path> targets;
  for (const auto& entry : fs::directory_iterator(GetPath())) {
    targets.push_back(m_parent / entry.path().filename());
  }
  std::sort(targets.begin(), targets.end());
  for (const fs::path& target : targets) CheckReplaceable(target, replace);
  for (const fs::path& target : targets) {
    std::error_code error;
    fs::rename(GetPath() / target.filename(), target, error);
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
