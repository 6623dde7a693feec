#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/Commands.h"
#include "cli/FileTypes.h"
#include "cli/Host.h"
#include "cli/Library.h"

namespace zelconvert::cli {
namespace {

nlohmann::ordered_json DescribeTypes() {
  auto types = nlohmann::ordered_json::array();
  for (const TypeInfo& from : kTypes) {
    auto outputs = nlohmann::ordered_json::array();
    for (const TypeInfo& to : kTypes) {
      if (ConvertsTo(from, to)) outputs.push_back(to.name);
    }
    types.push_back({{"name", from.name},
                     {"number", static_cast<int>(from.type)},
                     {"extension", GetExtension(from.type)},
                     {"description", GetDescription(from.type)},
                     {"filter", GetFilter(from.type)},
                     {"convertsTo", outputs}});
  }
  return {{"types", types}};
}

std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text + "  ";
}

std::string ListTypes() {
  std::string text =
      Padded("TYPE", 7) + Padded("FILE", 4) + Padded("DESCRIPTION", 30) + "CONVERTS TO\n";
  for (const TypeInfo& info : kTypes) {
    std::string line = Padded(std::string(info.name), 7) + Padded(GetExtension(info.type), 4) +
                       Padded(GetDescription(info.type), 30) + std::string(info.outputs);
    if (!info.command.empty()) line += "(zelconvert " + std::string(info.command) + ")";
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

}  // namespace

void AddTypesCommand(CLI::App& app, int& exitCode) {
  auto* command = app.add_subcommand("types", "List the file types and what they convert to");
  auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, "Print one JSON object");
  command->callback([json, &exitCode] {
    PrintOut(*json ? DescribeTypes().dump(2) + "\n" : ListTypes());
    exitCode = kConverted;
  });
}

}  // namespace zelconvert::cli
