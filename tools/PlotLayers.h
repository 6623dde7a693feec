// What lies on the map of a plan, one above the other.
#pragma once

#include <string>

#include "tools/Plot.h"
#include "tools/PlotCodes.h"
#include "tools/PlotGeometry.h"
#include "tools/PlotLabels.h"
#include "tools/PlotScene.h"
#include "tools/PlotUnits.h"

namespace zelconvert::tools::plot {

/// What the layers share; all of it stays the caller's.
struct MapLayers {
  const Scene& scene;
  const PlanView& view;
  const DisplayUnit& unit;
  std::string& svg;
  PlotSummary& summary;
  LabelPlacer& labels;
  int reach = 0;    ///< of a symbol
  int dotSize = 0;  ///< of a dot; used with summary.isInDots
};

/// What the legend shows of the map.
struct MapKey {
  CodeRanks codes;  ///< of all points but stations, which have a colour of their own
  std::size_t kinds[kSymbolKinds] = {};  ///< points that are drawn
  std::size_t lines[kLineKinds] = {};
  std::wstring gridStep;
};

/// Whether points of this kind have symbols or are dots.
bool HasSymbol(const PlotSummary& summary, const MapKey& key, SymbolKind kind);

/// Counts the points on the map and outside, and their codes; says how they are drawn.
void CountPoints(const Scene& scene, const PlanView& view, PlotSummary& summary, MapKey& key);

/// Crosses at round coordinates, ticks at the edges, coordinates beside them.
void DrawGrid(const MapLayers& layers, MapKey& key);
void DrawLines(const MapLayers& layers, MapKey& key);
/// Arrows to points outside. Before any label.
void DrawOutside(const MapLayers& layers);
void DrawPoints(const MapLayers& layers, const MapKey& key);
/// Alignments with their stations, and the room that they take.
void DrawRoads(const MapLayers& layers);
void DrawNames(const MapLayers& layers);

}  // namespace zelconvert::tools::plot
