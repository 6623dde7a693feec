// Which driver a pair of types goes to.
#pragma once

#include <string>

#include "convert/ConversionBase.h"

namespace zelconvert {

/// What a host asks for. The types are its numbers, unchecked.
struct ConvertRequest {
  int inputType = -1;
  std::wstring input;
  int outputType = -1;
  std::wstring output;
  int units = 0;             ///< of a CR5 input: 0 metres, 1 international feet, 2 US survey feet
  std::wstring featureFile;  ///< may be empty
};

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
