// zelconvert convert IN OUT.
#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/ConvertPlan.h"
#include "cli/ConvertRun.h"
#include "cli/FileTypes.h"
#include "cli/Json.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

std::string Joined(const std::vector<std::string>& texts) {
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : "; ") + text;
  return line;
}

// `plan` is empty if none was found.
void PrintAsText(const std::optional<ConvertPlan>& plan, const Outcome& outcome) {
  if (plan) std::for_each(plan->warnings.begin(), plan->warnings.end(), PrintWarning);
  PrintMessages(outcome.messages);
  if (!outcome.error.empty()) PrintNote(outcome.error);
  for (const fs::path& file : outcome.files) PrintOut(platform::ToText(file) + "\n");
}

void PrintAsJson(const std::optional<ConvertPlan>& plan, const Outcome& outcome) {
  Json::Object fields = {{"converted", outcome.code == kConverted},
                         {"exitCode", static_cast<int>(outcome.code)}};
  const auto add = [&fields](const char* name, Json value) {
    fields.emplace_back(name, std::move(value));
  };
  if (plan) {
    const Conversion& asked = plan->conversion;
    add("input", platform::ToText(asked.input));
    add("from", std::string(FindType(asked.from)->name));
    add("output", platform::ToText(asked.output));
    add("to", std::string(FindType(asked.to)->name));
    if (!plan->warnings.empty()) add("warning", Joined(plan->warnings));
  }
  Json::List files;
  for (const fs::path& file : outcome.files) files.emplace_back(platform::ToText(file));
  add("files", std::move(files));
  add("messages", Json::List(outcome.messages.begin(), outcome.messages.end()));
  if (!outcome.error.empty()) add("error", outcome.error);
  PrintOut(ToLines(std::move(fields)));
}

}  // namespace

ExitCode RunConvert(const Options& options) {
  std::optional<ConvertPlan> plan;
  Outcome outcome;
  try {
    plan = MakePlan(options);
    RunPlan(*plan, options.force, outcome);
  } catch (const HostFailure& failure) {
    outcome.code = failure.GetCode();
    outcome.error = failure.what();
  }
  (options.json ? PrintAsJson : PrintAsText)(plan, outcome);
  return outcome.code;
}

}  // namespace zelconvert::cli
