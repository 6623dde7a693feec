#include "cli/FileTypes.h"

#include <algorithm>

#include "front/Routes.h"
#include "tools/RecordKinds.h"

namespace zelconvert::cli {

bool ConvertsTo(const TypeInfo& from, const TypeInfo& to) {
  const Route* route = FindRoute(from.type, to.type);
  return route != nullptr && route->carries;
}

std::vector<std::string_view> OutputsAmong(const TypeInfo& from, TypeSet types) {
  std::vector<std::string_view> names;
  for (const TypeInfo& to : kTypes) {
    if (types.Contains(to.type) && ConvertsTo(from, to)) names.push_back(to.name);
  }
  return names;
}

namespace {

bool IsSameFor(const TypeInfo& from, FileType a, FileType b) {
  const auto kinds = tools::GetRecordKinds(from.type);
  const auto changes = tools::GetRecordChanges(from.type);
  const auto agreesIn = [a, b](TypeSet types) { return types.Contains(a) == types.Contains(b); };
  return std::all_of(kinds.begin(), kinds.end(),
                     [&](const auto& kind) { return agreesIn(kind.carriedTo); }) &&
         std::all_of(changes.begin(), changes.end(),
                     [&](const auto& change) { return agreesIn(change.outputs); });
}

}  // namespace

std::vector<OutputGroup> GroupOutputs(const TypeInfo& from) {
  std::vector<OutputGroup> groups;
  for (const TypeInfo& to : kTypes) {
    if (!ConvertsTo(from, to)) continue;
    const auto same = std::find_if(groups.begin(), groups.end(), [&](const OutputGroup& each) {
      return IsSameFor(from, each.first, to.type);
    });
    if (same != groups.end()) {
      same->names.push_back(to.name);
    } else {
      groups.push_back({{to.name}, to.type});
    }
  }
  return groups;
}

std::string OutputNames(const TypeInfo& from) {
  std::string names;
  for (const TypeInfo& to : kTypes) {
    if (ConvertsTo(from, to)) names += (names.empty() ? "" : " ") + std::string(to.name);
  }
  return names;
}

}  // namespace zelconvert::cli
