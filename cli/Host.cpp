#include "cli/Host.h"

#include <cstdio>

namespace zelconvert::cli {

void PrintOut(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void PrintError(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

void PrintMessages(const std::vector<std::string>& messages) {
  for (const std::string& each : messages) PrintError(each.ends_with('\n') ? each : each + "\n");
}

void PrintNote(const std::string& text) {
  PrintError("zelconvert: " + text + "\n");
}

void PrintWarning(const std::string& text) {
  if (!text.empty()) PrintNote("warning: " + text);
}

ExitCode Fail(ExitCode code, const std::string& text) {
  PrintNote(text);
  return code;
}

}  // namespace zelconvert::cli
