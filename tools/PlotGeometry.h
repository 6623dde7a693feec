// The geometry of a plan on paper: what is fitted, at which round scale, and what lies inside.
// Plain arithmetic in one order, so that every machine rounds to the same sheet coordinates.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace zelconvert::tools::plot {

/// In the ground's plane, metres.
struct Place {
  double north = 0, east = 0;
};

/// Hundredths of a millimetre on paper, from the top left corner, y downwards.
struct SheetPoint {
  int x = 0, y = 0;
};
struct SheetPlace {
  double x = 0, y = 0;
};
inline constexpr int kUnitsPerMillimetre = 100;

struct SheetRect {
  int left = 0, top = 0, right = 0, bottom = 0;

  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr SheetPoint Centre() const { return {(left + right) / 2, (top + bottom) / 2}; }
  /// Edges belong to it.
  constexpr bool Contains(SheetPlace at) const {
    return at.x >= left && at.x <= right && at.y >= top && at.y <= bottom;
  }
  constexpr SheetRect Shrunk(int by) const {
    return {left + by, top + by, right - by, bottom - by};
  }
};

class Extent {
 public:
  void Add(Place place);
  bool IsEmpty() const { return m_isEmpty; }
  double Width() const { return m_isEmpty ? 0 : m_northEast.east - m_southWest.east; }
  double Height() const { return m_isEmpty ? 0 : m_northEast.north - m_southWest.north; }
  /// Not of an empty one.
  Place Centre() const;

 private:
  Place m_southWest, m_northEast;
  bool m_isEmpty = true;
};

/// Of all places but the few far ones: at most a tenth of them (at least one may) that lie ten
/// times as far from the median place as all others. Two places are never far from each other.
Extent FitBulk(std::span<const Place> places);

/// mantissa * 10^exponent.
struct RoundNumber {
  int mantissa = 1;
  int exponent = 0;

  double Value() const;
  int Decimals() const { return exponent < 0 ? -exponent : 0; }
};
/// The least one not below `value`, or the greatest not above it. mantissas: ascending, the last
/// below ten times the first. value: above 0.
RoundNumber RoundUp(double value, std::span<const int> mantissas);
RoundNumber RoundDown(double value, std::span<const int> mantissas);
inline constexpr int kOneTwoFive[] = {1, 2, 5};

/// n of the scale 1 : n at which so many metres have room on so many units of paper: a round one,
/// in feet one of so many feet to the inch. At least 10.
double RoundScale(double metres, int units, bool isInFeet);

/// Where places of the ground lie on the sheet, north up.
class PlanView {
 public:
  /// `centre` comes to the middle of `map`.
  PlanView(const SheetRect& map, Place centre, double scale);

  const SheetRect& GetMap() const { return m_map; }
  SheetPlace Project(Place place) const;
  Place Unproject(SheetPlace at) const;
  double UnitsPerMetre() const { return m_unitsPerMetre; }

 private:
  SheetRect m_map;
  SheetPlace m_middle;
  Place m_centre;
  double m_unitsPerMetre;
};

/// To the nearest unit, half away from zero.
SheetPoint Rounded(SheetPlace at);

/// Cuts a line at the edges; false if none of it is inside.
bool ClipLine(const SheetRect& rect, SheetPlace& from, SheetPlace& to);

}  // namespace zelconvert::tools::plot
