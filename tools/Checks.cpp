#include "tools/Checks.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "tools/NameMap.h"
#include "tools/Wgs84.h"

namespace zelconvert::tools {
namespace {

bool IsMeasurement(const Shot& shot) {
  return !shot.isDeleted && shot.position.HasPlan() &&
         (shot.kind == ShotKind::Measured || shot.kind == ShotKind::Round);
}

double PlanDistance(const GridPosition& a, const GridPosition& b) {
  return std::hypot(a.north - b.north, a.east - b.east);
}

double WithinHalfCircle(double angle) {
  return std::remainder(angle, 2 * kPi);
}

/// A point by its name: the first that counts and has a place.
class PointIndex {
 public:
  explicit PointIndex(const Survey& survey) : m_points(survey.points) {
    for (std::size_t i = 0; i < m_points.size(); ++i) {
      if (!m_points[i].isDeleted && m_points[i].grid.HasPlan()) {
        m_index.Insert(m_points[i].name, i);
      }
    }
  }
  /// Null if there is none.
  const SurveyPoint* Find(const std::wstring& name) const {
    const std::size_t* found = m_index.Find(name);
    return found == nullptr ? nullptr : &m_points[*found];
  }
  /// Likewise; only one whose coordinates don't come from a shot.
  const SurveyPoint* FindStated(const std::wstring& name) const {
    const SurveyPoint* point = Find(name);
    const bool isStated = point != nullptr && (point->source == PointSource::Stated ||
                                               point->source == PointSource::Gps);
    return isStated ? point : nullptr;
  }

 private:
  const std::vector<SurveyPoint>& m_points;
  NameMap<std::size_t> m_index;
};

/// The positions of one point.
struct Spread {
  double north[2], east[2], elevation[2];  // lowest and highest
  std::size_t positions = 0, elevations = 0, measured = 0;

