// Where texts stand on a plan so that none covers another or a symbol. The paper is a raster of
// small cells that are free or taken: a place costs the same to ask for however many points there
// are.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "tools/PlotGeometry.h"

namespace zelconvert::tools::plot {

class OccupancyMask {
 public:
  static constexpr int kCell = 20;  ///< units

  explicit OccupancyMask(const SheetRect& area);

  /// Whether nothing is taken there. False where it leaves the area.
  bool IsFree(const SheetRect& rect) const;
  /// Every cell that it touches; what is outside the area is passed over.
  void Take(const SheetRect& rect);

 private:
  template <class Visit>
  bool VisitWords(const SheetRect& rect, Visit visit) const;

  SheetRect m_area;
  std::size_t m_wordsPerRow = 0;
  std::vector<std::uint64_t> m_words;
};

/// Which point of a text stands at its position.
enum class Anchor : std::uint8_t { Start, Middle, End };

struct PlacedLabel {
  SheetPoint at;  ///< on the base line
  Anchor anchor = Anchor::Start;
};

/// A bound for the width of a text, in units, in the usual fonts without serifs.
/// size: of the font, in units.
int WidthOfText(std::wstring_view text, int size);

class LabelPlacer {
 public:
  explicit LabelPlacer(const SheetRect& area) : m_taken(area), m_firm(area) {}

  /// For whatever no label may cover.
  void Take(const SheetRect& rect) {
    m_taken.Take(rect);
    m_firm.Take(rect);
  }
  /// For what an important label may cover if there is no other room.
  void TakeLoosely(const SheetRect& rect) { m_taken.Take(rect); }
  /// Beside a symbol that reaches `reach` units from its middle: on its right, on its left, above,
  /// below, whichever is free first. Takes that place; none if there is no room.
  std::optional<PlacedLabel> PlaceBeside(SheetPoint symbol, int reach, int width, int size) {
    return PlaceBeside(m_taken, symbol, reach, width, size);
  }
  std::optional<PlacedLabel> PlaceImportant(SheetPoint symbol, int reach, int width, int size) {
    const auto place = PlaceBeside(m_taken, symbol, reach, width, size);
    return place ? place : PlaceBeside(m_firm, symbol, reach, width, size);
  }

 private:
  std::optional<PlacedLabel> PlaceBeside(const OccupancyMask& mask, SheetPoint symbol, int reach,
                                         int width, int size);

  OccupancyMask m_taken, m_firm;
};

}  // namespace zelconvert::tools::plot
