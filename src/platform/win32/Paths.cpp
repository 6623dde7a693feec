#include "platform/win32/Paths.h"

#include <windows.h>

#include "platform/Platform.h"

namespace zelconvert::platform {
namespace {

// Below this every call takes a path as it is, folders included (MAX_PATH less an 8.3 name).
constexpr DWORD kShortEnough = 248;

[[nodiscard]] bool IsShort(const std::wstring& path) {
  wchar_t full[kShortEnough];
  return GetFullPathNameW(path.c_str(), kShortEnough, full, nullptr) < kShortEnough;
}

// The absolute path without "." and "..", with "\" alone, in the form that has no length limit.
std::wstring LongPath(const std::wstring& path) {
  const DWORD needed = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring full(needed, L'\0');
  const DWORD used = GetFullPathNameW(path.c_str(), needed, full.data(), nullptr);
  full.resize(used < needed ? used : 0);
  if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
  return L"\\\\?\\" + full;
}

}  // namespace

const wchar_t kPathSeparator = L'\\';

SystemPath::SystemPath(const std::wstring& path) noexcept : m_path(path.c_str()) {
  if (path.find(L'\0') != std::wstring::npos) {
    m_path = L"";
  } else if (!path.starts_with(L"\\\\?\\") && !IsShort(path)) {
    try {
      m_long = LongPath(path);
    } catch (...) {  // there is no memory
    }
    m_path = m_long.c_str();
  }
}

std::wstring ProgramDirectory() {
  constexpr DWORD kLongestPath = 32768;
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  return path.substr(0, path.rfind(L'\\') + 1);
}

}  // namespace zelconvert::platform