  static void Widen(double (&range)[2], double value, bool isFirst) {
    range[0] = isFirst ? value : std::min(range[0], value);
    range[1] = isFirst ? value : std::max(range[1], value);
  }
  void Add(const GridPosition& position, bool isMeasured) {
    Widen(north, position.north, positions == 0);
    Widen(east, position.east, positions == 0);
    ++positions;
    if (isMeasured) ++measured;
    if (IsNull(position.elevation)) return;
    Widen(elevation, position.elevation, elevations == 0);
    ++elevations;
  }
};

}  // namespace

std::vector<Repeat> FindRepeats(const Survey& survey) {
  NameMap<std::size_t> index;
  std::vector<std::pair<const std::wstring*, Spread>> spreads;
  const auto add = [&](const std::wstring& name, const GridPosition& position, bool isMeasured) {
    const auto [number, isNew] = index.Insert(name, spreads.size());
    if (isNew) spreads.push_back({&name, {}});
    spreads[number].second.Add(position, isMeasured);
  };
  for (const SurveyPoint& point : survey.points) {
    if (point.isDeleted || !point.grid.HasPlan() || point.source == PointSource::Shot) continue;
    add(point.name, point.grid, point.source == PointSource::Gps);
  }
  for (const Shot& shot : survey.shots) {
    if (IsMeasurement(shot)) add(shot.target, shot.position, true);
  }
  std::vector<Repeat> repeats;
  for (const auto& [name, spread] : spreads) {
    if (spread.positions < 2 || spread.measured == 0) continue;
    const double height =
        spread.elevations < 2 ? DC_NULL : spread.elevation[1] - spread.elevation[0];
    repeats.push_back(
        {*name, spread.positions,
         std::hypot(spread.north[1] - spread.north[0], spread.east[1] - spread.east[0]), height});
  }
  return repeats;
}

std::vector<Traverse> FindTraverses(const Survey& survey) {
  /// How the station of a setup was come to.
  struct Way {
    const std::wstring* start = nullptr;  // null: not from a known station
    const std::wstring* before = nullptr;
    std::size_t legs = 0;
    double length = 0;
  };
  const PointIndex points(survey);
  NameMap<Way> wayTo;     // over the last shot to each point
  std::vector<Way> ways;  // of the setups
  std::map<std::pair<std::wstring, std::wstring>, std::size_t> places;
  std::vector<Traverse> traverses;
  for (const Shot& shot : survey.shots) {
    if (!IsMeasurement(shot) || shot.setup == kNone) continue;
    for (std::size_t i = ways.size(); i <= shot.setup; ++i) {
      const Setup& setup = survey.setups[i];
      const Way* way = wayTo.Find(setup.station);
      const bool isKnown = points.FindStated(setup.station) != nullptr;
      ways.push_back(isKnown ? Way{&setup.station, nullptr, 0, 0} : way != nullptr ? *way : Way());
    }
    const Setup& setup = survey.setups[shot.setup];
    const Way& way = ways[shot.setup];
    if (way.start == nullptr || (way.before != nullptr && *way.before == shot.target)) continue;
    const double length = way.length + PlanDistance(setup.position, shot.position);
    wayTo[shot.target] = {way.start, &setup.station, way.legs + 1, length};
    const SurveyPoint* known = points.FindStated(shot.target);
    if (known == nullptr || way.legs == 0) continue;
    Traverse traverse{*way.start, shot.target, way.legs + 1, length, {}, 0, shot.line};
    traverse.misclosure = {shot.position.north - known->grid.north,
                           shot.position.east - known->grid.east,
                           Difference(shot.position.elevation, known->grid.elevation)};
    traverse.plan = PlanDistance(shot.position, known->grid);
    const auto [place, isNew] = places.try_emplace({traverse.from, traverse.to}, traverses.size());
    if (isNew) {
      traverses.push_back(std::move(traverse));
    } else {
      traverses[place->second] = std::move(traverse);
    }
  }
  return traverses;
}

std::vector<BacksightCheck> CheckBacksights(const Survey& survey) {
  const PointIndex points(survey);
  std::vector<const Shot*> shotTo(survey.setups.size());  // the last one to the backsight
  for (const Shot& shot : survey.shots) {
    if (IsMeasurement(shot) && shot.setup != kNone &&
        shot.target == survey.setups[shot.setup].backsight) {
      shotTo[shot.setup] = &shot;
    }
  }
  std::vector<BacksightCheck> checks;
  for (std::size_t i = 0; i < survey.setups.size(); ++i) {
    const Setup& setup = survey.setups[i];
    const SurveyPoint* backsight = setup.backsight.empty() ? nullptr : points.Find(setup.backsight);
    if (backsight == nullptr || !setup.position.HasPlan()) continue;
    const double distance = PlanDistance(setup.position, backsight->grid);
    if (!(distance > 0)) continue;
    BacksightCheck check{setup.station, setup.backsight, DC_NULL, DC_NULL, DC_NULL, setup.line};
    const double azimuth = std::atan2(backsight->grid.east - setup.position.east,
                                      backsight->grid.north - setup.position.north);
    if (!IsNull(setup.backsightAzimuth)) {
      check.azimuth = WithinHalfCircle(setup.backsightAzimuth - azimuth);
    }
    if (shotTo[i] != nullptr) {
      const GridPosition& measured = shotTo[i]->position;
      check.distance = PlanDistance(setup.position, measured) - distance;
      check.height = Difference(measured.elevation, backsight->grid.elevation);
    }
    checks.push_back(std::move(check));
  }
  return checks;
}

// ---- What looks wrong

namespace {

double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void FindFarPoints(const Survey& survey, std::vector<Warning>& warnings) {
  constexpr std::size_t kFewest = 5;
  constexpr double kTimes = 20;
  std::vector<const SurveyPoint*> points;
  std::vector<double> norths, easts, distances;
  for (const SurveyPoint& point : survey.points) {
    if (point.isDeleted || !point.grid.HasPlan()) continue;
    points.push_back(&point);
    norths.push_back(point.grid.north);
    easts.push_back(point.grid.east);
  }
  if (points.size() < kFewest) return;
  const GridPosition middle{Median(norths), Median(easts), DC_NULL};
  for (const SurveyPoint* point : points) distances.push_back(PlanDistance(point->grid, middle));
  const double limit = kTimes * Median(distances);
  if (!(limit > 0)) return;
  for (const SurveyPoint* point : points) {
    if (PlanDistance(point->grid, middle) > limit) {
      warnings.push_back({WarningKind::FarPoint, point->name, 1, point->line});
    }
  }
}

/// Over the earth, near enough to tell a wrong zone from a right one; in metres.
double DistanceOnEarth(const GeodeticPosition& a, const LongitudeLatitude& b) {
  constexpr double kMeanRadius = 6371008.8;  // of the GRS 80 ellipsoid
  const double latitude = b.latitude * kPi / 180, longitude = b.longitude * kPi / 180;
  const double between = (latitude + a.latitude) / 2;
  const double eastward = std::remainder(longitude - a.longitude, 2 * kPi) * std::cos(between);
  return kMeanRadius * std::hypot(latitude - a.latitude, eastward);
}

void FindGridApart(const Survey& survey, std::vector<Warning>& warnings) {
  constexpr double kLimit = 100;
  std::unique_ptr<Wgs84> way;
  Warning apart{WarningKind::GridApart, {}, 0, 0, kLimit};
  for (const SurveyPoint& point : survey.points) {
    const bool hasBoth = point.grid.HasPlan() && point.geodetic.HasPlan();
    if (point.isDeleted || !hasBoth || !point.geodetic.isOnGpsDatum) continue;
    std::string why;
    if (way == nullptr) way = Wgs84::Make(survey, why);
    if (way == nullptr) return;
    LongitudeLatitude ofGrid;
    if (!way->Transform(point.grid, ofGrid)) continue;
    const double distance = DistanceOnEarth(point.geodetic, ofGrid);
    if (!(distance > kLimit)) continue;
    ++apart.count;
    if (distance > apart.distance) {
      apart.name = point.name;
      apart.line = point.line;
      apart.distance = distance;
    }
  }
  if (apart.count > 0) warnings.push_back(std::move(apart));
}

void FindDuplicates(const Survey& survey, std::vector<Warning>& warnings) {
  NameMap<std::size_t> counts;
  for (const SurveyPoint& point : survey.points) {
    if (point.isDeleted || point.source != PointSource::Stated || !point.grid.HasPlan()) continue;
    if (++counts[point.name] == 2) {
      warnings.push_back({WarningKind::DuplicateName, point.name, 2, point.line});
    }
  }
  for (Warning& warning : warnings) {
    if (warning.kind == WarningKind::DuplicateName) warning.count = counts[warning.name];
  }
}

void FindUnknownStations(const Survey& survey, std::vector<Warning>& warnings) {
  NameMap<std::size_t> places;
  for (const Shot& shot : survey.shots) {
    const bool isKnown = shot.setup != kNone && survey.setups[shot.setup].position.HasPlan();
    if (shot.isDeleted || shot.kind == ShotKind::Backsight || isKnown) continue;
    if (shot.position.HasPlan()) continue;  // from a point on which no setup stands
    const auto [place, isNew] = places.Insert(shot.station, warnings.size());
    if (isNew) {
      warnings.push_back({WarningKind::UnknownStation, shot.station, 1, shot.line});
    } else {
      ++warnings[place].count;
    }
  }
}

}  // namespace

std::vector<Warning> FindWarnings(const Survey& survey) {
  std::vector<Warning> warnings;
  FindFarPoints(survey, warnings);
  FindGridApart(survey, warnings);
  FindDuplicates(survey, warnings);
  FindUnknownStations(survey, warnings);
  for (const std::int64_t line : survey.unsignedLines) {
    warnings.push_back({WarningKind::UnsignedGps, {}, 1, line});
  }
  for (const UnitChange& change : survey.unitChanges) {
    warnings.push_back({WarningKind::UnitChange, {}, 1, change.line});
  }
  return warnings;
}

}  // namespace zelconvert::tools
