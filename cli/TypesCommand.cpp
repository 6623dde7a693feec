#include <algorithm>
#include <string>

#include "cli/Commands.h"
#include "cli/FileTypes.h"
#include "cli/Json.h"
#include "cli/Library.h"
#include "tools/RecordKinds.h"

namespace zelconvert::cli {
namespace {

Json::List NamesAmong(const TypeInfo& from, TypeSet types) {
  Json::List names;
  for (const std::string_view name : OutputsAmong(from, types)) {
    names.emplace_back(std::string(name));
  }
  return names;
}

Json::List DescribeRecords(const TypeInfo& from) {
  Json::List records;
  for (const tools::RecordKind& kind : tools::GetRecordKinds(from.type)) {
    records.emplace_back(Json::Object{{"key", std::string(kind.tag)},
                                      {"name", std::string(kind.name)},
                                      {"carriedTo", NamesAmong(from, kind.carriedTo)}});
  }
  return records;
}

Json::List DescribeChanges(const TypeInfo& from) {
  Json::List changes;
  for (const tools::RecordChange& change : tools::GetRecordChanges(from.type)) {
    Json::List outputs = NamesAmong(from, change.outputs);
    if (outputs.empty()) continue;  // of a pair, whose log alone goes there
    changes.emplace_back(Json::Object{{"records", std::string(change.records)},
                                      {"outputs", std::move(outputs)},
                                      {"becomes", std::string(change.text)}});
  }
  return changes;
}

Json::Object Describe(const TypeInfo& from) {
  Json::List outputs;
  for (const TypeInfo& to : kTypes) {
    if (ConvertsTo(from, to)) outputs.emplace_back(std::string(to.name));
  }
  return {{"name", std::string(from.name)},       {"number", static_cast<int>(from.type)},
          {"extension", GetExtension(from.type)}, {"description", GetDescription(from.type)},
          {"filter", GetFilter(from.type)},       {"convertsTo", std::move(outputs)},
          {"records", DescribeRecords(from)},     {"changes", DescribeChanges(from)}};
}

std::string ListTypesAsJson(const std::string& asked) {
  Json::List types;
  for (const TypeInfo& type : kTypes) {
    if (asked.empty() || asked == type.name) types.emplace_back(Describe(type));
  }
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

std::string ListRecords(const TypeInfo& from, FileType to, bool isCarried) {
  std::string lines;
  for (const tools::RecordKind& kind : tools::GetRecordKinds(from.type)) {
    if (kind.carriedTo.Contains(to) != isCarried) continue;
    lines += "  " + Padded(std::string(kind.tag), 6) + std::string(kind.name) + "\n";
  }
  return lines.empty() ? "  nothing\n" : lines;
}

std::string ListChanges(const TypeInfo& from, FileType to) {
  std::string lines;
  for (const tools::RecordChange& change : tools::GetRecordChanges(from.type)) {
    if (!change.outputs.Contains(to)) continue;
    lines += "  " + Padded(std::string(change.records), 6) + std::string(change.text) + "\n";
  }
  return lines.empty() ? "" : "comes out as something else:\n" + lines;
}

std::string ListRoute(const TypeInfo& from, const OutputGroup& group) {
  std::string names;
  for (const std::string_view name : group.names) names += " " + std::string(name);
  return std::string(from.name) + " to" + names + "\ncarried over:\n" +
         ListRecords(from, group.first, true) + "dropped:\n" +
         ListRecords(from, group.first, false) + ListChanges(from, group.first);
}

// Of one output, or of all.
std::string ListRoutes(const TypeInfo& from, const std::string& to) {
  std::string text;
  for (const OutputGroup& group : GroupOutputs(from)) {
    const bool isAsked =
        to.empty() || std::find(group.names.begin(), group.names.end(), to) != group.names.end();
    if (isAsked) text += (text.empty() ? "" : "\n") + ListRoute(from, group);
  }
  if (!text.empty()) return text;
  throw HostFailure(kWrongUsage, "there is no conversion from " + std::string(from.name) +
                                     (to.empty() ? "" : " to " + to));
}

}  // namespace

ExitCode RunTypes(const Options& options) {
  if (options.json) {
    PrintOut(ListTypesAsJson(options.from));
  } else {
    PrintOut(options.from.empty() ? ListTypes() : ListRoutes(*FindType(options.from), options.to));
  }
  return kConverted;
}

}  // namespace zelconvert::cli
