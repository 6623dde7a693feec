#include "cli/platform/Process.h"

#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <system_error>

namespace zelconvert::cli::platform {
namespace {

constexpr std::size_t kMostWorkers = 1024;
constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

// For the handler: 0 where there is none.
std::array<std::atomic<pid_t>, kMostWorkers> g_workers;
std::atomic<bool> g_isEnding;
std::atomic<int> g_starting;  // threads that start a worker; no handler runs on them

void EndWorkers(int number) {
  g_isEnding = true;
  while (g_starting != 0) usleep(1000);  // until all are there to be ended
  for (const auto& worker : g_workers) {
    if (worker != 0) kill(worker, number);
  }
  for (const auto& worker : g_workers) {
    if (worker != 0) waitpid(worker, nullptr, 0);
  }
  _exit(128 + number);
}

// One that the starter has set aside stays aside.
bool EndWorkersOnSignals() {
  for (const int number : kEndingSignals) {
    struct sigaction action {};
    if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action.sa_handler = EndWorkers;
    for (const int each : kEndingSignals) sigaddset(&action.sa_mask, each);
    sigaction(number, &action, nullptr);
  }
  return true;
}

void Register(pid_t worker) {
  for (auto& place : g_workers) {
    pid_t none = 0;
    if (place.compare_exchange_strong(none, worker)) return;
  }
}

void Unregister(pid_t worker) {
  for (auto& place : g_workers) {
    pid_t expected = worker;
    if (place.compare_exchange_strong(expected, 0)) return;
  }
}

// While one lives its thread may start a worker.
class Starting {
 public:
  Starting() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int each : kEndingSignals) sigaddset(&signals, each);
    pthread_sigmask(SIG_BLOCK, &signals, &m_before);
    ++g_starting;
    if (!g_isEnding) return;
    --g_starting;
    while (true) pause();
  }
  ~Starting() {
    --g_starting;
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
  }
  Starting(const Starting&) = delete;
  Starting& operator=(const Starting&) = delete;

  const sigset_t& GetMaskBefore() const { return m_before; }

 private:
  sigset_t m_before;
};

// What a worker does that ends with this process is no news.
void StandStillIfEnding() {
  while (g_isEnding) pause();
}

pid_t Start(const std::string& argument, int stream, const sigset_t& mask) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, stream, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, stream, STDOUT_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  posix_spawnattr_setsigmask(&attributes, &mask);
  std::string name = "zelconvert", word = argument;
  char* arguments[] = {name.data(), word.data(), nullptr};
  pid_t process = 0;
  const int error =
      posix_spawn(&process, "/proc/self/exe", &actions, &attributes, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) throw std::system_error(error, std::generic_category(), "no worker starts");
  return process;
}

}  // namespace

struct WorkerProcess::Handles {
  int stream = -1;
  pid_t process = 0;  // 0: waited for
};

WorkerProcess::WorkerProcess(const std::string& argument) : m_pHandles(new Handles) {
  [[maybe_unused]] static const bool areHandled = EndWorkersOnSignals();
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
    throw std::system_error(errno, std::generic_category(), "no worker starts");
  }
  m_pHandles->stream = ends[0];
  try {
    const Starting starting;
    m_pHandles->process = Start(argument, ends[1], starting.GetMaskBefore());
    Register(m_pHandles->process);
  } catch (...) {
    for (const int each : ends) close(each);
    throw;
  }
  close(ends[1]);
}

WorkerProcess::~WorkerProcess() {
  Wait();
}

bool WorkerProcess::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t size = send(m_pHandles->stream, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(size));
  }
  return true;
}

std::size_t WorkerProcess::Read(char* bytes, std::size_t size) {
  ssize_t got = -1;
  do {
    got = read(m_pHandles->stream, bytes, size);
  } while (got < 0 && errno == EINTR);
  StandStillIfEnding();
  return static_cast<std::size_t>(std::max<ssize_t>(got, 0));
}

std::string WorkerProcess::Wait() {
  if (m_pHandles->process == 0) return {};
  close(m_pHandles->stream);
  int status = 0;
  while (waitpid(m_pHandles->process, &status, 0) < 0 && errno == EINTR) continue;
  StandStillIfEnding();
  Unregister(m_pHandles->process);
  m_pHandles->process = 0;
  return WIFSIGNALED(status) ? "ended by signal " + std::to_string(WTERMSIG(status))
                             : "ended with code " + std::to_string(WEXITSTATUS(status));
}

}  // namespace zelconvert::cli::platform
