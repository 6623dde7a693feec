#include <windows.h>

#include <algorithm>
#include <tuple>

#include "platform/Platform.h"
#include "platform/win32/Paths.h"

namespace zelconvert::platform {
namespace {

// What one call moves: its count has 32 bits.
DWORD MoveSize(std::size_t left) {
  constexpr std::size_t kLargestMove = std::size_t{1} << 30;
  return static_cast<DWORD>(std::min(left, kLargestMove));
}

DWORD Rights(std::uint32_t access) {
  if (access & kAccessReadWrite) return GENERIC_READ | GENERIC_WRITE;
  return (access & kAccessWrite) ? GENERIC_WRITE : GENERIC_READ;
}

DWORD Disposition(std::uint32_t access) {
  if (!(access & kAccessCreate)) return OPEN_EXISTING;
  return (access & kAccessNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;
}

// Sharing for reading alone denies writers; sharing for deletion lets a failed output go while it
// is open.
DWORD Sharing(std::uint32_t access) {
  const DWORD shared = FILE_SHARE_READ | FILE_SHARE_DELETE;
  return access == kOpenShared ? shared | FILE_SHARE_WRITE : shared;
}

HANDLE OpenHandle(const std::wstring& path, std::uint32_t access) {
  return CreateFileW(SystemPath(path).Get(), Rights(access), Sharing(access), nullptr,
                     Disposition(access), FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

struct File::Handle {
  HANDLE handle = INVALID_HANDLE_VALUE;
};

File::File() : m_pHandle(std::make_unique<Handle>()) {}

File::~File() {
  std::ignore = Close();
}

bool File::Open(const std::wstring& path, std::uint32_t access) {
  if (IsOpen()) return false;
  m_pHandle->handle = OpenHandle(path, access);
  // A file that somebody else has open is denied, one that nobody may write isn't.
  if (!IsOpen() && !(access & kAccessCreate) && GetLastError() != ERROR_SHARING_VIOLATION) {
    m_pHandle->handle = OpenHandle(path, kOpenReadOnly);
  }
  // AUX, COM1 and the like are devices in every folder and with every extension, and a road may
  // well have such a name.
  const bool isOutput = (access & kAccessCreate) != 0;
  if (IsOpen() && isOutput && GetFileType(m_pHandle->handle) != FILE_TYPE_DISK) {
    std::ignore = Close();
  }
  return IsOpen();
}

bool File::IsOpen() const {
  return m_pHandle->handle != INVALID_HANDLE_VALUE;
}

std::optional<std::size_t> File::Read(void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    char* const at = static_cast<char*>(buffer) + done;
    DWORD got = 0;
    if (!ReadFile(m_pHandle->handle, at, MoveSize(count - done), &got, nullptr)) {
      return std::nullopt;
    }
    if (got == 0) break;
    done += got;
  }
  return done;
}

bool File::Write(const void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const char* const at = static_cast<const char*>(buffer) + done;
    DWORD put = 0;
    if (!WriteFile(m_pHandle->handle, at, MoveSize(count - done), &put, nullptr)) return false;
    if (put == 0) return false;
    done += put;
  }
  return true;
}

std::optional<std::int64_t> File::Seek(std::int64_t offset, SeekFrom from) {
  const DWORD method = from == SeekFrom::Begin     ? FILE_BEGIN
                       : from == SeekFrom::Current ? FILE_CURRENT
                                                   : FILE_END;
  LARGE_INTEGER distance, position;
  distance.QuadPart = offset;
  if (!SetFilePointerEx(m_pHandle->handle, distance, &position, method)) return std::nullopt;
  return position.QuadPart;
}

std::optional<std::int64_t> File::Length() const {
  LARGE_INTEGER length;
  if (!GetFileSizeEx(m_pHandle->handle, &length)) return std::nullopt;
  return length.QuadPart;
}

bool File::Close() {
  if (!IsOpen()) return true;
  const HANDLE handle = m_pHandle->handle;
  m_pHandle->handle = INVALID_HANDLE_VALUE;
  return CloseHandle(handle) != 0;
}

NewFile MakeNewFile(const std::wstring& path) {
  const HANDLE handle = CreateFileW(SystemPath(path).Get(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return GetLastError() == ERROR_FILE_EXISTS ? NewFile::Taken : NewFile::Refused;
  }
  CloseHandle(handle);
  return NewFile::Made;
}

}  // namespace zelconvert::platform
