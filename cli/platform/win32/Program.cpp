#include "cli/platform/Program.h"

#include <windows.h>

#include "cli/platform/win32/Pipe.h"

namespace zelconvert::cli::platform {

std::optional<int> RunProgram(const std::vector<std::string>& words, std::string_view input,
                              std::string& output) {
  std::wstring line;
  for (const std::string& word : words) line.append(word.begin(), word.end()).append(L" ");
  const Pipe toProgram = MakePipe(&Pipe::read), fromProgram = MakePipe(&Pipe::write);
  const HANDLE process = StartProcess(nullptr, line, toProgram.read, fromProgram.write);
  CloseHandle(toProgram.read);
  CloseHandle(fromProgram.write);
  if (process != nullptr) WriteAll(toProgram.write, input);
  CloseHandle(toProgram.write);
  char block[1 << 16];
  for (DWORD size = 0; process != nullptr &&
                       ReadFile(fromProgram.read, block, sizeof block, &size, nullptr) != 0 &&
                       size != 0;) {
    output.append(block, size);
  }
  CloseHandle(fromProgram.read);
  if (process == nullptr) return std::nullopt;
  return static_cast<int>(WaitForEnd(process));
}

}  // namespace zelconvert::cli::platform
