// What a raw log tells that a DC file made of it can't carry: the lines of its records, changes of
// units and scale, the grid coordinates of GPS points, receivers without a signature.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "raw/CRawFile.h"
#include "tools/SourceMarks.h"
#include "tools/SurveyBuilder.h"

namespace zelconvert::tools {

/// A point stored by GPS, or a base, which has no place in the grid.
struct GpsPoint {
  std::wstring name;
  std::wstring code;
  GridPosition grid;
  GeodeticPosition geodetic;
  bool isDeleted = false;
  std::int64_t line = 0;
};

struct LogFacts {
  Source source;
  std::vector<GpsPoint> gpsPoints;  ///< in the order of the log
  std::vector<Shot> rounds;         ///< shots of sets of rounds, in the order of the log; no setup
};

/// Reads from the first line on. The job's name, dates, notes, counts and changes go into `survey`.
LogFacts ReadLog(CRawFile& log, Survey& survey);

}  // namespace zelconvert::tools
