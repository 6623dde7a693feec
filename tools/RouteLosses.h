// What of a survey each route carries over. The rest is lost on the way, by the nature of the
// output or of the conversion.
#pragma once

#include <string_view>

#include "tools/FormatLimits.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

struct RouteLosses {
  KindSet carried;
  bool measuresOnly = false;  ///< of shots those to staked out points are left out
  bool losesGpsGrid = false;  ///< points by GPS arrive as positions or vectors, not as coordinates
  bool statesStations = false;     ///< stations arrive as places of setups, not as points
  bool dropsDeletedLines = false;  ///< records that are deleted but not by a class of their own
  bool codesGrow = false;          ///< marks of a log are added to codes
  bool keepsFirstStation = false;  ///< a station that was shot before keeps its place from there
  /// What arrives in another form than it had, for people; empty: nothing.
  std::wstring_view remark = {};
};

/// Null if nothing is carried from one type to the other.
const RouteLosses* LossesOf(FileType from, FileType to);

}  // namespace zelconvert::tools
