#include "tools/PlotLabels.h"

#include <algorithm>

namespace zelconvert::tools::plot {
namespace {

constexpr int kBitsPerWord = 64;

// Hundredths of the font's size, from the base line.
constexpr int kAscent = 76;
constexpr int kDescent = 22;

/// Hundredths of the font's size. The widest of common fonts: too wide leaves a gap, too narrow
/// makes texts meet.
constexpr int WidthOfCharacter(wchar_t c) {
  constexpr std::wstring_view kNarrow = L"!'(),.:;I[]fijl|t ";
  constexpr std::wstring_view kWide = L"%&@MWmw";
  constexpr wchar_t kFirstOfEastAsia = 0x2E80;
  if (kNarrow.find(c) != std::wstring_view::npos) return 40;
  if (kWide.find(c) != std::wstring_view::npos || c >= kFirstOfEastAsia) return 100;
  if (c >= L'A' && c <= L'Z') return 76;
  return 64;
}

/// The middle of a label against that of its symbol, in halves of its size plus the symbol's.
struct Position {
  int x, y;
};
constexpr Position kPositions[] = {{1, -1}, {1, 1},  {-1, -1}, {-1, 1},
                                   {1, 0},  {-1, 0}, {0, -1},  {0, 1}};

constexpr Anchor AnchorOf(Position position) {
  return position.x > 0 ? Anchor::Start : position.x < 0 ? Anchor::End : Anchor::Middle;
}

constexpr int Up(int value, int by) {
  return (value + by - 1) / by;
}

}  // namespace

OccupancyMask::OccupancyMask(const SheetRect& area)
    : m_area(area),
      m_wordsPerRow(static_cast<std::size_t>(Up(Up(area.Width(), kCell), kBitsPerWord))),
      m_words(m_wordsPerRow * static_cast<std::size_t>(Up(area.Height(), kCell))) {}

// visit: word and the bits of it that the rectangle touches; false ends it.
template <class Visit>
bool OccupancyMask::VisitWords(const SheetRect& rect, Visit visit) const {
  const int left = (rect.left - m_area.left) / kCell, right = (rect.right - m_area.left) / kCell;
  const int top = (rect.top - m_area.top) / kCell, bottom = (rect.bottom - m_area.top) / kCell;
  for (int row = top; row <= bottom; ++row) {
    for (int word = left / kBitsPerWord; word <= right / kBitsPerWord; ++word) {
      std::uint64_t bits = ~std::uint64_t{0};
      const int first = word * kBitsPerWord, last = first + kBitsPerWord - 1;
      if (left > first) bits &= bits << (left - first);
      if (right < last) bits &= ~std::uint64_t{0} >> (last - right);
      const std::size_t index =
          static_cast<std::size_t>(row) * m_wordsPerRow + static_cast<std::size_t>(word);
      if (!visit(index, bits)) return false;
    }
  }
  return true;
}

bool OccupancyMask::IsFree(const SheetRect& rect) const {
  if (rect.left < m_area.left || rect.right >= m_area.right || rect.top < m_area.top ||
      rect.bottom >= m_area.bottom) {
    return false;
  }
  return VisitWords(
      rect, [this](std::size_t word, std::uint64_t bits) { return (m_words[word] & bits) == 0; });
}

void OccupancyMask::Take(const SheetRect& rect) {
  const SheetRect inside = {std::max(rect.left, m_area.left), std::max(rect.top, m_area.top),
                            std::min(rect.right, m_area.right - 1),
                            std::min(rect.bottom, m_area.bottom - 1)};
  if (inside.left > inside.right || inside.top > inside.bottom) return;
  VisitWords(inside, [this](std::size_t word, std::uint64_t bits) {
    m_words[word] |= bits;
    return true;
  });
}

int WidthOfText(std::wstring_view text, int size) {
  int hundredths = 0;
  for (const wchar_t c : text) hundredths += WidthOfCharacter(c);
  return Up(hundredths * size, 100);
}

std::optional<PlacedLabel> LabelPlacer::PlaceBeside(const OccupancyMask& mask, SheetPoint symbol,
                                                    int reach, int width, int size) {
  const int ascent = size * kAscent / 100, descent = size * kDescent / 100;
  const int height = ascent + descent;
  const int gap = reach + OccupancyMask::kCell + 5;  // not in the last cell of its own symbol
  for (const Position& position : kPositions) {
    // Beside the symbol a label leans to a corner by half its height, and off the other's cells.
    const int lean = height / 2 + (position.x == 0 ? gap : OccupancyMask::kCell);
    const int middleX = symbol.x + position.x * (gap + width / 2);
    const int middleY = symbol.y + position.y * lean;
    const SheetRect box = {middleX - width / 2, middleY - height / 2, middleX + width / 2,
                           middleY + height / 2};
    if (!mask.IsFree(box)) continue;
    Take(box);
    const int x = position.x > 0 ? box.left : position.x < 0 ? box.right : middleX;
    return PlacedLabel{{x, box.top + ascent}, AnchorOf(position)};
  }
  return std::nullopt;
}

}  // namespace zelconvert::tools::plot
