#include "cli/platform/Host.h"

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <thread>
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

bool IsIgnored(int number) {
  struct sigaction action {};
  return sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

// A thread of its own waits for the signals, where cleaning up may do what a handler may not. A
// signal that the starter has set aside, as nohup does, stays aside.
void OnInterrupt(std::function<void()> cleanUp) {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    if (!IsIgnored(number)) sigaddset(&signals, number);
  }
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  std::thread([signals, cleanUp = std::move(cleanUp)] {
    int number = 0;
    if (sigwait(&signals, &number) != 0) return;
    cleanUp();
    _exit(128 + number);
  }).detach();
}

}  // namespace zelconvert::cli::platform
