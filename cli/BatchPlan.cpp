#include "cli/BatchPlan.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <system_error>

#include "cli/FileChecks.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;
using Key = fs::path::string_type;

std::vector<std::string> ReadNames(std::istream& list) {
  std::vector<std::string> names;
  for (std::string line; std::getline(list, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) names.push_back(line);
  }
  return names;
}

std::vector<std::string> NamesOf(const Options& options) {
  if (options.filesFrom.has_value() != options.files.empty()) {
    throw HostFailure(kWrongUsage, "either FILE or --files-from says which files are converted");
  }
  if (std::ranges::find(options.files, "-") != options.files.end()) {
    throw HostFailure(kWrongUsage,
                      "a batch converts files with names; --files-from - reads their names");
  }
  if (!options.filesFrom) return options.files;
  if (*options.filesFrom == "-") return ReadNames(std::cin);
  const fs::path path = Absolute(*options.filesFrom);
  CheckReadable(path);
  std::ifstream list(path);
  return ReadNames(list);
}

fs::path PlaceBelow(const fs::path& folder, const fs::path& given, const std::string& extension) {
  fs::path place = folder;
  for (const fs::path& part : given.relative_path().lexically_normal()) {
    if (part != "..") place /= part;
  }
  return place.replace_extension(extension);
}

// Names of files, whatever links lead to their folders.
class RealNames {
 public:
  /// path: absolute.
  Key Get(const fs::path& path) {
    const Key& name = path.native();
    const std::size_t start = name.size() - path.filename().native().size();
    const auto [at, isNew] = m_folders.try_emplace(name.substr(0, start));
    std::error_code error;
    if (isNew) at->second = (fs::weakly_canonical(path.parent_path(), error) / "").native();
    return platform::NameKey(at->second + name.substr(start));
  }

 private:
  std::map<Key, Key> m_folders;  // with a separator at the end
};

void CheckDistinctFiles(const std::vector<BatchFile>& files) {
  RealNames names;
  std::map<Key, const BatchFile*> inputs, outputs;
  for (const BatchFile& file : files) inputs.emplace(names.Get(file.input), &file);
  for (const BatchFile& file : files) {
    const Key output = names.Get(file.output);
    const auto [at, isNew] = outputs.emplace(output, &file);
    if (!isNew) {
      throw HostFailure(kWrongUsage, at->second->given + " and " + file.given +
                                         " would both become " + ToText(file.output));
    }
    if (inputs.contains(output)) {
      throw HostFailure(kWrongUsage, "the output " + ToText(file.output) + " is an input");
    }
  }
}

}  // namespace

std::vector<BatchFile> PlanBatch(const Options& options) {
  if (options.outDir == "-") {
    throw HostFailure(kWrongUsage,
                      "--out-dir is a folder: a batch makes many files, standard output takes one");
  }
  const fs::path folder = Absolute(options.outDir);
  const std::string extension = ExtensionNamed(options.to);
  std::vector<BatchFile> files;
  for (const std::string& name : NamesOf(options)) {
    const fs::path given = platform::ToPath(name);
    files.push_back({name, Absolute(name), PlaceBelow(folder, given, extension)});
  }
  CheckDistinctFiles(files);
  return files;
}

}  // namespace zelconvert::cli
