#include <algorithm>
#include <string>

#include "cli/Commands.h"
#include "cli/FileTypes.h"
#include "cli/Json.h"
#include "cli/Library.h"

namespace zelconvert::cli {
namespace {

Json::Object Describe(const TypeInfo& from) {
  Json::List outputs;
  for (const TypeInfo& to : kTypes) {
    if (ConvertsTo(from, to)) outputs.emplace_back(std::string(to.name));
  }
  return {{"name", std::string(from.name)},       {"number", static_cast<int>(from.type)},
          {"extension", GetExtension(from.type)}, {"description", GetDescription(from.type)},
          {"filter", GetFilter(from.type)},       {"convertsTo", std::move(outputs)}};
}

std::string ListTypesAsJson() {
  Json::List types;
  for (const TypeInfo& type : kTypes) types.emplace_back(Describe(type));
  return ToLines(Json::Object{{"types", std::move(types)}});
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
                       Padded(GetDescription(info.type), 30) + OutputNames(info);
    if (!info.command.empty()) line += "(zelconvert " + std::string(info.command) + ")";
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

}  // namespace

ExitCode RunTypes(const Options& options) {
  PrintOut(options.json ? ListTypesAsJson() : ListTypes());
  return kConverted;
}

}  // namespace zelconvert::cli
