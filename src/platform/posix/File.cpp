#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <tuple>
#include <vector>

#include "platform/Platform.h"
#include "platform/posix/Paths.h"

namespace zelconvert::platform {
namespace {

static_assert(sizeof(off_t) == 8, "files over 2 GB need 64-bit offsets");

struct OpenFile {
  int descriptor;
  dev_t device;
  ino_t inode;
  std::uint32_t access;
};

// The system has no deny-write that every program keeps, so the process keeps a list of its own.
struct OpenFiles {
  std::mutex mutex;
  std::vector<OpenFile> list;
};

// Never destroyed: a thread may still convert while the process ends.
OpenFiles& Registry() {
  static OpenFiles& registry = *new OpenFiles;
  return registry;
}

[[nodiscard]] bool Writes(std::uint32_t access) {
  return (access & (kAccessWrite | kAccessReadWrite)) != 0;
}

[[nodiscard]] bool Exclude(std::uint32_t one, std::uint32_t other) {
  return (Writes(one) && other != kOpenShared) || (Writes(other) && one != kOpenShared);
}

[[nodiscard]] bool IsDenied(const std::vector<OpenFile>& list, const struct stat& file,
                            std::uint32_t access) {
  return std::any_of(list.begin(), list.end(), [&](const OpenFile& open) {
    return open.device == file.st_dev && open.inode == file.st_ino && Exclude(open.access, access);
  });
}

// No truncation before the file is known to be free; no blocking on a named pipe.
int OpenFlags(std::uint32_t access) {
  const int mode = (access & kAccessReadWrite) ? O_RDWR
                   : (access & kAccessWrite)   ? O_WRONLY
                                               : O_RDONLY;
  const int create = (access & kAccessCreate) ? O_CREAT : 0;
  return mode | create | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
}

// Calls again what a signal has interrupted.
template <class Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

int OpenDescriptor(const SystemPath& name, int flags) {
  return Retry([&] { return open(name.Get(), flags, 0666); });
}

// False if there is no memory for it.
[[nodiscard]] bool Enter(std::vector<OpenFile>& list, const OpenFile& file) noexcept {
  try {
    list.push_back(file);
  } catch (...) {
    return false;
  }
  return true;
}

// Enters a file of data in the list; empties it if asked to, before anybody else may open it.
[[nodiscard]] bool Take(std::vector<OpenFile>& list, int descriptor, const struct stat& file,
                        std::uint32_t access, bool isNew) {
  if (S_ISDIR(file.st_mode) || S_ISFIFO(file.st_mode)) return false;
  const bool truncate = (access & kAccessCreate) && !(access & kAccessNoTruncate);
  const bool isOld = !isNew && S_ISREG(file.st_mode);
  if (truncate && isOld && Retry([&] { return ftruncate(descriptor, 0); }) != 0) return false;
  return Enter(list, {descriptor, file.st_dev, file.st_ino, access});
}

// Takes a file unless an open of it excludes this one. The file that this open has made goes if it
// isn't taken, but not if another thread was faster to take it.
[[nodiscard]] bool Accept(int descriptor, std::uint32_t access, const SystemPath* made) {
  OpenFiles& open = Registry();
  const std::lock_guard lock(open.mutex);
  struct stat file {};
  const bool isKnown = fstat(descriptor, &file) == 0;
  if (isKnown && IsDenied(open.list, file, access)) return false;
  if (isKnown && Take(open.list, descriptor, file, access, made != nullptr)) return true;
  if (made != nullptr) unlink(made->Get());
  return false;
}

// Before the descriptor is closed: another thread may be given its number at once.
void Forget(int descriptor) {
  OpenFiles& open = Registry();
  const std::lock_guard lock(open.mutex);
  std::erase_if(open.list, [&](const OpenFile& file) { return file.descriptor == descriptor; });
}

}  // namespace

struct File::Handle {
  int descriptor = -1;
};

File::File() : m_pHandle(std::make_unique<Handle>()) {}

File::~File() {
  std::ignore = Close();
}

bool File::Open(const std::wstring& path, std::uint32_t access) {
  if (IsOpen()) return false;
  const SystemPath name(path);
  const bool creates = (access & kAccessCreate) != 0;
  int descriptor = creates ? OpenDescriptor(name, OpenFlags(access) | O_EXCL) : -1;
  const bool isNew = descriptor >= 0;
  if (!isNew) descriptor = OpenDescriptor(name, OpenFlags(access));
  if (descriptor < 0 && !creates) {
    access = kOpenReadOnly;
    descriptor = OpenDescriptor(name, OpenFlags(access));
  }
  if (descriptor < 0) return false;
  if (!Accept(descriptor, access, isNew ? &name : nullptr)) {
    close(descriptor);
    return false;
  }
  m_pHandle->descriptor = descriptor;
  return true;
}

bool File::IsOpen() const {
  return m_pHandle->descriptor >= 0;
}

std::optional<std::size_t> File::Read(void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    char* const at = static_cast<char*>(buffer) + done;
    const ssize_t got = Retry([&] { return read(m_pHandle->descriptor, at, count - done); });
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

bool File::Write(const void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const char* const at = static_cast<const char*>(buffer) + done;
    const ssize_t put = Retry([&] { return write(m_pHandle->descriptor, at, count - done); });
    if (put <= 0) return false;
    done += static_cast<std::size_t>(put);
  }
  return true;
}

std::optional<std::int64_t> File::Seek(std::int64_t offset, SeekFrom from) {
  const int whence = from == SeekFrom::Begin     ? SEEK_SET
                     : from == SeekFrom::Current ? SEEK_CUR
                                                 : SEEK_END;
  const off_t position = lseek(m_pHandle->descriptor, offset, whence);
  if (position < 0) return std::nullopt;
  return position;
}

std::optional<std::int64_t> File::Length() const {
  struct stat file {};
  if (fstat(m_pHandle->descriptor, &file) != 0) return std::nullopt;
  return file.st_size;
}

bool File::Close() {
  if (!IsOpen()) return true;
  const int descriptor = m_pHandle->descriptor;
  m_pHandle->descriptor = -1;
  Forget(descriptor);
  // An interrupted close has closed all the same: the descriptor must not be touched again.
  return close(descriptor) == 0 || errno == EINTR;
}

NewFile MakeNewFile(const std::wstring& path) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
  const int descriptor = OpenDescriptor(SystemPath(path), kFlags);
  if (descriptor < 0) return errno == EEXIST ? NewFile::Taken : NewFile::Refused;
  close(descriptor);
  return NewFile::Made;
}

}  // namespace zelconvert::platform
