#include "cli/FileTypes.h"

#include "front/Routes.h"

namespace zelconvert::cli {

bool ConvertsTo(const TypeInfo& from, const TypeInfo& to) {
  const Route* route = FindRoute(from.type, to.type);
  return route != nullptr && route->carries;
}

std::string OutputNames(const TypeInfo& from) {
  std::string names;
  for (const TypeInfo& to : kTypes) {
    if (ConvertsTo(from, to)) names += (names.empty() ? "" : " ") + std::string(to.name);
  }
  return names;
}

}  // namespace zelconvert::cli
