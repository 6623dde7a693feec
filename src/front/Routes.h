// Which route a pair of types takes.
#pragma once

#include "convert/ConversionBase.h"
#include "front/CFileTypeManager.h"

namespace zelconvert {

struct Route {
  TypeSet inputs;
  TypeSet outputs;
  bool (*run)(const ConvertRequest& request, Report& report);
  bool carries;  ///< something of the input arrives; a user needn't be offered the others
};

/// Null if a pair of numbers, which may be no types, has no route.
const Route* FindRoute(int inputType, int outputType);

/// Runs the route of the request's pair; without one it is false, with a text.
[[nodiscard]] bool RunConversion(const ConvertRequest& request, Report& report);

}  // namespace zelconvert
