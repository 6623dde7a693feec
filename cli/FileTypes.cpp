#include "cli/FileTypes.h"

#include <algorithm>

#include "front/Routes.h"
#include "tools/RecordKinds.h"

namespace zelconvert::cli {

bool ConvertsTo(const TypeInfo& from, const TypeInfo& to) {
  const Route* route = FindRoute(from.type, to.type);
  return route != nullptr && route->carries;
}

namespace {

bool IsSameFor(const TypeInfo& from, FileType a, FileType b) {
  const auto kinds = tools::GetRecordKinds(from.type);
  return std::all_of(kinds.begin(), kinds.end(), [&](const tools::RecordKind& kind) {
    return kind.carriedTo.Contains(a) == kind.carriedTo.Contains(b);
  });
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
