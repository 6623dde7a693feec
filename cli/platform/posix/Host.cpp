#include "cli/platform/Host.h"

#include <dirent.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "io/Strings.h"
#include "platform/posix/Paths.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli::platform {

std::vector<std::string> GetArguments(int argc, char** argv) {
  return std::vector<std::string>(argv + std::min(argc, 1), argv + argc);
}

void PrepareProcess() {
  signal(SIGXFSZ, SIG_IGN);
}

bool IsErrorATerminal() {
  return isatty(STDERR_FILENO) != 0;
}

std::filesystem::path ToPath(std::string_view argument) {
  std::string bytes(argument);
  std::replace(bytes.begin(), bytes.end(), '\\', '/');
  return bytes;
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

ProgressWindow::ProgressWindow(std::function<void(int)> receive)
    : m_pWindow(new Window{{&Window::Receive}, std::move(receive)}) {
  cZelSetupZelConvertDLLCallBack(m_pWindow.get());
}

ProgressWindow::~ProgressWindow() {
  cZelSetupZelConvertDLLCallBack(nullptr);
}

namespace {

// For the handler, which can't ask for memory: it may have interrupted whoever hands it out. Never
// destroyed, as a signal may come while the program ends.
struct LeftBehind {
  std::string folder;
  DIR* entries = nullptr;  // of the folder, for reading once
  std::string file;        // that was read-only; empty: none
  mode_t mode = 0;
};
LeftBehind& g_leftBehind = *new LeftBehind;

// The run stands still meanwhile: there is no other thread.
void CleanUp(int number) {
  while (g_leftBehind.entries != nullptr) {
    const dirent* entry = readdir(g_leftBehind.entries);
    if (entry == nullptr) break;
    unlinkat(dirfd(g_leftBehind.entries), entry->d_name, 0);
  }
  rmdir(g_leftBehind.folder.c_str());
  if (!g_leftBehind.file.empty()) chmod(g_leftBehind.file.c_str(), g_leftBehind.mode);
  _exit(128 + number);
}

// One that the starter has set aside, as nohup does, stays aside.
void CleanUpOn(int number, const sigset_t& blocked) {
  struct sigaction action {};
  if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
  action.sa_handler = CleanUp;
  action.sa_mask = blocked;
  sigaction(number, &action, nullptr);
}

}  // namespace

bool MakeTemporaryFolder(const std::filesystem::path& path, std::error_code& error) {
  constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
  sigset_t signals, before;
  sigemptyset(&signals);
  for (const int number : kSignals) sigaddset(&signals, number);
  sigprocmask(SIG_BLOCK, &signals, &before);
  const bool made = std::filesystem::create_directory(path, error);
  if (made) {
    g_leftBehind.folder = path;
    g_leftBehind.entries = opendir(path.c_str());
    for (const int number : kSignals) CleanUpOn(number, signals);
  }
  sigprocmask(SIG_SETMASK, &before, nullptr);
  return made;
}

void KeepReadOnly(const std::filesystem::path& file) {
  struct stat found {};
  if (stat(file.c_str(), &found) != 0 || (found.st_mode & S_IWUSR) != 0) return;
  g_leftBehind.file = file;
  g_leftBehind.mode = found.st_mode & 07777;
}

}  // namespace zelconvert::cli::platform
