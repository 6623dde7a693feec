#include "platform/posix/Paths.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>

#include "platform/Platform.h"
#include "platform/Utf8.h"

namespace zelconvert::platform {
namespace {

constexpr char32_t kRawByte = 0xDC00;  // plus a byte from 80 on

// The bytes of a character that isn't zero: few enough for a string to hold in itself.
std::string SystemBytes(wchar_t wide) {
  const auto c = static_cast<char32_t>(wide);
  std::string bytes;
  if (wide == L'\\') {
    bytes.push_back('/');
  } else if (c >= kRawByte + 0x80 && c <= kRawByte + 0xFF) {
    bytes.push_back(static_cast<char>(c - kRawByte));
  } else {
    AppendUtf8(bytes, c);
  }
  return bytes;
}

}  // namespace

const wchar_t kPathSeparator = L'/';

SystemPath::SystemPath(std::wstring_view path) noexcept {
  char* end = m_bytes;
  for (const wchar_t wide : path) {
    const std::string bytes = SystemBytes(wide);
    const bool fits = end + bytes.size() < std::end(m_bytes);
    if (wide == L'\0' || !fits) {
      end = m_bytes;
      break;
    }
    end = std::copy(bytes.begin(), bytes.end(), end);
  }
  *end = '\0';
}

std::wstring FromSystemPath(std::string_view path) {
  std::wstring wide;
  while (!path.empty()) {
    const Utf8Character next = DecodeUtf8(path);
    const char32_t rawByte = kRawByte + static_cast<unsigned char>(path.front());
    wide.push_back(static_cast<wchar_t>(next.isValid ? next.character : rawByte));
    path.remove_prefix(next.isValid ? next.length : 1);
  }
  return wide;
}

std::wstring ProgramDirectory() {
  std::string path(4096, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) return std::wstring();
  path.resize(static_cast<std::size_t>(length));
  return FromSystemPath(std::string_view(path).substr(0, path.rfind('/') + 1));
}

}  // namespace zelconvert::platform
