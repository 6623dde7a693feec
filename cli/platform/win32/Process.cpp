#include "cli/platform/Process.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <mutex>
#include <system_error>

namespace zelconvert::cli::platform {
namespace {

struct Pipe {
  HANDLE read = nullptr, write = nullptr;
};

[[noreturn]] void Throw() {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                          "no worker starts");
}

// `inherited`: the end that the worker gets.
Pipe MakePipe(HANDLE Pipe::*inherited) {
  Pipe pipe;
  if (CreatePipe(&pipe.read, &pipe.write, nullptr, 0) == 0) Throw();
  SetHandleInformation(pipe.*inherited, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  return pipe;
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

HANDLE Start(const std::string& argument, HANDLE input, HANDLE output) {
  const std::wstring program = ProgramPath();
  std::wstring line = L"zelconvert " + std::wstring(argument.begin(), argument.end());
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = input;
  start.hStdOutput = output;
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION made{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &start, &made) == 0) {
    Throw();
  }
  CloseHandle(made.hThread);
  return made.hProcess;
}

// A worker must not inherit the streams of another, which wouldn't end with it then.
std::mutex& StartGuard() {
  static std::mutex guard;
  return guard;
}

}  // namespace

struct WorkerProcess::Handles {
  HANDLE input = nullptr, output = nullptr;  // of the worker
  HANDLE process = nullptr;                  // null: waited for
};

WorkerProcess::WorkerProcess(const std::string& argument) : m_pHandles(new Handles) {
  const std::lock_guard held(StartGuard());
  const Pipe input = MakePipe(&Pipe::read);
  const Pipe output = MakePipe(&Pipe::write);
  *m_pHandles = {input.write, output.read, Start(argument, input.read, output.write)};
  CloseHandle(input.read);
  CloseHandle(output.write);
}

WorkerProcess::~WorkerProcess() {
  Wait();
}

bool WorkerProcess::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD size = 0;
    constexpr std::size_t kMost = 1 << 20;
    if (WriteFile(m_pHandles->input, bytes.data(),
                  static_cast<DWORD>(std::min(bytes.size(), kMost)), &size, nullptr) == 0) {
      return false;
    }
    bytes.remove_prefix(size);
  }
  return true;
}

bool WorkerProcess::Read(char* bytes, std::size_t size) {
  while (size != 0) {
    DWORD got = 0;
    constexpr std::size_t kMost = 1 << 20;
    const bool isRead = ReadFile(m_pHandles->output, bytes,
                                 static_cast<DWORD>(std::min(size, kMost)), &got, nullptr) != 0;
    if (!isRead || got == 0) return false;
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
  DWORD code = 0;
  GetExitCodeProcess(m_pHandles->process, &code);
  CloseHandle(m_pHandles->process);
  m_pHandles->process = nullptr;
  return "ended with code " + std::to_string(code);
}

}  // namespace zelconvert::cli::platform
