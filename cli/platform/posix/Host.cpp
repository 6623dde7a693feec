#include "cli/platform/Host.h"

#include <dirent.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
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

std::filesystem::path FromLibrary(const std::wstring& path) {
  return zelconvert::platform::ToSystemPath(path);
}

std::string ToText(const std::filesystem::path& path) {
  std::string text;
  AppendUtf8(text, ToLibrary(path));
  return text;
}

std::filesystem::path::string_type NameKey(const std::filesystem::path& path) {
  return path.native();
}

bool IsReadable(const std::filesystem::path& path) {
  return access(path.c_str(), R_OK) == 0;
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

// While one lives no handler runs, so that what is left behind can be changed.
class SignalsHeld {
 public:
  SignalsHeld() {
    const sigset_t signals = SignalsHandled();
    sigprocmask(SIG_BLOCK, &signals, &m_before);
  }
  ~SignalsHeld() { sigprocmask(SIG_SETMASK, &m_before, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t m_before;
};

}  // namespace

// A lock on the folder says that its process lives. Where there are no locks none is abandoned.
bool MakeTemporaryFolder(const std::filesystem::path& path, std::error_code& error) {
  const SignalsHeld held;
  if (mkdir(path.c_str(), S_IRWXU) != 0) {
    if (errno != EEXIST) error.assign(errno, std::generic_category());
    return false;
  }
  g_leftBehind.folders.push_back({path, opendir(path.c_str())});
  DIR* entries = g_leftBehind.folders.back().entries;
  if (entries != nullptr) flock(dirfd(entries), LOCK_EX | LOCK_NB);
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
  DIR* entries = opendir(path.c_str());
  if (entries == nullptr) return;
  std::error_code ignored;
  if (flock(dirfd(entries), LOCK_EX | LOCK_NB) == 0) std::filesystem::remove_all(path, ignored);
  closedir(entries);
}

void KeepReadOnly(const std::filesystem::path& file) {
  const SignalsHeld held;
  struct stat found {};
  const bool isReadOnly = stat(file.c_str(), &found) == 0 && (found.st_mode & S_IWUSR) == 0;
  g_leftBehind.file = isReadOnly ? file.native() : "";
  g_leftBehind.mode = found.st_mode & 07777;
}

}  // namespace zelconvert::cli::platform
