// What stands beside the map: north arrow and scale bar, legend, title.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/Plot.h"
#include "tools/PlotGeometry.h"
#include "tools/PlotLayers.h"
#include "tools/PlotUnits.h"

namespace zelconvert::tools::plot {

/// Of a sheet of A3 paper, 420 by 297 mm.
struct SheetLayout {
  SheetRect page, map;
  SheetRect scale, symbols, codes,
      title;  ///< in the panel; an edge of 0 is as the contents need it
};
/// Landscape has the panel on the right, portrait below the map.
const SheetLayout& LayoutOf(bool isPortrait);

struct PanelContents {
  const Survey& survey;
  std::wstring_view fileName;
  const PlotSummary& summary;
  const MapKey& key;
  const DisplayUnit& unit;
};

/// The name of the job, else of the file.
std::wstring_view TitleOf(const PanelContents& contents);
/// The plan in a sentence or two, for who can't see it.
std::wstring Describe(const PanelContents& contents);
void DrawPanel(std::string& svg, const SheetLayout& layout, const PanelContents& contents);

/// Lines of a text that have room in a width, broken at blanks; a word too long for a line is cut.
std::vector<std::wstring> WrapText(std::wstring_view text, int width, int size);

}  // namespace zelconvert::tools::plot
