#include "cli/platform/Program.h"

#include <windows.h>

namespace zelconvert::cli::platform {

// No argument holds a quotation mark, which no path can, or ends in a backslash.
std::optional<int> RunProgram(const std::string& name,
                              const std::vector<std::filesystem::path>& arguments) {
  std::wstring line = std::filesystem::path(name).native();
  for (const std::filesystem::path& argument : arguments)
    line += L" \"" + argument.native() + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                      &process)) {
    return std::nullopt;
  }
  DWORD code = 0;
  const bool hasEnded = WaitForSingleObject(process.hProcess, INFINITE) == WAIT_OBJECT_0 &&
                        GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return hasEnded ? static_cast<int>(code) : -1;
}

}  // namespace zelconvert::cli::platform
