// A plan of a survey as an SVG document: points by kind and code with their names, lines of sight,
// GPS vectors, roads with stations, grid, scale, legend. docs/commands/plot.md shows one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Survey.h"

namespace zelconvert::tools {

/// What is on the plan and what isn't. Deleted points, shots and vectors aren't.
struct PlotSummary {
  double scale = 0;           ///< n of 1 : n on A3 paper; 0: nothing has a place
  bool isPortrait = false;    ///< the sheet
  bool isGeographic = false;  ///< latitudes and longitudes, projected about their middle
  bool isInDots = false;      ///< too many points for symbols

  std::size_t points = 0;  ///< drawn, each of the following too
  std::size_t names = 0;
  std::size_t sights = 0;
  std::size_t vectors = 0;
  std::size_t roads = 0;

  std::size_t outsidePoints = 0;  ///< far from all others, told by arrows
  std::size_t deletedPoints = 0;
  std::size_t unplacedPoints = 0;  ///< without coordinates
  std::size_t unplacedLines = 0;   ///< sights and vectors one of whose ends has none
  std::size_t unplacedRoads = 0;   ///< with no more than a start
  std::size_t unplacedNames = 0;   ///< of points that are drawn: no room
};

/// Each thing that is left out, "3 points are deleted".
std::vector<std::wstring> TellLeftOut(const PlotSummary& summary);

struct Plot {
  std::string svg;  ///< UTF-8
  PlotSummary summary;
};

/// fileName: as the plan shows it. The same bytes from every machine. Time and size grow with the
/// survey and no faster.
Plot DrawPlot(const Survey& survey, std::wstring_view fileName);

}  // namespace zelconvert::tools
