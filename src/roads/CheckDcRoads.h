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

/// Reads the whole file and adds to `badRoads` each road that breaks a rule. For each, `messages`
/// gets the text of the first rule it breaks and FormatRoadFailure. docs/formats/roads.md lists the
/// rules. Returns false if the file holds nothing for a conversion of roads to do: no road, good or
/// bad, and no header line that ends it. Most DC files are such.
[[nodiscard]] bool CheckDcRoads(CDcFile& file, RoadNames& badRoads, MessageList& messages);

}  // namespace zelconvert
