// A folder for the files that are made on the way to a survey: nobody else's to look into, gone
// with its object.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zelconvert::tools {

class TemporaryFolder {
 public:
  /// Throws std::filesystem::filesystem_error if the system gives no place.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The path of a file in it, as the library takes it.
  std::wstring Path(std::string_view name) const;

 private:
  std::filesystem::path m_path;
};

}  // namespace zelconvert::tools
