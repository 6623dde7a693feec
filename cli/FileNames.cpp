#include "cli/FileNames.h"

#include <algorithm>

#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

std::string LowerExtension(const fs::path& path) {
  std::string text = ToText(path.extension());
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

bool IsLogOfFirstBrand(const std::string& extension) {
  return extension == ".raw" || extension == ".rw5";
}

// Whether a file of a type with the extension `expected`, named with `given`, is taken for one of
// the other brand.
bool ChangesBrand(const std::string& expected, const std::string& given) {
  if (expected == ".job") return given != expected;
  return IsLogOfFirstBrand(expected) && !IsLogOfFirstBrand(given);
}

std::string Renamed(const fs::path& path, const std::string& extension) {
  return ToText(path.stem()) + extension;
}

bool ReadsBack(const std::string& expected, const fs::path& output) {
  if (ChangesBrand(expected, ToText(output.extension()))) return false;
  return LowerExtension(output) == expected || TypeNamed(output) == nullptr;
}

}  // namespace

const TypeInfo* TypeNamed(const fs::path& path) {
  const std::string extension = LowerExtension(path);
  const auto* found = std::find_if(std::begin(kTypes), std::end(kTypes), [&](const auto& type) {
    return type.namedByExtension && extension == GetExtension(type.type);
  });
  return found == std::end(kTypes) ? nullptr : found;
}

std::string WarnOfInputName(FileType type, const fs::path& input) {
  const std::string expected = GetExtension(type);
  if (!ChangesBrand(expected, ToText(input.extension()))) return {};
  return ToText(input.filename()) + " is not spelled " + expected +
         ", so the library takes it for a file of the second brand; named " +
         Renamed(input, expected) + " it would be one of the first";
}

std::string WarnOfJobName(const fs::path& job) {
  if (job.extension() == ".job" || job.extension() == ".pwj") return {};
  return ToText(job.filename()) +
         " is not spelled .job or .pwj, so the library reads no points of it";
}

std::string WarnOfOutputName(FileType type, const fs::path& output) {
  const std::string expected = GetExtension(type);
  if (ReadsBack(expected, output)) return {};
  return ToText(output.filename()) + " won't be taken for a file of type " +
         std::string(FindType(type)->name) + "; named " + Renamed(output, expected) +
         " it would be one";
}

}  // namespace zelconvert::cli
