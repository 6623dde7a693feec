#include "cli/platform/Process.h"

#include <algorithm>
#include <mutex>
#include <system_error>
#include <vector>

#include "cli/platform/win32/Pipe.h"

namespace zelconvert::cli::platform {

struct RunningWorker {
  HANDLE process = nullptr;  // null: waited for
  HANDLE input = nullptr, output = nullptr;
};

namespace {

[[noreturn]] void Throw() {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                          "no worker starts");
}

std::wstring ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD size = 0;
  while ((size = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
         path.size()) {
    path.resize(2 * path.size());
  }
  path.resize(size);
  return path;
}

struct Workers {
  // Also while one starts, which must not inherit the streams of another: that wouldn't end with
  // them then.
  std::mutex guard;
  std::vector<RunningWorker> running;
};

// Never destroyed, as the user may break the program off while it ends.
Workers& GetWorkers() {
  static Workers& workers = *new Workers;
  return workers;
}

// Ctrl-C is for all processes of the console. The guard stays locked: this one ends when the others
// have cleaned up. A worker that was just starting may have missed it: it ends with its input,
// after the file that it has.
BOOL WINAPI EndAfterWorkers(DWORD) {
  constexpr DWORD kPatience = 20'000;  // milliseconds
  Workers& workers = GetWorkers();
  workers.guard.lock();
  for (const RunningWorker& each : workers.running) CloseHandle(each.input);
  for (const RunningWorker& each : workers.running) {
    if (WaitForSingleObject(each.process, kPatience) == WAIT_OBJECT_0) continue;
    TerminateProcess(each.process, static_cast<UINT>(STATUS_CONTROL_C_EXIT));
  }
  return TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_CONTROL_C_EXIT));
}

// What a worker does that ends with this process is no news.
void StandStillIfEnding() {
  const std::lock_guard held(GetWorkers().guard);
}

}  // namespace

struct WorkerProcess::Handles : RunningWorker {};

WorkerProcess::WorkerProcess(const std::string& argument) : m_pHandles(new Handles) {
  [[maybe_unused]] static const bool isHandled = SetConsoleCtrlHandler(&EndAfterWorkers, TRUE) != 0;
  Workers& workers = GetWorkers();
  const std::lock_guard held(workers.guard);
  const Pipe input = MakePipe(&Pipe::read);
  const Pipe output = MakePipe(&Pipe::write);
  const std::wstring line = L"zelconvert " + std::wstring(argument.begin(), argument.end());
  *m_pHandles = {{StartProcess(ProgramPath().c_str(), line, input.read, output.write), input.write,
                  output.read}};
  if (m_pHandles->process == nullptr) Throw();
  workers.running.push_back(*m_pHandles);
  CloseHandle(input.read);
  CloseHandle(output.write);
}

WorkerProcess::~WorkerProcess() {
  Wait();
}

bool WorkerProcess::Write(std::string_view bytes) {
  return WriteAll(m_pHandles->input, bytes);
}

std::size_t WorkerProcess::Read(char* bytes, std::size_t size) {
  constexpr std::size_t kMost = 1 << 20;
  DWORD got = 0;
  const bool isRead = ReadFile(m_pHandles->output, bytes, static_cast<DWORD>(std::min(size, kMost)),
                               &got, nullptr) != 0;
  if (isRead && got != 0) return got;
  StandStillIfEnding();
  return 0;
}

std::string WorkerProcess::Wait() {
  const HANDLE process = m_pHandles->process;
  if (process == nullptr) return {};
  CloseHandle(m_pHandles->input);
  CloseHandle(m_pHandles->output);
  WaitForSingleObject(process, INFINITE);
  Workers& workers = GetWorkers();
  const std::lock_guard held(workers.guard);
  std::erase_if(workers.running,
                [&](const RunningWorker& each) { return each.process == process; });
  const DWORD code = WaitForEnd(process);
  m_pHandles->process = nullptr;
  return "ended with code " + std::to_string(code);
}

}  // namespace zelconvert::cli::platform
