#include "cli/platform/Host.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <utility>

#include "convert/CConvertProgress.h"
#include "io/Strings.h"
#include "platform/posix/Paths.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli::platform {

std::vector<std::string> GetArguments(int argc, char** argv) {
  return std::vector<std::string>(argv + std::min(argc, 1), argv + argc);
}

namespace {

// Whether the process is the host's own. In that of a program that calls its commands, signals are
// the program's.
bool g_isOwnProcess = false;

}  // namespace

void PrepareProcess() {
  g_isOwnProcess = true;
  signal(SIGXFSZ, SIG_IGN);
}

bool IsOutputATerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

bool IsErrorATerminal() {
  return isatty(STDERR_FILENO) != 0;
}

bool ErrorShowsColour() {
  const char* kind = std::getenv("TERM");
  return IsErrorATerminal() && kind != nullptr && std::string_view(kind) != "dumb";
}

void UseBinaryStreams() {}

std::filesystem::path ToPath(std::string_view argument) {
  std::string bytes(argument);
  std::replace(bytes.begin(), bytes.end(), '\\', '/');
  return bytes;
}

std::string ToArgument(const std::filesystem::path& path) {
  return path.native();
}

std::wstring ToLibrary(const std::filesystem::path& path) {
  return zelconvert::platform::FromSystemPath(path.native());
}

std::string ToText(const std::filesystem::path& path) {
  return path.native();
}

// Of a path the library has half pairs for bytes that are no UTF-8.
std::string FromLibraryText(std::wstring_view text) {
  constexpr wchar_t kFirstByte = 0xDC80, kLastByte = 0xDCFF;
  std::string bytes;
  while (!text.empty()) {
    const wchar_t first = text.front();
    if (first >= kFirstByte && first <= kLastByte) {
      bytes += static_cast<char>(first & 0xFF);
    } else {
      AppendUtf8(bytes, text.substr(0, 1));
    }
    text.remove_prefix(1);
  }
  return bytes;
}

std::filesystem::path::string_type NameKey(std::filesystem::path::string_type name) {
  return name;
}

bool IsReadable(const std::filesystem::path& path) {
  return access(path.c_str(), R_OK) == 0;
}

namespace {

bool Flush(int file) {
  return fsync(file) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
}

// False, with errno EEXIST, if there is an entry of that name. Not every file system can move so,
// nor give a file a second name; where neither is possible the name is taken first.
bool MoveToNewName(const char* from, const char* to) {
#ifdef RENAME_NOREPLACE
  if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return true;
#endif
  if (link(from, to) == 0) {
    unlink(from);
    return true;
  }
  const int taken = open(to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (taken < 0) return false;
  close(taken);
  if (rename(from, to) == 0) return true;
  const int error = errno;
  unlink(to);
  errno = error;
  return false;
}

}  // namespace

void MoveIntoPlace(const std::filesystem::path& from, const std::filesystem::path& to, bool replace,
                   std::error_code& error) {
  const bool isMoved =
      replace ? rename(from.c_str(), to.c_str()) == 0 : MoveToNewName(from.c_str(), to.c_str());
  if (!isMoved) error.assign(errno, std::generic_category());
}

void FlushFile(const std::filesystem::path& path, std::error_code& error) {
  const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
  if (file < 0 || !Flush(file)) error.assign(errno, std::generic_category());
  if (file >= 0) close(file);
}

// One that may be written but not read can't be asked.
void FlushFolder(const std::filesystem::path& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

std::FILE* OpenForWriting(const std::filesystem::path& path, bool replace) {
  const int file =
      open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (replace ? O_TRUNC : O_EXCL), 0666);
  return file < 0 ? nullptr : fdopen(file, "wb");
}

struct ProgressWindow::Window : ZelWindow {
  static std::intptr_t Receive(ZelWindow* window, std::uint32_t, std::uintptr_t kind,
                               std::intptr_t argument) {
    if (kind != 0) {
      static_cast<Window*>(window)->receive(kind == 1 ? static_cast<int>(argument) : -1);
    }
    return 0;
  }
  std::function<void(int)> receive;
};

namespace {

void SetWindow(ZelWindowHandle window) {
  cZelSetupZelConvertDLLCallBack(window);
  CZelConvertApp::Get().SetWindow(window);
}

}  // namespace

ProgressWindow::ProgressWindow(std::function<void(int)> receive)
    : m_pWindow(new Window{{&Window::Receive}, std::move(receive)}) {
  SetWindow(m_pWindow.get());
}

ProgressWindow::~ProgressWindow() {
  SetWindow(nullptr);
}

namespace {

struct LeftBehindFolder {
  std::string path;
  DIR* entries = nullptr;  // for reading once
};

// For the handler, which can't ask for memory: it may have interrupted whoever hands it out. Never
// destroyed, as a signal may come while the program ends.
struct LeftBehind {
  std::vector<LeftBehindFolder> folders;  // one in another comes later
  std::string file;                       // that was read-only; empty: none
  mode_t mode = 0;
};
LeftBehind& g_leftBehind = *new LeftBehind;

// The run stands still meanwhile: there is no other thread.
void CleanUp(int number) {
  for (std::size_t i = g_leftBehind.folders.size(); i-- > 0;) {
    const auto& [path, entries] = g_leftBehind.folders[i];
    while (entries != nullptr) {
      const dirent* entry = readdir(entries);
      if (entry == nullptr) break;
      unlinkat(dirfd(entries), entry->d_name, 0);
    }
    rmdir(path.c_str());
  }
  if (!g_leftBehind.file.empty()) chmod(g_leftBehind.file.c_str(), g_leftBehind.mode);
  _exit(128 + number);
}

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

sigset_t SignalsHandled() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : kSignals) sigaddset(&signals, number);
  return signals;
}

