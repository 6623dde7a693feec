#include <sys/stat.h>
#include <unistd.h>

#include "platform/Platform.h"
#include "platform/posix/Paths.h"

namespace zelconvert::platform {
namespace {

constexpr mode_t kPermissions = 07777;

[[nodiscard]] bool SetPermissions(const std::wstring& path, mode_t mode) {
  return chmod(SystemPath(path).Get(), mode) == 0;
}

}  // namespace

std::optional<Attributes> GetAttributes(const std::wstring& path) {
  struct stat found {};
  if (stat(SystemPath(path).Get(), &found) != 0) return std::nullopt;
  Attributes attributes;
  attributes.isDirectory = S_ISDIR(found.st_mode);
  attributes.isReadOnly = (found.st_mode & S_IWUSR) == 0;
  attributes.word = found.st_mode & kPermissions;
  return attributes;
}

bool ClearReadOnly(const std::wstring& path, const Attributes& found) {
  return SetPermissions(path, found.word | S_IWUSR);
}

bool RestoreAttributes(const std::wstring& path, const Attributes& found) noexcept {
  return SetPermissions(path, found.word);
}

bool RemoveFile(const std::wstring& path) noexcept {
  const SystemPath name(path);
  struct stat found {};
  if (lstat(name.Get(), &found) != 0) return false;
  if (!S_ISREG(found.st_mode) && !S_ISLNK(found.st_mode)) return false;
  return unlink(name.Get()) == 0;
}

bool IsSameFile(const std::wstring& path, const std::wstring& other) {
  struct stat one {};
  struct stat two {};
  return stat(SystemPath(path).Get(), &one) == 0 && stat(SystemPath(other).Get(), &two) == 0 &&
         one.st_dev == two.st_dev && one.st_ino == two.st_ino;
}

}  // namespace zelconvert::platform
