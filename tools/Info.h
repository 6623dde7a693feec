// What is worth knowing of a file at a glance, as plain data, as text and as JSON: both show the
// same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/Json.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

struct InfoRange {
  double low, high;
};
struct InfoElevation {
  double value;
  std::string point;
};
struct InfoRoad {
  std::string name;
  std::optional<double> length;
};
struct InfoSystem {
  std::optional<int> epsg;
  std::string projection;  ///< empty where the file names the system alone
  std::string zoneGroup, zone, datum, ellipsoid;
  /// Of projection and ellipsoid, those that the file tells: degrees, metres, ratios.
  std::vector<std::pair<std::string, double>> parameters;
};
struct InfoRepeat {
  std::string name;
  std::size_t positions;
  double plan;
  std::optional<double> height;
};
struct InfoTraverse {
  std::string from, to;
  std::size_t legs;
  double length;
  double north, east;  ///< misclosure
  std::optional<double> height;
  double plan;
  std::optional<double> ratio;  ///< the n of 1 : n; none if it closes to the digit
};
struct InfoBacksight {
  std::string station, backsight;
  std::int64_t line;              ///< 0: not known
  std::optional<double> azimuth;  ///< seconds of arc; in a file of gons ten-thousandths of a gon
  std::optional<double> distance, height;
};
struct InfoWarning {
  /// "far-point", "grid-apart", "duplicate-name", "unknown-station", "unsigned-gps", "unit-change"
  std::string kind;
  std::string text;  ///< one line, without a full stop
  std::int64_t line;
};

/// Lengths are in the file's unit, rounded to 5 decimals; texts are UTF-8; empty: not told.
struct Info {
  std::string file, type, reason;  ///< the caller's: how the type was told
  std::string job, firstDate, lastDate;
  std::string lengthUnit;  ///< "m", "ft" or "usft"; empty for a list whose unit isn't known
  std::string angleUnit;   ///< "degrees" or "gons"
  bool isSouthAzimuth = false;
  std::optional<InfoSystem> system;
  double scale = 1;  ///< where there is no system
  std::vector<RecordCount> records;
  std::size_t points = 0, deletedPoints = 0, setups = 0, shots = 0, vectors = 0, notes = 0;
  std::vector<InfoRoad> roads;
  std::optional<InfoRange> north, east;
  std::optional<InfoElevation> lowest, highest;
  std::vector<InfoRepeat> repeats;
  std::vector<InfoTraverse> traverses;
  std::vector<InfoBacksight> backsights;
  std::vector<InfoWarning> warnings;
};

Info MakeInfo(const Survey& survey);

/// docs/commands/info.md tells the fields.
Json::Object ToJson(const Info& info);
/// Lines of a name and a value. Of a list that goes on at most ten rows, those with the largest
/// differences, and how many more there are.
std::string ToText(const Info& info);

}  // namespace zelconvert::tools
