#include <windows.h>

#include "platform/Platform.h"
#include "platform/win32/Paths.h"

namespace zelconvert::platform {
namespace {

bool SetAttributes(const std::wstring& path, DWORD word) {
  return SetFileAttributesW(ToSystemPath(path).c_str(), word ? word : FILE_ATTRIBUTE_NORMAL) != 0;
}

}  // namespace

std::optional<Attributes> GetAttributes(const std::wstring& path) {
  const DWORD word = GetFileAttributesW(ToSystemPath(path).c_str());
  if (word == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  Attributes attributes;
  attributes.isDirectory = (word & FILE_ATTRIBUTE_DIRECTORY) != 0;
  attributes.isReadOnly = (word & FILE_ATTRIBUTE_READONLY) != 0;
  attributes.word = word;
  return attributes;
}

bool ClearReadOnly(const std::wstring& path, const Attributes& found) {
  return SetAttributes(path, found.word & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

bool RestoreAttributes(const std::wstring& path, const Attributes& found) {
  return SetAttributes(path, found.word);
}

bool RemoveFile(const std::wstring& path) {
  return DeleteFileW(ToSystemPath(path).c_str()) != 0;
}

}  // namespace zelconvert::platform
