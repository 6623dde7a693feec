// Files of GDAL's virtual file systems as real ones, which is all that the library reads.
#pragma once

#include <string>
#include <string_view>

namespace zelconvert::gdal {

/// A folder that goes away with all that is in it. It is made when it is first asked for.
class WorkFolder {
 public:
  WorkFolder() = default;
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  /// Empty, and an error is told, if it can't be made.
  const std::string& GetPath();

 private:
  std::string m_path;
};

/// "/vsizip/..." and the like.
bool IsVirtual(std::string_view path);

/// Copies a virtual file. False, and an error is told, if one of the two can't be read or written.
bool CopyVirtual(const std::string& path, const std::string& copy);

}  // namespace zelconvert::gdal
