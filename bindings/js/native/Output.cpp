#include "bindings/js/native/Output.h"

#include "cli/Host.h"
#include "cli/platform/Program.h"

namespace {

std::string g_output;

}  // namespace

namespace zelconvert::module {

const std::string& GetOutput() {
  return g_output;
}

void ClearOutput() {
  g_output.clear();
}

}  // namespace zelconvert::module

// The host's functions where there is no terminal. All that a command has to say stands in its
// object, so what it would print beside that is dropped.
namespace zelconvert::cli {

bool IsQuiet() {
  return true;
}

bool ShowsProgress() {
  return false;
}

void PrintOut(const std::string& text) {
  g_output += text;
}

void PrintError(const std::string& /*text*/) {}
void PrintMessages(const std::vector<std::string>& /*messages*/) {}
void PrintNote(const std::string& /*text*/) {}
void PrintWarning(const std::string& /*text*/) {}

// There are no other programs.
std::optional<int> platform::RunProgram(const std::string& /*name*/,
                                        const std::vector<std::filesystem::path>& /*arguments*/) {
  return std::nullopt;
}

}  // namespace zelconvert::cli
