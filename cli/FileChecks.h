// What is found out about the files of a command before it makes anything.
#pragma once

#include <filesystem>
#include <string>

namespace zelconvert::cli {

/// Throws a HostFailure for an empty name.
std::filesystem::path Absolute(const std::string& argument);

// Each check throws a HostFailure that tells the user what is wrong.

void CheckReadable(const std::filesystem::path& input);
/// That the job that --job names is one by its name, and readable. Its path.
std::filesystem::path CheckJob(const std::string& argument);
/// That there is a folder.
void CheckFolder(const std::filesystem::path& folder);

/// A name where a file is to be made. What stands there is looked at once, at first.
class OutputPlace {
 public:
  explicit OutputPlace(const std::filesystem::path& path);

  /// That the name is one of a file.
  void CheckNoFolder() const;
  /// That it isn't an input by any path or link.
  void CheckDistinct(const std::filesystem::path& input) const;
  /// That nothing stands there but a file that may be replaced.
  void CheckReplaceable(bool replace) const;
  /// What is told of a file that may not.
  [[noreturn]] void RefuseReplacing() const;

 private:
  const std::filesystem::path& m_path;
  std::filesystem::file_status m_found;
};

}  // namespace zelconvert::cli
