#include "cli/Outcome.h"

#include <algorithm>
#include <utility>

#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

std::string Joined(const std::vector<std::string>& texts) {
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : "; ") + text;
  return line;
}

void TellAsText(const Outcome& outcome) {
  std::for_each(outcome.warnings.begin(), outcome.warnings.end(), PrintWarning);
  if (outcome.code != kConverted || !IsQuiet()) PrintMessages(outcome.messages);
  if (!outcome.error.empty()) PrintNote(outcome.error);
  if (IsQuiet()) return;
  for (const fs::path& file : outcome.files) PrintLine(platform::ToText(file));
}

}  // namespace

void Attempt(Outcome& outcome, const std::function<void()>& work) {
  outcome.code = kConverted;
  try {
    work();
  } catch (const HostFailure& failure) {
    outcome.code = failure.GetCode();
    outcome.error = failure.what();
  }
}

void AddWarning(std::vector<std::string>& warnings, const std::string& text) {
  if (!text.empty()) warnings.push_back(text);
}

void Rename(std::vector<std::string>& texts, const std::string& name, const std::string& known) {
  for (std::string& text : texts) {
    for (std::size_t at = 0; (at = text.find(name, at)) != std::string::npos; at += known.size()) {
      text.replace(at, name.size(), known);
    }
  }
}

void Rename(Outcome& outcome, const std::string& name, const std::string& known) {
  std::vector<std::string> error = {outcome.error};
  for (auto* texts : {&outcome.warnings, &outcome.messages, &error}) Rename(*texts, name, known);
  outcome.error = error.front();
}

Json::Object ToJson(const Outcome& outcome) {
  Json::Object fields = {{"converted", outcome.code == kConverted},
                         {"exitCode", static_cast<int>(outcome.code)}};
  const auto add = [&fields](const char* name, Json value) {
    fields.emplace_back(name, std::move(value));
  };
  fields.insert(fields.end(), outcome.about.begin(), outcome.about.end());
  if (!outcome.warnings.empty()) add("warning", Joined(outcome.warnings));
  Json::List files;
  for (const fs::path& file : outcome.files) files.emplace_back(platform::ToText(file));
  add("files", std::move(files));
  add("messages", Json::List(outcome.messages.begin(), outcome.messages.end()));
  if (!outcome.error.empty()) add("error", outcome.error);
  return fields;
}

ExitCode Tell(const Outcome& outcome, bool asJson) {
  if (asJson) {
    PrintOut(ToLines(ToJson(outcome)));
  } else {
    TellAsText(outcome);
  }
  return outcome.code;
}

}  // namespace zelconvert::cli
