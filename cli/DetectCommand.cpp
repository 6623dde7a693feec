#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/FileTypes.h"
#include "cli/Host.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

struct Detected {
  std::string file;
  ExitCode code;
  const TypeInfo* type;  // null unless the code is kConverted
};

Detected Detect(const std::string& file) {
  const std::filesystem::path path = platform::ToPath(file);
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored) || !platform::IsReadable(path)) {
    return {platform::ToText(path), kNoInput, nullptr};
  }
  const TypeInfo* type = FindType(DetectType(path));
  return {platform::ToText(path), type == nullptr ? kFailed : kConverted, type};
}

void PrintAsText(const Detected& detected) {
  if (detected.code == kNoInput) {
    PrintError("zelconvert: " + detected.file + " can't be read\n");
  } else if (detected.type == nullptr) {
    PrintOut(detected.file + ": unknown\n");
  } else {
    std::string description = GetDescription(detected.type->type);
    description.erase(description.find_last_not_of(' ') + 1);  // one of them ends in a blank
    PrintOut(detected.file + ": " + std::string(detected.type->name) + " (" + description + ")\n");
  }
}

nlohmann::ordered_json ToJson(const Detected& detected) {
  nlohmann::ordered_json object = {{"file", detected.file},
                                   {"readable", detected.code != kNoInput},
                                   {"type", nullptr},
                                   {"number", -1}};
  if (detected.type != nullptr) {
    object["type"] = detected.type->name;
    object["number"] = static_cast<int>(detected.type->type);
  }
  return object;
}

// The worst code among the files: unreadable before unknown.
int DetectAll(const std::vector<std::string>& files, bool json) {
  int code = kConverted;
  auto objects = nlohmann::ordered_json::array();
  for (const std::string& file : files) {
    const Detected detected = Detect(file);
    code = std::max<int>(code, detected.code);
    if (json) {
      objects.push_back(ToJson(detected));
    } else {
      PrintAsText(detected);
    }
  }
  if (json) PrintOut(nlohmann::ordered_json{{"files", objects}, {"exitCode", code}}.dump(2) + "\n");
  return code;
}

}  // namespace

void AddDetectCommand(CLI::App& app, int& exitCode) {
  struct Options {
    std::vector<std::string> files;
    bool json = false;
  };
  auto* command = app.add_subcommand("detect", "Tell the type of files by name and contents");
  auto options = std::make_shared<Options>();
  command->add_option("FILE", options->files, "Files to look at")->required()->type_name("");
  command->add_flag("--json", options->json, "Print one JSON object");
  command->callback([options, &exitCode] { exitCode = DetectAll(options->files, options->json); });
}

}  // namespace zelconvert::cli
