#include "tools/PlotStyle.h"

#include <iterator>
#include <span>

#include "tools/PlotSvg.h"

namespace zelconvert::tools::plot {
namespace {

// Colours that people tell apart whatever their sight: M. Okabe, K. Ito: Color Universal Design
// (2008), without the yellow, which paper swallows. Neighbours are filled and hollow in turn, and
// those of one kind differ in lightness, so that the first six stay apart without colour too. The
// second six have the same colours and the other fill.
constexpr std::string_view kCodeClasses[kCodesOfSymbols] = {"c0", "c1", "c2", "c3", "c4",  "c5",
                                                            "c6", "c7", "c8", "c9", "c10", "c11"};
constexpr std::string_view kDotClasses[kCodesOfDots] = {"d0", "d1", "d2", "d3", "d4", "d5"};

constexpr std::string_view kStyle = R"(.paper{fill:#fff}
text{font-family:Arial,Helvetica,"Liberation Sans","DejaVu Sans",sans-serif;font-size:260px;fill:#1a1a1a}
.e{text-anchor:end}
.m{text-anchor:middle}
.title{font-size:450px;font-weight:bold}
.head{font-weight:bold}
.grey{fill:#595959}
.axis text{font-size:220px;fill:#595959}
.names text{font-size:220px}
.names .control{font-size:270px;font-weight:bold}
.stations text{font-size:220px;font-style:italic}
.stations .control{font-size:270px;font-weight:bold;font-style:normal}
.names text,.stations text,.outside text{paint-order:stroke;stroke:#fff;stroke-width:45px;stroke-linejoin:round}
.frame{fill:none;stroke:#1a1a1a;stroke-width:35px}
.thin{fill:none;stroke:#1a1a1a;stroke-width:18px}
.ink{fill:#1a1a1a}
.cross,.tick{fill:none;stroke:#8c8c8c;stroke-width:13px}
.sight{fill:none;stroke:#999;stroke-width:12px}
.fine{stroke:#bbb;stroke-width:7px}
.traverse{fill:none;stroke:#595959;stroke-width:28px}
.vector{fill:none;stroke:#595959;stroke-width:18px;stroke-dasharray:180 110}
.stake{fill:none;stroke:#595959;stroke-width:100px;stroke-linecap:round}
.road{fill:none;stroke:#1a1a1a;stroke-width:50px;stroke-linejoin:round}
.station{fill:none;stroke:#1a1a1a;stroke-width:20px}
.control{stroke:#1a1a1a}
use{stroke-width:28px}
use.control{fill:#fff}
.c0,.d0{stroke:#0072b2}
.c1,.c7,.d1{stroke:#d55e00}
.c2,.c8,.d2{stroke:#009e73}
.c3,.c9,.d3{stroke:#e69f00}
.c4,.c10,.d4{stroke:#56b4e9}
.c5,.c11,.d5{stroke:#cc79a7}
.c6{stroke:#0072b2}
.c0{fill:#0072b2}
.c7{fill:#d55e00}
.c2{fill:#009e73}
.c9{fill:#e69f00}
.c4{fill:#56b4e9}
.c11{fill:#cc79a7}
.c1,.c3,.c5,.c6,.c8,.c10{fill:#fff}
.other,.dother{stroke:#767676}
.other{fill:#767676}
.none,.dnone{stroke:#333}
.none{fill:#fff}
)";

// On a screen alone: what is printed stays on white paper.
constexpr std::string_view kDarkStyle = R"(@media screen and (prefers-color-scheme:dark){
.paper{fill:#14181c}
text{fill:#e6e6e6}
.grey,.axis text{fill:#a6a6a6}
.names text,.stations text,.outside text{stroke:#14181c}
.frame,.thin,.road,.station,.control{stroke:#e6e6e6}
.ink{fill:#e6e6e6}
.cross,.tick{stroke:#5c6670}
.sight{stroke:#4a525a}
.fine{stroke:#3a4249}
.traverse,.vector,.stake{stroke:#a6a6a6}
use.control,.c1,.c3,.c5,.c6,.c8,.c10,.none{fill:#14181c}
.c0,.c6,.d0{stroke:#3d9bdc}
.c0{fill:#3d9bdc}
.none,.dnone{stroke:#ccc}
}
)";

struct Corner {
  int x, y;  // hundredths of the reach
};

void AppendShape(std::string& svg, std::string_view id, std::span<const Corner> corners,
                 int reach) {
  svg.append("<path id=\"").append(id).append("\" d=\"");
  char command = 'M';
  for (const auto& [x, y] : corners) {
    svg += command;
    AppendInteger(svg, x * reach / 100);
    svg += ' ';
    AppendInteger(svg, y * reach / 100);
    command = 'L';
  }
  svg += "Z\"/>\n";
}

}  // namespace

std::string_view CodeClassOf(CodeRanks::Rank rank) {
  if (rank == CodeRanks::kNoCode) return "none";
  return rank < kCodesOfSymbols ? kCodeClasses[rank] : "other";
}

std::string_view DotClassOf(CodeRanks::Rank rank) {
  if (rank == CodeRanks::kNoCode) return "dnone";
  return rank < kCodesOfDots ? kDotClasses[rank] : "dother";
}

std::string_view LineClassOf(LineKind kind) {
  switch (kind) {
    case LineKind::Traverse:
      return "traverse";
    case LineKind::Vector:
      return "vector";
    case LineKind::Sight:
    case LineKind::StakeOut:
      break;
  }
  return "sight";
}

std::string_view SymbolOf(SymbolKind kind) {
  switch (kind) {
    case SymbolKind::Control:
      return "control";
    case SymbolKind::Gps:
      return "gps";
    case SymbolKind::Stated:
      return "diamond";
    case SymbolKind::Measured:
      break;
  }
  return "shot";
}

void AppendStyle(std::string& svg, int dotSize) {
  svg.append("<style>\n").append(kStyle);
  svg += ".d0,.d1,.d2,.d3,.d4,.d5,.dother,.dnone{fill:none;stroke-linecap:round;stroke-width:";
  AppendInteger(svg, dotSize);
  svg.append("px}\n.sample{stroke-width:130px}\n").append(kDarkStyle).append("</style>\n");
}

void AppendSymbols(std::string& svg, int reach) {
  static constexpr Corner kTriangle[] = {{0, -100}, {88, 62}, {-88, 62}};
  static constexpr Corner kSquare[] = {{-80, -80}, {80, -80}, {80, 80}, {-80, 80}};
  static constexpr Corner kDiamond[] = {{0, -115}, {115, 0}, {0, 115}, {-115, 0}};
  svg += "<defs>\n<g id=\"control\">\n";
  AppendShape(svg, "triangle", kTriangle, ReachOf(SymbolKind::Control, reach));
  svg += "<circle class=\"ink\" r=\"15\"/>\n</g>\n";
  AppendShape(svg, "gps", kSquare, reach);
  AppendShape(svg, "diamond", kDiamond, reach);
  svg += "<circle id=\"shot\" r=\"";
  AppendInteger(svg, reach * 85 / 100);
  svg += "\"/>\n</defs>\n";
}

}  // namespace zelconvert::tools::plot
