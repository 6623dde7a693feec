#include "cli/Host.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "cli/platform/Host.h"
#include "tools/Printable.h"

namespace zelconvert::cli {
namespace {

bool g_isQuiet = false;

constexpr const char* kRed = "31";
constexpr const char* kYellow = "33";

bool UsesColour() {
  const char* noColour = std::getenv("NO_COLOR");
  return (noColour == nullptr || *noColour == '\0') && platform::ErrorShowsColour();
}

void PrintLabelled(const char* label, const char* colour, const std::string& text) {
  static const bool usesColour = UsesColour();
  const std::string shown = "zelconvert: " + std::string(label);
  PrintError((usesColour ? "\033[1;" + std::string(colour) + "m" + shown + "\033[0m" : shown) +
             tools::Printable(text) + "\n");
}

}  // namespace

void SetQuiet() {
  g_isQuiet = true;
}

bool IsQuiet() {
  return g_isQuiet;
}

bool ShowsProgress() {
  return !g_isQuiet && platform::IsErrorATerminal();
}

void PrintOut(const std::string& text) {
  WriteOut(tools::PrintableLines(text));
}

void PrintLine(const std::string& text) {
  WriteOut(tools::Printable(text) + "\n");
}

void WriteOut(const std::string& bytes) {
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void PrintError(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

void PrintMessages(const std::vector<std::string>& messages) {
  for (std::string_view each : messages) {
    if (each.ends_with('\n')) each.remove_suffix(1);  // as one of the texts does
    PrintError(tools::Printable(each) + "\n");
  }
}

void PrintNote(const std::string& text) {
  PrintLabelled("", kRed, text);
}

void PrintWarning(const std::string& text) {
  if (!text.empty() && !g_isQuiet) PrintLabelled("warning: ", kYellow, text);
}

ExitCode Fail(ExitCode code, const std::string& text) {
  PrintNote(text);
  return code;
}

}  // namespace zelconvert::cli
