#include <string>
#include <string_view>
#include <vector>

#include "cli/FileTypes.h"
#include "cli/InputType.h"
#include "cli/Pages.h"
#include "tools/RecordKinds.h"

namespace zelconvert::cli {
namespace {

std::string Row(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += " " + cell + " |";
  return row + "\n";
}

std::string Names(const std::vector<std::string_view>& names) {
  std::string text;
  for (const std::string_view name : names)
    text += (text.empty() ? "`" : " `") + std::string(name) + "`";
  return text;
}

// Of the types whose records are of the same kinds.
std::string Table(const std::vector<std::string_view>& inputs, const TypeInfo& from) {
  const std::vector<OutputGroup> groups = GroupOutputs(from);
  std::vector<std::string> head = {"record", "holds"}, rule = {"---", "---"};
  for (const OutputGroup& group : groups) {
    head.push_back(Names(group.names));
    rule.emplace_back("---");
  }
  std::string table = "\n## From " + Names(inputs) + "\n\n" + Row(head) + Row(rule);
  for (const tools::RecordKind& kind : tools::GetRecordKinds(from.type)) {
    std::vector<std::string> cells = {"`" + std::string(kind.tag) + "`", std::string(kind.name)};
    for (const OutputGroup& group : groups) {
      cells.emplace_back(kind.carriedTo.Contains(group.first) ? "yes" : "");
    }
    table += Row(cells);
  }
  return table;
}

std::string Changes(const TypeInfo& from) {
  std::string table;
  for (const tools::RecordChange& change : tools::GetRecordChanges(from.type)) {
    table += Row({"`" + std::string(change.records) + "`",
                  Names(OutputsAmong(from, change.outputs)), std::string(change.text)});
  }
  return "\nWhat comes out as something else:\n\n" + Row({"record", "in", "becomes"}) +
         Row({"---", "---", "---"}) + table;
}

}  // namespace

std::string MakeRoutesPage() {
  std::string page =
      "# What each route carries\n\n"
      "A kind of record is carried if the output looks otherwise without it; all others are\n"
      "dropped. What is carried but comes out as something else stands in a second table, the\n"
      "reasons on the pages of the [formats](index.md#formats). Tests hold both. Of a log beside "
      "a\n"
      "file of coordinates (`job+raw`, `pwj+pwr`, `cr5+rw5`) the records of the log count; the\n"
      "coordinates give points that the log knows. Roads of a DC file become files beside the\n"
      "output. The host makes this page: `zelconvert generate losses`.\n";
  for (const TypeInfo& from : kTypes) {
    const auto kinds = tools::GetRecordKinds(from.type);
    std::vector<std::string_view> inputs;
    for (const TypeInfo& each : kTypes) {
      const bool isSame = tools::GetRecordKinds(each.type).data() == kinds.data();
      if (isSame && !IsPair(each.type)) inputs.push_back(each.name);
    }
    if (GroupOutputs(from).empty() || inputs.front() != from.name) continue;
    page += Table(inputs, from) + Changes(from);
  }
  return page;
}

}  // namespace zelconvert::cli
