// zelconvert convert IN OUT: converts into a staging folder and moves what was made into place.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Commands.h"
#include "cli/ConvertPlan.h"
#include "cli/FileTypes.h"
#include "cli/Host.h"
#include "cli/Library.h"
#include "cli/ProgressBar.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using nlohmann::ordered_json;

struct Outcome {
  ExitCode code = kFailed;
  std::string error;                  // the host's own line, empty on success
  std::vector<std::string> messages;  // the library's
  std::vector<fs::path> files;        // made, in their places
};

// What the last text of a failed conversion is to a script.
struct KnownFailure {
  std::string_view start;
  ExitCode code;
};
constexpr KnownFailure kKnownFailures[] = {
    {"Unable to open the file ", kNoInput},
    {"Unable to create the destination file ", kNoOutput},
    {"Unable to write the file ", kNoOutput},
};

ExitCode CodeOfFailure(const std::vector<std::string>& messages) {
  for (const KnownFailure& failure : kKnownFailures) {
    if (!messages.empty() && messages.back().starts_with(failure.start)) return failure.code;
  }
  return kFailed;
}

// A conversion of two stages, through a job, keeps the texts of both to itself.
std::string ReasonOf(const Conversion& asked, const Result& result) {
  if (!result.messages.empty()) return {};
  const TypeInfo& job = *FindType(FT_JOB);
  const bool hasStages =
      ConvertsTo(*FindType(asked.from), job) && ConvertsTo(job, *FindType(asked.to));
  return hasStages ? "; convert it to a job, and that to a .cr5 file, to read why"
                   : "; the library gives no reason";
}

Result ConvertWithProgress(const Conversion& conversion) {
  std::optional<ProgressBar> bar;
  if (platform::IsErrorATerminal()) bar.emplace();
  return Convert(conversion);
}

// The library takes a read-only attribute off its input while it reads.
void ConvertFile(const ConvertPlan& plan, bool force, Outcome& outcome) {
  const Conversion& asked = plan.conversion;
  platform::KeepReadOnly(plan.read);
  const StagingFolder staging(asked.output.parent_path());
  Conversion staged = asked;
  staged.output = staging.GetPath() / asked.output.filename();

  const Result result = ConvertWithProgress(staged);
  outcome.messages = result.messages;
  if (!result.converted) {
    throw HostFailure(
        CodeOfFailure(result.messages),
        platform::ToText(asked.input) + " was not converted" + ReasonOf(asked, result));
  }
  outcome.files = staging.MoveFiles(force);
  std::stable_partition(outcome.files.begin(), outcome.files.end(),
                        [&](const fs::path& file) { return file == asked.output; });
  outcome.code = kConverted;
}

std::string OneLine(const std::string& message) {
  return message.ends_with('\n') ? message : message + "\n";
}

void PrintAsText(const std::string& warning, const Outcome& outcome) {
  if (!warning.empty()) PrintError("zelconvert: warning: " + warning + "\n");
  for (const std::string& message : outcome.messages) PrintError(OneLine(message));
  if (!outcome.error.empty()) PrintError("zelconvert: " + outcome.error + "\n");
  for (const fs::path& file : outcome.files) PrintOut(platform::ToText(file) + "\n");
}

// `plan` is empty if none was found.
void PrintAsJson(const std::optional<ConvertPlan>& plan, const Outcome& outcome) {
  ordered_json object = {{"converted", outcome.code == kConverted},
                         {"exitCode", static_cast<int>(outcome.code)}};
  if (plan) {
    object["input"] = platform::ToText(plan->conversion.input);
    object["from"] = FindType(plan->conversion.from)->name;
    object["output"] = platform::ToText(plan->conversion.output);
    object["to"] = FindType(plan->conversion.to)->name;
    if (!plan->warning.empty()) object["warning"] = plan->warning;
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
    ConvertFile(*plan, options.force, outcome);
  } catch (const HostFailure& failure) {
    outcome.code = failure.GetCode();
    outcome.error = failure.what();
  }
  if (json) {
    PrintAsJson(plan, outcome);
  } else {
    PrintAsText(plan ? plan->warning : std::string(), outcome);
  }
  return outcome.code;
}

// The help lists none of them: the footer and "zelconvert types" do.
CLI::Validator OneOfTheTypes() {
  std::vector<std::string> names;
  for (const TypeInfo& type : kTypes) names.emplace_back(type.name);
  return CLI::IsMember(names).description("");
}

CLI::Validator OneOfTheUnits() {
  std::vector<std::string> names;
  for (const UnitName& unit : kUnits) names.emplace_back(unit.name);
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
  command->add_option("--units", options.units, "Unit of a coordinate list: m, ft or usft")
      ->check(OneOfTheUnits())
      ->type_name("UNIT");
  command->add_option("--feature-file", options.featureFile, "Feature code file for a raw log")
      ->type_name("FILE");
  command->add_flag("--force", options.force, "Replace files that exist");
  command->add_flag("--json", arguments->json, "Print one JSON object");
  command->footer(
      "Types are those of \"zelconvert types\". Units are m (metres, the default), ft "
      "(international\n"
      "feet) and usft (US survey feet).\n"
      "Without --to a .dc file becomes type dc, .job job, .cr5 cr5 and .sdr sdr33.\n"
      "The paths of the files made go to standard output, the library's texts to standard error.");
  command->callback(
      [arguments, &exitCode] { exitCode = RunConvert(arguments->options, arguments->json); });
}

}  // namespace zelconvert::cli
