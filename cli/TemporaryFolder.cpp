#include "cli/TemporaryFolder.h"

#include <memory>
#include <optional>
#include <random>
#include <string>
#include <system_error>

#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace fs = std::filesystem;
using platform::ToText;
namespace {

constexpr const char* kNameStart = ".zelconvert-";

std::string RandomName() {
  return kNameStart + std::to_string(std::random_device()());
}

fs::path SystemFolder() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (!error) return folder;
  throw HostFailure(kNoOutput, "there is no folder for temporary files: " + error.message());
}

}  // namespace

TemporaryFolder::TemporaryFolder() : TemporaryFolder(SystemFolder()) {}

TemporaryFolder::TemporaryFolder(const fs::path& parent) {
  std::error_code error;
  do {
    m_path = parent / RandomName();
  } while (!platform::MakeTemporaryFolder(m_path, error) && !error);
  if (error) {
    throw HostFailure(kNoOutput,
                      "the folder " + ToText(parent) + " can't be written: " + error.message());
  }
}

TemporaryFolder::~TemporaryFolder() {
  platform::RemoveTemporaryFolder(m_path);
}

tools::FolderMaker MakeTemporaryFolders() {
  return [folder = std::make_shared<std::optional<TemporaryFolder>>()] {
    return platform::ToLibrary(folder->emplace().GetPath());
  };
}

void RemoveAbandonedFolders(const fs::path& parent) {
  std::error_code error;
  for (fs::directory_iterator at(parent, error), end; at != end; at.increment(error)) {
    const bool isOurs = ToText(at->path().filename()).starts_with(kNameStart);
    if (isOurs) platform::RemoveIfAbandoned(at->path());
  }
}

}  // namespace zelconvert::cli
