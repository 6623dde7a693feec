// The calls that src/platform/win32 makes. A program makes them through pointers, which the system
// fills when it loads it; the linker puts pointers to these functions in their place.
#include <windows.h>

#include "failures/FailingCalls.h"

// NOLINTBEGIN: the linker has given the names
extern "C" {
extern decltype(&CreateFileW) __real___imp_CreateFileW;
extern decltype(&CloseHandle) __real___imp_CloseHandle;
extern decltype(&ReadFile) __real___imp_ReadFile;
extern decltype(&WriteFile) __real___imp_WriteFile;
extern decltype(&SetFilePointerEx) __real___imp_SetFilePointerEx;
extern decltype(&GetFileSizeEx) __real___imp_GetFileSizeEx;
extern decltype(&GetFileInformationByHandle) __real___imp_GetFileInformationByHandle;
extern decltype(&GetFileAttributesW) __real___imp_GetFileAttributesW;
extern decltype(&SetFileAttributesW) __real___imp_SetFileAttributesW;
extern decltype(&DeleteFileW) __real___imp_DeleteFileW;
}

namespace {

using zelconvert::failing::Fails;
using zelconvert::failing::g_state;
using zelconvert::failing::Kind;

// The real call, or false and the error.
template <class Call, class... Arguments>
BOOL Try(const char* name, DWORD error, Call call, Arguments... arguments) {
  if (!Fails(Kind::Call, name)) return call(arguments...);
  SetLastError(error);
  return FALSE;
}

HANDLE WINAPI Create(LPCWSTR path, DWORD rights, DWORD sharing, LPSECURITY_ATTRIBUTES security,
                     DWORD disposition, DWORD flags, HANDLE pattern) {
  if (Fails(Kind::Call, "open")) {
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
  }
  const HANDLE handle =
      __real___imp_CreateFileW(path, rights, sharing, security, disposition, flags, pattern);
  if (handle != INVALID_HANDLE_VALUE) ++g_state.open;
  return handle;
}
// A handle is closed even if that fails.
BOOL WINAPI Close(HANDLE handle) {
  const BOOL isClosed = __real___imp_CloseHandle(handle);
  if (isClosed) --g_state.open;
  return Try("close", ERROR_WRITE_FAULT, [=] { return isClosed; });
}
BOOL WINAPI Read(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD got, LPOVERLAPPED at) {
  return Try("read", ERROR_READ_FAULT, __real___imp_ReadFile, handle, buffer, count, got, at);
}
// A disk that is full takes a part first.
BOOL WINAPI Write(HANDLE handle, LPCVOID buffer, DWORD count, LPDWORD put, LPOVERLAPPED at) {
  const DWORD part = count > 1 && g_state.isOn ? count / 2 : count;
  return Try("write", ERROR_DISK_FULL, __real___imp_WriteFile, handle, buffer, part, put, at);
}
BOOL WINAPI Seek(HANDLE handle, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD from) {
  return Try("lseek", ERROR_SEEK, __real___imp_SetFilePointerEx, handle, distance, position, from);
}
BOOL WINAPI Size(HANDLE handle, PLARGE_INTEGER size) {
  return Try("fstat", ERROR_READ_FAULT, __real___imp_GetFileSizeEx, handle, size);
}
BOOL WINAPI Information(HANDLE handle, LPBY_HANDLE_FILE_INFORMATION found) {
  return Try("stat", ERROR_READ_FAULT, __real___imp_GetFileInformationByHandle, handle, found);
}
DWORD WINAPI GetAttributes(LPCWSTR path) {
  if (!Fails(Kind::Call, "stat")) return __real___imp_GetFileAttributesW(path);
  SetLastError(ERROR_ACCESS_DENIED);
  return INVALID_FILE_ATTRIBUTES;
}
BOOL WINAPI SetAttributes(LPCWSTR path, DWORD word) {
  return Try("chmod", ERROR_ACCESS_DENIED, __real___imp_SetFileAttributesW, path, word);
}
BOOL WINAPI Delete(LPCWSTR path) {
  return Try("unlink", ERROR_ACCESS_DENIED, __real___imp_DeleteFileW, path);
}

}  // namespace

extern "C" {
decltype(&CreateFileW) __wrap___imp_CreateFileW = Create;
decltype(&CloseHandle) __wrap___imp_CloseHandle = Close;
decltype(&ReadFile) __wrap___imp_ReadFile = Read;
decltype(&WriteFile) __wrap___imp_WriteFile = Write;
decltype(&SetFilePointerEx) __wrap___imp_SetFilePointerEx = Seek;
decltype(&GetFileSizeEx) __wrap___imp_GetFileSizeEx = Size;
decltype(&GetFileInformationByHandle) __wrap___imp_GetFileInformationByHandle = Information;
decltype(&GetFileAttributesW) __wrap___imp_GetFileAttributesW = GetAttributes;
decltype(&SetFileAttributesW) __wrap___imp_SetFileAttributesW = SetAttributes;
decltype(&DeleteFileW) __wrap___imp_DeleteFileW = Delete;
}
// NOLINTEND
