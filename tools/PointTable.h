// The points of a survey as rows of text.
#pragma once

#include <cstddef>
#include <string>

#include "tools/Survey.h"
#include "tools/Wgs84.h"

namespace zelconvert::tools {

/// A file of points.
struct PointTable {
  std::string text;
  std::size_t written = 0;
  std::size_t leftOut = 0;  ///< points without a place in the system that was asked for
};

/// RFC 4180, with a line of names: name, north, east, elevation, code, in the unit of the survey
/// and the decimals of its file. Deleted points aren't among them; of a name that comes several
/// times each row is.
PointTable PointsAsCsv(const Survey& survey);

/// RFC 7946: a point with its properties name, code, north, east, elevation, the last three as in
/// CSV. toWgs84: longitude and latitude in degrees; points that GPS measured but that have no place
/// in the grid have the position that it gave, with their height. Null: east and north as they are
/// in the survey, with the system's code where there is one whose unit they have.
PointTable PointsAsGeoJson(const Survey& survey, Wgs84* toWgs84);

}  // namespace zelconvert::tools
