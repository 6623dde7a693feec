// Road definitions of a DC file into road files: one RD5 file per road, one TP5 file per template.
#pragma once

#include <string>
#include <vector>

#include "convert/ConversionBase.h"
#include "roads/RoadNames.h"

namespace zelconvert {

class CDcFile;

/// Where a road starts, in the units of the DC file. The job holds the same values.
struct ROAD_HEADER {
  std::wstring name;        ///< trimmed
  double startStation = 0;  ///< all four from the road's last record 84
  double north = 0;
  double east = 0;
  double elevation = 0;
};

/// Writes the road files of every road that passes CheckDcRoads into `outputFolder` (with or
/// without a separator at its end); files of the same name are overwritten.
///
/// file: open for reading; read from its first line, twice if there are roads; left anywhere.
/// messages: why roads were left out, in the order of the file, then why the run failed.
/// roads: each road met that isn't refused, in the order of the file, appended at its record 28;
/// after a failure those up to the failing one, which is among them.
///
/// Returns false when a road failed on the way or a road file can't be written: every road file of
/// this run is deleted again. Refused roads alone are no failure.
bool ConvertDcRoads(CDcFile& file, StringList& messages, std::vector<ROAD_HEADER>& roads,
                    const std::wstring& outputFolder);

}  // namespace zelconvert
