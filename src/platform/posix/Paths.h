// Paths in the system's own form.
#pragma once

#include <limits.h>

#include <string>
#include <string_view>

namespace zelconvert::platform {

/// UTF-8 with "/" as the only separator. U+DC80 to U+DCFF stand for the bytes 80 to FF of a name
/// that is no UTF-8. Empty, which no call finds, if the path holds a zero character or is longer
/// than any path that the system takes. Takes no memory from the heap, since what was made is also
/// removed when there is none.
class SystemPath {
 public:
  explicit SystemPath(std::wstring_view path) noexcept;
  const char* Get() const { return m_bytes; }

 private:
  char m_bytes[PATH_MAX];
};
/// The other way; bytes that are no UTF-8 become U+DC80 to U+DCFF.
std::wstring FromSystemPath(std::string_view path);

}  // namespace zelconvert::platform