// One that the starter has set aside, as nohup does, stays aside.
void CleanUpOn(int number) {
  struct sigaction action {};
  if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
  action.sa_handler = CleanUp;
  action.sa_mask = SignalsHandled();
  sigaction(number, &action, nullptr);
}

// While one lives no handler runs, nor another thread of a program that calls commands, so that
// what is left behind can be changed.
class SignalsHeld {
 public:
  SignalsHeld() {
    const sigset_t signals = SignalsHandled();
    pthread_sigmask(SIG_BLOCK, &signals, &m_before);
    Guard().lock();
  }
  ~SignalsHeld() {
    Guard().unlock();
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
  }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  static std::mutex& Guard() {
    static std::mutex& guard = *new std::mutex;
    return guard;
  }

  sigset_t m_before;
};

// Not if another run took the folder for abandoned in the moment before this.
bool LockOwn(const std::filesystem::path& path, int folder) {
  if (flock(folder, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  return access(path.c_str(), F_OK) == 0;
}

}  // namespace

// A lock on the folder says that its process lives. Where there are no locks none is abandoned.
bool MakeTemporaryFolder(const std::filesystem::path& path, std::error_code& error) {
  const SignalsHeld held;
  if (mkdir(path.c_str(), S_IRWXU) != 0) {
    if (errno != EEXIST) error.assign(errno, std::generic_category());
    return false;
  }
  DIR* entries = opendir(path.c_str());
  if (entries == nullptr && errno == ENOENT) return false;
  if (entries != nullptr && !LockOwn(path, dirfd(entries))) {
    closedir(entries);
    return false;
  }
  g_leftBehind.folders.push_back({path, entries});
  static const bool isPrepared = [] {
    if (!g_isOwnProcess) return true;
    for (const int number : kSignals) CleanUpOn(number);
    return true;
  }();
  return isPrepared;
}

void RemoveTemporaryFolder(const std::filesystem::path& path) {
  const SignalsHeld held;
  std::error_code ignored;
  if (rmdir(path.c_str()) != 0) std::filesystem::remove_all(path, ignored);
  std::erase_if(g_leftBehind.folders, [&](const LeftBehindFolder& each) {
    if (each.path != path.native()) return false;
    if (each.entries != nullptr) closedir(each.entries);
    return true;
  });
}

void RemoveIfAbandoned(const std::filesystem::path& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (folder < 0) return;
  struct stat found {};
  const bool isOwn = fstat(folder, &found) == 0 && found.st_uid == geteuid();
  std::error_code ignored;
  if (isOwn && flock(folder, LOCK_EX | LOCK_NB) == 0) std::filesystem::remove_all(path, ignored);
  close(folder);
}

void KeepReadOnly(const std::filesystem::path& file) {
  const SignalsHeld held;
  struct stat found {};
  const bool isReadOnly = stat(file.c_str(), &found) == 0 && (found.st_mode & S_IWUSR) == 0;
  g_leftBehind.file = isReadOnly ? file.native() : "";
  g_leftBehind.mode = found.st_mode & 07777;
}

}  // namespace zelconvert::cli::platform
