// Which roads of a DC file road files can express, found before any is written.
#pragma once

#include <string>

#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "io/NameSet.h"

namespace zelconvert {

/// Trimmed names of roads.
using RoadNames = NameSet;

/// "Road %s in the DC file could not be converted to RD5 files."
std::wstring FormatRoadFailure(const std::wstring& roadName);

/// What a file holds for a conversion of roads to do. Most DC files hold nothing.
struct FoundRoads {
  bool isAny = false;     ///< a road, good or bad, or a header line that ends it
  bool hasPoint = false;  ///< a straight to a point
};

/// Reads the whole file and adds to `badRoads` each road that breaks a rule. For each, `messages`
/// gets the text of the first rule it breaks and FormatRoadFailure. docs/formats/roads.md lists the
/// rules.
[[nodiscard]] FoundRoads CheckDcRoads(CDcFile& file, RoadNames& badRoads, MessageList& messages);

}  // namespace zelconvert
