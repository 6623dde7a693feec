#include "cli/FileChecks.h"

#include <system_error>

#include "cli/Host.h"
#include "cli/StagingFolder.h"
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

void CheckNoFolder(const fs::path& output) {
  std::error_code ignored;
  if (!output.has_filename() || fs::is_directory(output, ignored)) {
    throw HostFailure(kNoOutput, ToText(output) + " is a folder");
  }
}

void CheckOutput(const fs::path& output, bool replace) {
  CheckNoFolder(output);
  std::error_code ignored;
  if (!fs::is_directory(output.parent_path(), ignored)) {
    throw HostFailure(kNoOutput, "the folder " + ToText(output.parent_path()) + " does not exist");
  }
  CheckReplaceable(output, replace);
}

void CheckDistinct(const fs::path& output, const fs::path& input) {
  std::error_code ignored;
  if (output == input || fs::equivalent(output, input, ignored)) {
    throw HostFailure(kWrongUsage, "the output " + ToText(output) + " is an input");
  }
}

}  // namespace zelconvert::cli
