// zelconvert convert IN OUT.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/ConvertPlan.h"
#include "cli/ConvertRun.h"
#include "cli/FileTypes.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using nlohmann::ordered_json;

std::string OneLine(const std::string& message) {
  return message.ends_with('\n') ? message : message + "\n";
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : "; ") + text;
  return line;
}

// `plan` is empty if none was found.
void PrintAsText(const std::optional<ConvertPlan>& plan, const Outcome& outcome) {
  if (plan) std::for_each(plan->warnings.begin(), plan->warnings.end(), PrintWarning);
  for (const std::string& message : outcome.messages) PrintError(OneLine(message));
  if (!outcome.error.empty()) PrintError("zelconvert: " + outcome.error + "\n");
  for (const fs::path& file : outcome.files) PrintOut(platform::ToText(file) + "\n");
}

void PrintAsJson(const std::optional<ConvertPlan>& plan, const Outcome& outcome) {
  ordered_json object = {{"converted", outcome.code == kConverted},
                         {"exitCode", static_cast<int>(outcome.code)}};
  if (plan) {
    object["input"] = platform::ToText(plan->conversion.input);
    object["from"] = FindType(plan->conversion.from)->name;
    object["output"] = platform::ToText(plan->conversion.output);
    object["to"] = FindType(plan->conversion.to)->name;
    if (!plan->warnings.empty()) object["warning"] = Joined(plan->warnings);
  }
  object["files"] = ordered_json::array();
  for (const fs::path& file : outcome.files) object["files"].push_back(platform::ToText(file));
  object["messages"] = outcome.messages;
  if (!outcome.error.empty()) object["error"] = outcome.error;
  PrintOut(object.dump(2) + "\n");
}

int RunConvert(const ConvertOptions& options, bool json) {
  std::optional<ConvertPlan> plan;
  Outcome outcome;
  try {
    plan = MakePlan(options);
    RunPlan(*plan, options.force, outcome);
  } catch (const HostFailure& failure) {
    outcome.code = failure.GetCode();
    outcome.error = failure.what();
  }
  if (json) {
    PrintAsJson(plan, outcome);
  } else {
    PrintAsText(plan, outcome);
  }
  return outcome.code;
}

// The help lists none of them: the footer and "zelconvert types" do.
CLI::Validator OneOfTheTypes() {
  std::vector<std::string> names;
  for (const TypeInfo& type : kTypes) names.emplace_back(type.name);
  return CLI::IsMember(names).description("");
}

}  // namespace

void AddConvertCommand(CLI::App& app, int& exitCode) {
  struct Arguments {
    ConvertOptions options;
    bool json = false;
  };
  auto arguments = std::make_shared<Arguments>();
  ConvertOptions& options = arguments->options;
  auto* command = app.add_subcommand("convert", "Convert a file into another");
  command->add_option("IN", options.input, "The file to convert")->required()->type_name("");
  command->add_option("OUT", options.output, "The file to make")->required()->type_name("");
  command->add_option("--from", options.from, "Type of IN, if name and contents don't tell it")
      ->check(OneOfTheTypes())
      ->type_name("TYPE");
  command->add_option("--to", options.to, "Type of OUT, if its name doesn't tell it")
      ->check(OneOfTheTypes())
      ->type_name("TYPE");
  command->add_option("--job", options.job, "Job whose points a raw log knows")->type_name("FILE");
  command->add_flag("--force", options.force, "Replace files that exist");
  command->add_flag("--json", arguments->json, "Print one JSON object");
  command->footer(
      "Types are those of \"zelconvert types\".\n"
      "Without --to a .dc file becomes type dc, .job job, .cr5 cr5 and .sdr sdr33.\n"
      "With --job the DC file of a log has the design points and descriptions of a job; the types\n"
      "job+raw, pwj+pwr and cr5+rw5 take them from the coordinates beside the log.\n"
      "The paths of the files made go to standard output, the library's texts to standard error.");
  command->callback(
      [arguments, &exitCode] { exitCode = RunConvert(arguments->options, arguments->json); });
}

}  // namespace zelconvert::cli
