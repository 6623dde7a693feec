// What a surveyor looks at first in a file: points measured more than once, traverses that close,
// backsights, and what seems wrong. Lengths are metres, angles radians.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/Survey.h"

namespace zelconvert::tools {

/// A point that several records put somewhere, at least one of them a shot or GPS.
struct Repeat {
  std::wstring name;
  std::size_t positions = 0;
  double plan = 0;          ///< diagonal of the box around them
  double height = DC_NULL;  ///< from the lowest to the highest; null with fewer than two elevations
};

/// From a station with stated coordinates over stations that only shots lead to, to a point with
/// stated coordinates, which may be the first station.
struct Traverse {
  std::wstring from, to;
  std::size_t legs = 0;     ///< at least two
  double length = 0;        ///< in plan
  GridPosition misclosure;  ///< where the last shot leads less where the point is
  double plan = 0;          ///< the misclosure in plan
  std::int64_t line = 0;    ///< of the last shot
};

/// A setup whose station and backsight both have coordinates.
struct BacksightCheck {
  std::wstring station, backsight;
  double azimuth = DC_NULL;  ///< told less reckoned from coordinates, -pi to pi
  double distance =
      DC_NULL;              ///< in plan, of the last shot to it, measured less reckoned; null: none
  double height = DC_NULL;  ///< likewise
  std::int64_t line = 0;
};

enum class WarningKind : std::uint8_t {
  FarPoint,
  GridApart,
  DuplicateName,
  UnknownStation,
  UnsignedGps,
  UnitChange,
};

struct Warning {
  WarningKind kind;
  std::wstring name;      ///< of the point or station; empty where the line says it
  std::size_t count = 1;  ///< points of the name, shots from the station, points apart
  std::int64_t line = 0;
  double distance = DC_NULL;  ///< GridApart: of the point, in metres
};

/// In the order of the first record of each point.
std::vector<Repeat> FindRepeats(const Survey& survey);
/// In the order of the closing shots; of the same ends the last one.
std::vector<Traverse> FindTraverses(const Survey& survey);
/// In the order of the setups.
std::vector<BacksightCheck> CheckBacksights(const Survey& survey);
/// By kind. A point is far from all others if it lies more than twenty times as far from the middle
/// as half of the points do; files of fewer than five points have none. Grid and latitudes are
/// apart where they put a point more than 100 m from itself, which no datum does: the one that is
/// farthest stands for all. Nothing is said of them without a way from the grid to WGS 84.
std::vector<Warning> FindWarnings(const Survey& survey);

}  // namespace zelconvert::tools
