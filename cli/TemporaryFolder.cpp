#include "cli/TemporaryFolder.h"

#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <system_error>

#include "cli/FileChecks.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace fs = std::filesystem;
using platform::ToText;
namespace {

constexpr const char* kNameStart = ".zelconvert-";
constexpr int kMostTries = 100;

std::string RandomName() {
  std::random_device random;
  return kNameStart + std::to_string(random()) + std::to_string(random());
}

bool IsRandomName(const std::string& name) {
  return name.starts_with(kNameStart) &&
         name.find_first_not_of("0123456789", std::strlen(kNameStart)) == std::string::npos;
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
  for (int tries = 0; tries < kMostTries && !error; ++tries) {
    m_path = parent / RandomName();
    if (platform::MakeTemporaryFolder(m_path, error)) return;
  }
  if (!error) error = std::make_error_code(std::errc::device_or_resource_busy);
  CheckFolder(parent);
  throw HostFailure(kNoOutput,
                    "the folder " + ToText(parent) + " can't be written: " + error.message());
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
    if (IsRandomName(ToText(at->path().filename()))) platform::RemoveIfAbandoned(at->path());
  }
}

}  // namespace zelconvert::cli
