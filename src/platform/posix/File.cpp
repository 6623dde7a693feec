#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "platform/Platform.h"
#include "platform/posix/Paths.h"

namespace zelconvert::platform {
namespace {

static_assert(sizeof(off_t) == 8, "files over 2 GB need 64-bit offsets");

// The system has no deny-write that every program keeps, so the process keeps a list of its own.
struct OpenFile {
  int descriptor;
  dev_t device;
  ino_t inode;
  bool writes;
};

std::vector<OpenFile>& OpenFiles() {
  static std::vector<OpenFile> files;
  return files;
}

bool IsDenied(const struct stat& file, bool writes) {
  return std::any_of(OpenFiles().begin(), OpenFiles().end(), [&](const OpenFile& open) {
    return open.device == file.st_dev && open.inode == file.st_ino && (open.writes || writes);
  });
}

bool Writes(std::uint32_t access) {
  return (access & (kAccessWrite | kAccessReadWrite)) != 0;
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

int OpenDescriptor(const std::string& name, std::uint32_t access) {
  return Retry([&] { return open(name.c_str(), OpenFlags(access), 0666); });
}

// Enters a file of data in the list, unless an open of it excludes this one; empties it if asked
// to.
bool Accept(int descriptor, std::uint32_t access) {
  struct stat file {};
  if (fstat(descriptor, &file) != 0) return false;
  if (S_ISDIR(file.st_mode) || S_ISFIFO(file.st_mode)) return false;
  if (IsDenied(file, Writes(access))) return false;
  const bool truncate = (access & kAccessCreate) && !(access & kAccessNoTruncate);
  if (truncate && S_ISREG(file.st_mode) && Retry([&] { return ftruncate(descriptor, 0); }) != 0) {
    return false;
  }
  OpenFiles().push_back({descriptor, file.st_dev, file.st_ino, Writes(access)});
  return true;
}

}  // namespace

struct File::Handle {
  int descriptor = -1;
};

File::File() : m_pHandle(std::make_unique<Handle>()) {}

File::~File() {
  Close();
}

bool File::Open(const std::wstring& path, std::uint32_t access) {
  if (IsOpen()) return false;
  const std::string name = ToSystemPath(path);
  int descriptor = OpenDescriptor(name, access);
  if (descriptor < 0 && !(access & kAccessCreate)) {
    access = kOpenReadOnly;
    descriptor = OpenDescriptor(name, access);
  }
  if (descriptor < 0) return false;
  if (!Accept(descriptor, access)) {
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
  std::erase_if(OpenFiles(), [&](const OpenFile& file) { return file.descriptor == descriptor; });
  // An interrupted close has closed all the same: the descriptor must not be touched again.
  return close(descriptor) == 0 || errno == EINTR;
}

}  // namespace zelconvert::platform
