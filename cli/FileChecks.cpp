#include "cli/FileChecks.h"

#include <system_error>

#include "cli/FileNames.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {

namespace fs = std::filesystem;
using platform::ToText;

fs::path Absolute(const std::string& argument) {
  if (argument.empty()) throw HostFailure(kWrongUsage, "the name of a file is empty");
  return fs::absolute(platform::ToPath(argument));
}

void CheckReadable(const fs::path& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (!fs::exists(status)) throw HostFailure(kNoInput, ToText(path) + " does not exist");
  if (!fs::is_regular_file(status)) throw HostFailure(kNoInput, ToText(path) + " is not a file");
  if (!platform::IsReadable(path)) throw HostFailure(kNoInput, ToText(path) + " can't be read");
}

fs::path CheckJob(const std::string& argument) {
  const fs::path job = Absolute(argument);
  const std::string fault = WarnOfJobName(job);
  if (!fault.empty()) throw HostFailure(kWrongUsage, fault);
  CheckReadable(job);
  return job;
}

void CheckFolder(const fs::path& folder) {
  std::error_code ignored;
  if (fs::is_directory(folder, ignored)) return;
  throw HostFailure(kNoOutput, "the folder " + ToText(folder) + " does not exist");
}

namespace {

// Of a link what it leads to, or the link where that is nothing.
fs::file_status LookAt(const fs::path& path) {
  std::error_code ignored;
  const fs::file_status own = fs::symlink_status(path, ignored);
  if (!fs::is_symlink(own)) return own;
  const fs::file_status target = fs::status(path, ignored);
  return fs::exists(target) ? target : own;
}

}  // namespace

OutputPlace::OutputPlace(const fs::path& path) : m_path(path), m_found(LookAt(path)) {}

void OutputPlace::CheckNoFolder() const {
  if (m_path.has_filename() && !fs::is_directory(m_found)) return;
  throw HostFailure(kNoOutput, ToText(m_path) + " is a folder");
}

void OutputPlace::CheckDistinct(const fs::path& input) const {
  std::error_code ignored;
  if (m_path == input || (fs::exists(m_found) && fs::equivalent(m_path, input, ignored))) {
    throw HostFailure(kWrongUsage, "the output " + ToText(m_path) + " is an input");
  }
}

void OutputPlace::CheckReplaceable(bool replace) const {
  if (!fs::exists(m_found)) return;
  if (!fs::is_regular_file(m_found) && !fs::is_symlink(m_found)) {
    throw HostFailure(kNoOutput, ToText(m_path) + " is no file to be replaced");
  }
  if (!replace) RefuseReplacing();
}

void OutputPlace::RefuseReplacing() const {
  throw HostFailure(kNoOutput, ToText(m_path) + " exists; --force replaces it");
}

}  // namespace zelconvert::cli
