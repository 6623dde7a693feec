#include <windows.h>

#include "platform/Platform.h"
#include "platform/win32/Paths.h"

namespace zelconvert::platform {
namespace {

[[nodiscard]] bool SetAttributes(const std::wstring& path, DWORD word) {
  return SetFileAttributesW(SystemPath(path).Get(), word ? word : FILE_ATTRIBUTE_NORMAL) != 0;
}

// What stays the same by whatever path a file is reached. False if it isn't there.
[[nodiscard]] bool GetIdentity(const std::wstring& path, BY_HANDLE_FILE_INFORMATION& identity) {
  const HANDLE handle = CreateFileW(SystemPath(path).Get(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  const bool known = GetFileInformationByHandle(handle, &identity) != 0;
  CloseHandle(handle);
  return known;
}

}  // namespace

std::optional<Attributes> GetAttributes(const std::wstring& path) {
  const DWORD word = GetFileAttributesW(SystemPath(path).Get());
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

bool RestoreAttributes(const std::wstring& path, const Attributes& found) noexcept {
  return SetAttributes(path, found.word);
}

bool RemoveFile(const std::wstring& path) noexcept {
  return DeleteFileW(SystemPath(path).Get()) != 0;
}

bool IsSameFile(const std::wstring& path, const std::wstring& other) {
  BY_HANDLE_FILE_INFORMATION one, two;
  return GetIdentity(path, one) && GetIdentity(other, two) &&
         one.dwVolumeSerialNumber == two.dwVolumeSerialNumber &&
         one.nFileIndexHigh == two.nFileIndexHigh && one.nFileIndexLow == two.nFileIndexLow;
}

}  // namespace zelconvert::platform
