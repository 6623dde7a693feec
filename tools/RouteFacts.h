// What a verification has to know of each route: what of a survey it carries over, and what it
// makes other than it was. The rest is lost on the way by its nature.
#pragma once

#include "tools/FormatLimits.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

struct RouteFacts {
  KindSet carried;
  bool measuresOnly = false;  ///< of shots those to staked out points are left out
  bool losesGpsGrid = false;  ///< points by GPS arrive as positions or vectors, not as coordinates
  bool statesStations = false;     ///< stations arrive as places of setups, not as points
  bool dropsDeletedLines = false;  ///< records that are deleted but not by a class of their own
  bool codesGrow = false;          ///< marks of a log are added to codes
  bool keepsFirstStation = false;  ///< a station that was shot before keeps its place from there
};

/// Null if nothing is carried from one type to the other.
const RouteFacts* FactsOf(FileType from, FileType to);

}  // namespace zelconvert::tools
