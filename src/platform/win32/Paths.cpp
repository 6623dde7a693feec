#include "platform/win32/Paths.h"

#include <windows.h>

#include "platform/Platform.h"

namespace zelconvert::platform {
namespace {

// Below this every call takes a path as it is, folders included (MAX_PATH less an 8.3 name).
constexpr std::size_t kShortEnough = 248;

// The absolute path without "." and "..", with "\" alone; empty if the system refuses it.
std::wstring FullPath(const std::wstring& path) {
  const DWORD needed = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring full(needed, L'\0');
  const DWORD used = GetFullPathNameW(path.c_str(), needed, full.data(), nullptr);
  full.resize(used < needed ? used : 0);
  return full;
}

}  // namespace

const wchar_t kPathSeparator = L'\\';

std::wstring ToSystemPath(const std::wstring& path) {
  if (path.find(L'\0') != std::wstring::npos) return std::wstring();
  if (path.starts_with(L"\\\\?\\")) return path;
  const std::wstring full = FullPath(path);
  if (full.size() < kShortEnough) return path;
  if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
  return L"\\\\?\\" + full;
}

std::wstring ProgramDirectory() {
  constexpr DWORD kLongestPath = 32768;
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  return path.substr(0, path.rfind(L'\\') + 1);
}

}  // namespace zelconvert::platform
