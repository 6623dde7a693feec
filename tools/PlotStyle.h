// How a plan looks: its style sheet, and which look belongs to which kind and code.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tools/PlotCodes.h"
#include "tools/PlotScene.h"

namespace zelconvert::tools::plot {

/// Codes with a look of their own: as symbols, and as dots, which have no outline to vary.
inline constexpr std::size_t kCodesOfSymbols = 12;
inline constexpr std::size_t kCodesOfDots = 6;

// Sizes of text, units.
inline constexpr int kNameSize = 220;
inline constexpr int kControlNameSize = 270;
inline constexpr int kTextSize = 260;
inline constexpr int kTitleSize = 450;

/// The class of symbols of this rank: colour and fill.
std::string_view CodeClassOf(CodeRanks::Rank rank);
/// The class of dots of this rank.
std::string_view DotClassOf(CodeRanks::Rank rank);
std::string_view LineClassOf(LineKind kind);
/// The name of a symbol, as AppendSymbols defines it.
std::string_view SymbolOf(SymbolKind kind);

/// reach: from the middle of a symbol to its edges.
constexpr int ReachOf(SymbolKind kind, int reach) {
  return kind == SymbolKind::Control ? reach * 9 / 5 : reach;
}

void AppendStyle(std::string& svg, int dotSize);
void AppendSymbols(std::string& svg, int reach);

}  // namespace zelconvert::tools::plot
