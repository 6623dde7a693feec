#include "cli/platform/Process.h"

#include <algorithm>
#include <mutex>
#include <system_error>
#include <vector>

#include "cli/platform/win32/Pipe.h"

namespace zelconvert::cli::platform {
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
  std::vector<HANDLE> processes;
};

// Never destroyed, as the user may break the program off while it ends.
Workers& GetWorkers() {
  static Workers& workers = *new Workers;
  return workers;
}

// Ctrl-C is for all processes of the console. The guard stays locked: this one ends when the others
// have cleaned up.
BOOL WINAPI EndAfterWorkers(DWORD) {
  Workers& workers = GetWorkers();
  workers.guard.lock();
  for (const HANDLE each : workers.processes) WaitForSingleObject(each, INFINITE);
  return TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_CONTROL_C_EXIT));
}

// What a worker does that ends with this process is no news.
void StandStillIfEnding() {
  const std::lock_guard held(GetWorkers().guard);
}

}  // namespace

struct WorkerProcess::Handles {
  HANDLE input = nullptr, output = nullptr;  // of the worker
  HANDLE process = nullptr;                  // null: waited for
};

WorkerProcess::WorkerProcess(const std::string& argument) : m_pHandles(new Handles) {
  [[maybe_unused]] static const bool isHandled = SetConsoleCtrlHandler(&EndAfterWorkers, TRUE) != 0;
  Workers& workers = GetWorkers();
  const std::lock_guard held(workers.guard);
  const Pipe input = MakePipe(&Pipe::read);
  const Pipe output = MakePipe(&Pipe::write);
  const std::wstring line = L"zelconvert " + std::wstring(argument.begin(), argument.end());
  *m_pHandles = {input.write, output.read,
                 StartProcess(ProgramPath().c_str(), line, input.read, output.write)};
  if (m_pHandles->process == nullptr) Throw();
  workers.processes.push_back(m_pHandles->process);
  CloseHandle(input.read);
  CloseHandle(output.write);
}

WorkerProcess::~WorkerProcess() {
  Wait();
}

bool WorkerProcess::Write(std::string_view bytes) {
  return WriteAll(m_pHandles->input, bytes);
}

bool WorkerProcess::Read(char* bytes, std::size_t size) {
  while (size != 0) {
    DWORD got = 0;
    constexpr std::size_t kMost = 1 << 20;
    const bool isRead = ReadFile(m_pHandles->output, bytes,
                                 static_cast<DWORD>(std::min(size, kMost)), &got, nullptr) != 0;
    if (!isRead || got == 0) {
      StandStillIfEnding();
      return false;
    }
    bytes += got;
    size -= got;
  }
  return true;
}

std::string WorkerProcess::Wait() {
  if (m_pHandles->process == nullptr) return {};
  CloseHandle(m_pHandles->input);
  CloseHandle(m_pHandles->output);
  WaitForSingleObject(m_pHandles->process, INFINITE);
  Workers& workers = GetWorkers();
  const std::lock_guard held(workers.guard);
  std::erase(workers.processes, m_pHandles->process);
  const DWORD code = WaitForEnd(m_pHandles->process);
  m_pHandles->process = nullptr;
  return "ended with code " + std::to_string(code);
}

}  // namespace zelconvert::cli::platform
