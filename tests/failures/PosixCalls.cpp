// The calls that src/platform/posix makes.
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "failures/FailingCalls.h"

namespace {

using zelconvert::failing::Fails;
using zelconvert::failing::g_state;
using zelconvert::failing::Kind;

// The real call, or -1 and the error.
template <class Call>
auto Try(const char* name, int error, Call call) -> decltype(call()) {
  if (!Fails(Kind::Call, name)) return call();
  errno = error;
  return -1;
}

}  // namespace

// NOLINTBEGIN: the linker has given the names
extern "C" {

int __real_open64(const char*, int, mode_t);
int __real_close(int);
ssize_t __real_read(int, void*, size_t);
ssize_t __real_write(int, const void*, size_t);
off64_t __real_lseek64(int, off64_t, int);
int __real_fstat64(int, struct stat64*);
int __real_ftruncate64(int, off64_t);
int __real_stat64(const char*, struct stat64*);
int __real_lstat64(const char*, struct stat64*);
int __real_chmod(const char*, mode_t);
int __real_unlink(const char*);

int __wrap_open64(const char* path, int flags, mode_t mode) {
  const int descriptor = Try("open", EACCES, [&] { return __real_open64(path, flags, mode); });
  if (descriptor >= 0) ++g_state.open;
  return descriptor;
}
// A descriptor is closed even if that fails.
int __wrap_close(int descriptor) {
  const int result = __real_close(descriptor);
  if (result == 0) --g_state.open;
  return Try("close", EIO, [&] { return result; });
}
ssize_t __wrap_read(int descriptor, void* buffer, size_t count) {
  return Try("read", EIO, [&] { return __real_read(descriptor, buffer, count); });
}
// A disk that is full takes a part first.
ssize_t __wrap_write(int descriptor, const void* buffer, size_t count) {
  return Try("write", ENOSPC, [&] {
    return __real_write(descriptor, buffer, count > 1 && g_state.isOn ? count / 2 : count);
  });
}
off64_t __wrap_lseek64(int descriptor, off64_t offset, int from) {
  return Try("lseek", EIO, [&] { return __real_lseek64(descriptor, offset, from); });
}
int __wrap_fstat64(int descriptor, struct stat64* file) {
  return Try("fstat", EIO, [&] { return __real_fstat64(descriptor, file); });
}
int __wrap_ftruncate64(int descriptor, off64_t length) {
  return Try("ftruncate", EIO, [&] { return __real_ftruncate64(descriptor, length); });
}
int __wrap_stat64(const char* path, struct stat64* file) {
  return Try("stat", EACCES, [&] { return __real_stat64(path, file); });
}
int __wrap_lstat64(const char* path, struct stat64* file) {
  return Try("lstat", EACCES, [&] { return __real_lstat64(path, file); });
}
int __wrap_chmod(const char* path, mode_t mode) {
  return Try("chmod", EPERM, [&] { return __real_chmod(path, mode); });
}
int __wrap_unlink(const char* path) {
  return Try("unlink", EBUSY, [&] { return __real_unlink(path); });
}
}
// NOLINTEND
