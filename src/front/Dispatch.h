// Which driver a pair of types goes to.
#pragma once

#include <string>

#include "convert/ConversionBase.h"

namespace zelconvert {

struct ConvertOutcome {
  bool converted = false;
  /// Whether the host receives the two lists. It never does for a conversion between CR5 and DC,
  /// which runs through a temporary job.
  bool reportsLists = true;
  StringList files;
  StringList messages;
};

ConvertOutcome RunConversion(const ConvertRequest& request);

}  // namespace zelconvert
