#include "tools/PlotGeometry.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace zelconvert::tools::plot {
namespace {

constexpr double kFarFactor = 10;
constexpr std::size_t kFarShare = 10;  // one in so many may be far

double Power(int exponent) {
  double power = 1;
  for (int i = 0; i < std::abs(exponent); ++i) power *= 10;
  return power;
}

// A value that is as good as a round number is one.
constexpr double kSlack = 1e-9;

template <class Member>
double Median(std::span<const Place> places, Member member) {
  std::vector<double> values(places.size());
  std::transform(places.begin(), places.end(), values.begin(),
                 [member](const Place& place) { return place.*member; });
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double DistanceFrom(Place centre, Place place) {
  return std::max(std::abs(place.north - centre.north), std::abs(place.east - centre.east));
}

/// How far from the centre the bulk reaches.
double ReachOfBulk(std::span<const Place> places, Place centre) {
  std::vector<double> distances(places.size());
  std::transform(places.begin(), places.end(), distances.begin(),
                 [centre](const Place& place) { return DistanceFrom(centre, place); });
  const std::size_t far = std::max<std::size_t>(1, places.size() / kFarShare);
  const auto last = distances.end() - static_cast<std::ptrdiff_t>(far) - 1;
  std::nth_element(distances.begin(), last, distances.end());
  return *last;
}

}  // namespace

void Extent::Add(Place place) {
  if (m_isEmpty) m_southWest = m_northEast = place;
  m_isEmpty = false;
  m_southWest.north = std::min(m_southWest.north, place.north);
  m_southWest.east = std::min(m_southWest.east, place.east);
  m_northEast.north = std::max(m_northEast.north, place.north);
  m_northEast.east = std::max(m_northEast.east, place.east);
}

Place Extent::Centre() const {
  return {(m_southWest.north + m_northEast.north) / 2, (m_southWest.east + m_northEast.east) / 2};
}

Extent FitBulk(std::span<const Place> places) {
  Extent extent;
  Place centre;
  double reach = 0;  // all of them
  constexpr std::size_t kFewest = 3;
  if (places.size() >= kFewest) {
    centre = {Median(places, &Place::north), Median(places, &Place::east)};
    reach = ReachOfBulk(places, centre);
  }
  for (const Place& place : places) {
    if (reach == 0 || DistanceFrom(centre, place) <= kFarFactor * reach) extent.Add(place);
  }
  return extent;
}

double RoundNumber::Value() const {
  return exponent < 0 ? mantissa / Power(exponent) : mantissa * Power(exponent);
}

RoundNumber RoundDown(double value, std::span<const int> mantissas) {
  RoundNumber number{mantissas.front(), 0};
  while (number.Value() > value * (1 + kSlack)) --number.exponent;
  while (RoundNumber{mantissas.front(), number.exponent + 1}.Value() <= value * (1 + kSlack)) {
    ++number.exponent;
  }
  for (const int mantissa : mantissas) {
    const RoundNumber next{mantissa, number.exponent};
    if (next.Value() <= value * (1 + kSlack)) number = next;
  }
  return number;
}

RoundNumber RoundUp(double value, std::span<const int> mantissas) {
  const RoundNumber below = RoundDown(value, mantissas);
  if (below.Value() >= value * (1 - kSlack)) return below;
  const auto next = std::upper_bound(mantissas.begin(), mantissas.end(), below.mantissa);
  return next == mantissas.end() ? RoundNumber{mantissas.front(), below.exponent + 1}
                                 : RoundNumber{*next, below.exponent};
}

// As on the edges of a scale rule: metric ones, and feet to the inch, which are twelve times as
// many.
double RoundScale(double metres, int units, bool isInFeet) {
  static constexpr int kMetric[] = {100, 125, 150, 200, 250, 300, 400, 500, 600, 750};
  static constexpr int kFeetToTheInch[] = {1, 2, 3, 4, 5, 6, 8};
  constexpr double kMillimetresPerMetre = 1000, kLeast = 10, kInchesPerFoot = 12;
  const double needed =
      std::max(metres * kMillimetresPerMetre * kUnitsPerMillimetre / units, kLeast);
  return isInFeet ? kInchesPerFoot * RoundUp(needed / kInchesPerFoot, kFeetToTheInch).Value()
                  : RoundUp(needed, kMetric).Value();
}

PlanView::PlanView(const SheetRect& map, Place centre, double scale)
    : m_map(map),
      m_middle{(map.left + map.right) / 2.0, (map.top + map.bottom) / 2.0},
      m_centre(centre),
      m_unitsPerMetre(1000.0 * kUnitsPerMillimetre / scale) {}

SheetPlace PlanView::Project(Place place) const {
  return {m_middle.x + (place.east - m_centre.east) * m_unitsPerMetre,
          m_middle.y - (place.north - m_centre.north) * m_unitsPerMetre};
}

Place PlanView::Unproject(SheetPlace at) const {
  return {m_centre.north - (at.y - m_middle.y) / m_unitsPerMetre,
          m_centre.east + (at.x - m_middle.x) / m_unitsPerMetre};
}

SheetPoint Rounded(SheetPlace at) {
  return {static_cast<int>(std::lround(at.x)), static_cast<int>(std::lround(at.y))};
}

// Y.-D. Liang, B. A. Barsky: A New Concept and Method for Line Clipping, ACM Transactions on
// Graphics 3 (1984), pages 1 to 22.
bool ClipLine(const SheetRect& rect, SheetPlace& from, SheetPlace& to) {
  const SheetPlace start = from;
  const double dx = to.x - from.x, dy = to.y - from.y;
  const double directions[] = {-dx, dx, -dy, dy};
  const double distances[] = {start.x - rect.left, rect.right - start.x, start.y - rect.top,
                              rect.bottom - start.y};
  double enters = 0, leaves = 1;
  for (std::size_t edge = 0; edge < std::size(directions); ++edge) {
    if (directions[edge] == 0) {
      if (distances[edge] < 0) return false;
      continue;
    }
    const double at = distances[edge] / directions[edge];
    (directions[edge] < 0 ? enters = std::max(enters, at) : leaves = std::min(leaves, at));
  }
  if (enters > leaves) return false;
  if (leaves < 1) to = {start.x + leaves * dx, start.y + leaves * dy};
  if (enters > 0) from = {start.x + enters * dx, start.y + enters * dy};
  return true;
}

}  // namespace zelconvert::tools::plot
