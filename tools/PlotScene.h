// What of a survey has a place in plan: points with what they are, lines, roads. Pointers lead into
// the survey, which must outlive the scene.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/PlotGeometry.h"
#include "tools/Survey.h"

namespace zelconvert::tools::plot {

/// In the order in which they take room for their names.
enum class SymbolKind : std::uint8_t {
  Control,   ///< the instrument, a backsight or a base was there
  Gps,       ///< measured by GPS
  Stated,    ///< by coordinates: designed, computed, or of a file that doesn't tell
  Measured,  ///< by a shot
};
inline constexpr std::size_t kSymbolKinds = 4;

struct ScenePoint {
  const SurveyPoint* point = nullptr;
  Place place;
  SymbolKind kind = SymbolKind::Stated;
};

enum class LineKind : std::uint8_t {
  Sight,     ///< from a setup to a shot
  StakeOut,  ///< from a setup to where a design point was set out
  Traverse,  ///< between stations
  Vector,    ///< measured by GPS
};
inline constexpr std::size_t kLineKinds = 4;

struct SceneLine {
  Place from, to;
  LineKind kind = LineKind::Sight;
};

struct SceneRoad {
  const Road* road = nullptr;
  std::vector<Place> places;  ///< one for each point of its alignment, at least two
};

/// Onto the plane about a place: north by the meridian's radius of curvature, east by that of the
/// parallel (equirectangular, on WGS 84). What is k kilometres away is off by some 16 k^2 cm at
/// 45 degrees of latitude.
class LocalProjection {
 public:
  LocalProjection() = default;
  LocalProjection(double latitude, double longitude);

  Place Project(double latitude, double longitude) const;
  double Latitude(double north) const { return m_latitude + north / m_perLatitude; }
  double Longitude(double east) const { return m_longitude + east / m_perLongitude; }
  double MetresPerLatitude() const { return m_perLatitude; }    ///< a radian of it
  double MetresPerLongitude() const { return m_perLongitude; }  ///< likewise

 private:
  double m_latitude = 0, m_longitude = 0;
  double m_perLatitude = 1, m_perLongitude = 1;
};

struct Scene {
  bool isGeographic = false;   ///< more points have a latitude than a place in the grid
  LocalProjection projection;  ///< if so
  std::vector<ScenePoint> points;
  std::vector<SceneLine> lines;
  std::vector<SceneRoad> roads;
  std::size_t deletedPoints = 0;
  std::size_t unplacedPoints = 0;  ///< without coordinates that can be drawn
  std::size_t unplacedLines = 0;   ///< one of whose ends has none
  std::size_t unplacedRoads = 0;   ///< with nothing but a start
};

Scene MakeScene(const Survey& survey);

/// Of the bulk of all that is there.
Extent FitScene(const Scene& scene);

}  // namespace zelconvert::tools::plot
