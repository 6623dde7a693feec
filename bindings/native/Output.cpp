#include "bindings/native/Output.h"

#include <utility>

#include "cli/Host.h"

namespace {

thread_local std::string g_output;

}  // namespace

namespace zelconvert::bindings {

std::string TakeOutput() {
  return std::exchange(g_output, {});
}

}  // namespace zelconvert::bindings

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

void PrintLine(const std::string& /*text*/) {}
void WriteOut(const std::string& bytes) {
  g_output += bytes;
}

void PrintError(const std::string& /*text*/) {}
void PrintMessages(const std::vector<std::string>& /*messages*/) {}
void PrintNote(const std::string& /*text*/) {}
void PrintWarning(const std::string& /*text*/) {}

}  // namespace zelconvert::cli
