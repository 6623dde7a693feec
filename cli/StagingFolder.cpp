#include "cli/StagingFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

#include "cli/FileChecks.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace fs = std::filesystem;

namespace {

bool HaveSameBytes(const fs::path& a, const fs::path& b) {
  std::error_code ignored;
  if (!fs::is_regular_file(b, ignored)) return false;
  std::ifstream first(a, std::ios::binary), second(b, std::ios::binary);
  using Bytes = std::istreambuf_iterator<char>;
  return first && second && std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

void Require(const std::error_code& error, const fs::path& output) {
  if (!error) return;
  if (error == std::errc::file_exists) OutputPlace(output).RefuseReplacing();
  throw HostFailure(kNoOutput, platform::ToText(output) + " can't be written: " + error.message());
}

// The last one first. If one doesn't move those that did go away again, as long as no other file
// stood in their places.
void MoveAll(const fs::path& folder, const std::vector<fs::path>& targets, bool replace) {
  std::error_code error;
  for (const fs::path& target : targets) {
    platform::FlushFile(folder / target.filename(), error);
    Require(error, target);
  }
  for (auto at = targets.rbegin(); at != targets.rend(); ++at) {
    platform::MoveIntoPlace(folder / at->filename(), *at, replace, error);
    if (!error) continue;
    std::error_code ignored;
    for (auto made = targets.rbegin(); made != at && !replace; ++made) fs::remove(*made, ignored);
    Require(error, *at);
  }
}

}  // namespace

std::vector<fs::path> StagingFolder::GetTargets() const {
  std::vector<fs::path> targets;
  for (const auto& entry : fs::directory_iterator(GetPath())) {
    targets.push_back(m_parent / entry.path().filename());
  }
  std::sort(targets.begin(), targets.end());
  return targets;
}

std::vector<fs::path> StagingFolder::MoveFiles(std::vector<fs::path> targets,
                                               const fs::path& output, bool replace,
                                               const std::vector<fs::path>& kept) const {
  std::stable_partition(targets.begin(), targets.end(),
                        [&](const fs::path& target) { return target == output; });
  if (targets.empty() || targets.front() != output) {  // the name was one of a device
    throw HostFailure(kNoOutput, platform::ToText(output) + " can't be written");
  }
  std::vector<fs::path> moved;
  for (const fs::path& target : targets) {
    if (target != output && HaveSameBytes(GetPath() / target.filename(), target)) continue;
    const bool isTold = targets.size() == 1 && !replace;  // of what is there, by the move itself
    if (!isTold) OutputPlace(target).CheckReplaceable(replace);
    if (std::find(kept.begin(), kept.end(), target) != kept.end()) {
      throw HostFailure(kNoOutput, platform::ToText(target) +
                                       " has just been made of another file, with other contents");
    }
    moved.push_back(target);
  }
  MoveAll(GetPath(), moved, replace);
  return targets;
}

}  // namespace zelconvert::cli
