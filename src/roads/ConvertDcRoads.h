// Road definitions of a DC file into road files: one RD5 file per road, one TP5 file per template.
#pragma once

#include <deque>
#include <string>

#include "convert/ConversionBase.h"
#include "roads/RoadNames.h"

namespace zelconvert {

class CDcFile;

/// Where a road starts, in the units of the DC file. The job holds the same values.
struct ROAD_HEADER {
  std::string name;         ///< trimmed, in UTF-8
  RoadFileName fileName;    ///< of its RD5 file, without extension
  double startStation = 0;  ///< all four from the road's last record 84
  double north = 0;
  double east = 0;
  double elevation = 0;
};

using RoadHeaders = std::deque<ROAD_HEADER>;

/// Writes the road files of every road that passes CheckDcRoads into `outputFolder` (with or
/// without a separator at its end); files of the same name are overwritten.
///
/// file: open for reading; read from its first line, twice if there are roads; left anywhere.
/// report: its messages say why roads were left out and which files have other names than their
/// roads or templates, in the order of the file, then why the run failed; `beside` gets the paths
/// of the road files as they are made, also before an exception leaves.
/// roads: each road met that isn't refused, in the order of the file, appended when its RD5 file
/// has been made; after a failure those up to the failing one, with that one's start as well.
///
/// Returns false when a road failed on the way or a road file can't be written: every file in
/// `beside` is deleted again. Refused roads alone are no failure.
[[nodiscard]] bool ConvertDcRoads(CDcFile& file, Report& report, RoadHeaders& roads,
                                  const std::wstring& outputFolder);

}  // namespace zelconvert
