#include "tools/PlotScene.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "io/Units.h"

namespace zelconvert::tools::plot {
namespace {

// Nothing on earth is so far from an origin.
constexpr double kFarthest = 1e8;

bool IsDrawable(double value, double limit) {
  return !IsNull(value) && std::abs(value) <= limit;  // and neither is infinity
}

std::optional<Place> PlaceOf(const GridPosition& grid) {
  if (!IsDrawable(grid.north, kFarthest) || !IsDrawable(grid.east, kFarthest)) return std::nullopt;
  return Place{grid.north, grid.east};
}

bool IsDrawable(const GeodeticPosition& position) {
  return IsDrawable(position.latitude, kPi / 2) && IsDrawable(position.longitude, 2 * kPi);
}

bool IsMostlyGeographic(const Survey& survey) {
  std::size_t inGrid = 0, onEllipsoid = 0;
  for (const SurveyPoint& point : survey.points) {
    if (point.isDeleted) continue;
    inGrid += PlaceOf(point.grid).has_value() ? 1 : 0;
    onEllipsoid += IsDrawable(point.geodetic) ? 1 : 0;
  }
  return onEllipsoid > inGrid;
}

double MedianOf(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// About the median of all positions. Longitudes are counted from one of them, lest the 180th
/// meridian part neighbours.
LocalProjection ProjectionFor(const Survey& survey) {
  std::vector<double> latitudes, longitudes;
  double first = 0;
  for (const SurveyPoint& point : survey.points) {
    if (point.isDeleted || !IsDrawable(point.geodetic)) continue;
    if (longitudes.empty()) first = point.geodetic.longitude;
    latitudes.push_back(point.geodetic.latitude);
    longitudes.push_back(std::remainder(point.geodetic.longitude - first, 2 * kPi));
  }
  return {MedianOf(latitudes), first + MedianOf(longitudes)};
}

SymbolKind KindOf(PointSource source) {
  switch (source) {
    case PointSource::Gps:
      return SymbolKind::Gps;
    case PointSource::Shot:
      return SymbolKind::Measured;
    case PointSource::Stated:
    case PointSource::Occupied:
      break;
  }
  return SymbolKind::Stated;
}

class SceneMaker {
 public:
  SceneMaker(const Survey& survey, Scene& scene) : m_survey(survey), m_scene(scene) {}

  void Make() {
    m_scene.isGeographic = IsMostlyGeographic(m_survey);
    if (m_scene.isGeographic) m_scene.projection = ProjectionFor(m_survey);
    FindStations();
    for (const SurveyPoint& point : m_survey.points) AddPoint(point);
    for (const Shot& shot : m_survey.shots) AddSight(shot);
    for (const GpsVector& vector : m_survey.vectors) AddVector(vector);
    for (const Road& road : m_survey.roads) AddRoad(road);
  }

 private:
  void FindStations() {
    for (const Setup& setup : m_survey.setups) {
      m_stations.insert(setup.station);
      m_control.insert(setup.backsight);
    }
    for (const GpsVector& vector : m_survey.vectors) m_control.insert(vector.base);
    m_control.insert(m_stations.begin(), m_stations.end());
    m_control.erase(L"");
  }

  std::optional<Place> PlaceOf(const SurveyPoint& point) const {
    if (!m_scene.isGeographic) return plot::PlaceOf(point.grid);
    if (!IsDrawable(point.geodetic)) return std::nullopt;
    return m_scene.projection.Project(point.geodetic.latitude, point.geodetic.longitude);
  }

  void AddPoint(const SurveyPoint& point) {
    if (point.isDeleted) {
      ++m_scene.deletedPoints;
      return;
    }
    const std::optional<Place> place = PlaceOf(point);
    if (!place) {
      ++m_scene.unplacedPoints;
      return;
    }
    m_places.try_emplace(point.name, *place);
    const SymbolKind kind =
        m_control.contains(point.name) ? SymbolKind::Control : KindOf(point.source);
    m_scene.points.push_back({&point, *place, kind});
  }

  std::optional<Place> PlaceOf(const GridPosition& position, std::wstring_view name) const {
    const auto place = m_scene.isGeographic ? std::nullopt : plot::PlaceOf(position);
    if (place) return place;
    const auto found = m_places.find(name);
    return found == m_places.end() ? std::nullopt : std::optional(found->second);
  }

  void AddLine(const std::optional<Place>& from, const std::optional<Place>& to, LineKind kind) {
    if (from && to) {
      m_scene.lines.push_back({*from, *to, kind});
    } else {
      ++m_scene.unplacedLines;
    }
  }

  void AddSight(const Shot& shot) {
    if (shot.isDeleted) return;
    const bool hasSetup = shot.setup < m_survey.setups.size();
    const GridPosition unknown;
    const GridPosition& station = hasSetup ? m_survey.setups[shot.setup].position : unknown;
    const LineKind kind = shot.kind == ShotKind::StakeOut    ? LineKind::StakeOut
                          : m_stations.contains(shot.target) ? LineKind::Traverse
                                                             : LineKind::Sight;
    AddLine(PlaceOf(station, shot.station), PlaceOf(shot.position, shot.target), kind);
  }

  void AddVector(const GpsVector& vector) {
    if (vector.isDeleted) return;
    AddLine(PlaceOf({}, vector.base), PlaceOf({}, vector.rover), LineKind::Vector);
  }

  void AddRoad(const Road& road) {
    SceneRoad added{&road, {}};
    for (const RoadPoint& point : road.alignment) {
      if (const auto place = plot::PlaceOf({point.north, point.east})) {
        added.places.push_back(*place);
      }
    }
    const bool isWhole = added.places.size() > 1 && added.places.size() == road.alignment.size();
    if (isWhole && !m_scene.isGeographic) {
      m_scene.roads.push_back(std::move(added));
    } else {
      ++m_scene.unplacedRoads;
    }
  }

  const Survey& m_survey;
  Scene& m_scene;
  std::unordered_set<std::wstring_view> m_stations, m_control;
  std::unordered_map<std::wstring_view, Place> m_places;  // the first point of each name
};

}  // namespace

// The radii of curvature are those of geodesy's textbooks, as in W. Torge, J. Mueller: Geodesy, 4th
// ed., 4.1.3; the ellipsoid is that of NGA.STND.0036 (WGS 84).
LocalProjection::LocalProjection(double latitude, double longitude)
    : m_latitude(latitude), m_longitude(longitude) {
  constexpr double kSemiMajorAxis = 6378137.0, kFlattening = 1 / 298.257223563;
  constexpr double kEccentricitySquared = kFlattening * (2 - kFlattening);
  const double sine = std::sin(latitude);
  const double w = std::sqrt(1 - kEccentricitySquared * sine * sine);
  m_perLatitude = kSemiMajorAxis * (1 - kEccentricitySquared) / (w * w * w);
  m_perLongitude = kSemiMajorAxis / w * std::cos(latitude);
}

Place LocalProjection::Project(double latitude, double longitude) const {
  return {(latitude - m_latitude) * m_perLatitude,
          std::remainder(longitude - m_longitude, 2 * kPi) * m_perLongitude};
}

Scene MakeScene(const Survey& survey) {
  Scene scene;
  SceneMaker(survey, scene).Make();
  return scene;
}

Extent FitScene(const Scene& scene) {
  std::vector<Place> places;
  places.reserve(scene.points.size());
  for (const ScenePoint& point : scene.points) places.push_back(point.place);
  for (const SceneLine& line : scene.lines) {
    if (line.kind == LineKind::StakeOut) places.push_back(line.to);
  }
  for (const SceneRoad& road : scene.roads) {
    places.insert(places.end(), road.places.begin(), road.places.end());
  }
  return FitBulk(places);
}

}  // namespace zelconvert::tools::plot
