// Paths in the system's own form.
#pragma once

#include <string>

namespace zelconvert::platform {

/// A path for the system's calls: long ones absolute and in the form that has no length limit.
/// Empty, which no call finds, if the path holds a zero character, or is long and there is no
/// memory. Others take none from the heap, since what was made is also removed when there is none.
class SystemPath {
 public:
  explicit SystemPath(const std::wstring& path) noexcept;
  SystemPath(const SystemPath&) = delete;
  SystemPath& operator=(const SystemPath&) = delete;
  /// As long as both this and the path are there.
  const wchar_t* Get() const { return m_path; }

 private:
  const wchar_t* m_path;
  std::wstring m_long;
};

}  // namespace zelconvert::platform
