// What running other programs takes.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

namespace zelconvert::cli::platform {

struct Pipe {
  HANDLE read = nullptr, write = nullptr;
};

/// inherited: the end that the program gets. Throws std::system_error.
inline Pipe MakePipe(HANDLE Pipe::*inherited) {
  Pipe pipe;
  if (CreatePipe(&pipe.read, &pipe.write, nullptr, 0) == 0) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "there is no pipe");
  }
  SetHandleInformation(pipe.*inherited, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  return pipe;
}

/// program: null for that which the line names first. It shares standard error. Null, with
/// GetLastError, if it doesn't start.
inline HANDLE StartProcess(const wchar_t* program, std::wstring line, HANDLE input, HANDLE output) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = input;
  start.hStdOutput = output;
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION made{};
  if (CreateProcessW(program, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                     &made) == 0) {
    return nullptr;
  }
  CloseHandle(made.hThread);
  return made.hProcess;
}

/// False if nobody takes them.
inline bool WriteAll(HANDLE stream, std::string_view bytes) {
  while (!bytes.empty()) {
    constexpr std::size_t kMost = 1 << 20;
    DWORD size = 0;
    if (WriteFile(stream, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMost)), &size,
                  nullptr) == 0) {
      return false;
    }
    bytes.remove_prefix(size);
  }
  return true;
}

/// Waits, closes the handle, and returns the exit code.
inline DWORD WaitForEnd(HANDLE process) {
  WaitForSingleObject(process, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process, &code);
  CloseHandle(process);
  return code;
}

}  // namespace zelconvert::cli::platform
