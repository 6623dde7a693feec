#include "tools/SurveyBuilder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "io/Strings.h"
#include "raw/ReduceShot.h"

namespace zelconvert::tools {
namespace {

double WithinCircle(double angle) {
  if (IsNull(angle) || !std::isfinite(angle)) return DC_NULL;
  const double reduced = std::fmod(angle, 2 * kPi);
  return reduced < 0 ? reduced + 2 * kPi : reduced;
}

}  // namespace

// ---- Points

SurveyPoint& SurveyBuilder::Add(const PointFacts& facts, PointSource source) {
  SurveyPoint point;
  point.name = Trim(facts.name);
  point.code = Trim(facts.code);
  point.source = source;
  point.classification = facts.classification;
  point.isDeleted = IsDeletedClass(facts.classification);
  point.line = facts.line;
  if (!point.isDeleted) m_latest[point.name] = m_survey.points.size();
  m_survey.points.push_back(std::move(point));
  return m_survey.points.back();
}

SurveyPoint* SurveyBuilder::FindOpen(std::wstring_view name) {
  const std::size_t* found = m_latest.Find(Trim(name));
  return found == nullptr ? nullptr : &m_survey.points[*found];
}

void SurveyBuilder::EnsurePoint(const PointFacts& facts, PointSource source) {
  if (!Trim(facts.name).empty() && FindOpen(facts.name) == nullptr) Add(facts, source);
}

void SurveyBuilder::AddGrid(const PointFacts& facts, const GridPosition& position,
                            PointSource source) {
  SurveyPoint* point = IsDeletedClass(facts.classification) ? nullptr : FindOpen(facts.name);
  if (point != nullptr && !point->grid.HasPlan()) {
    if (!Trim(facts.code).empty()) point->code = Trim(facts.code);
    if (point->line == 0 || point->source == PointSource::Shot) point->line = facts.line;
    point->classification = facts.classification;
    point->source = source;
  } else {
    point = &Add(facts, source);
  }
  point->grid = position;
}

void SurveyBuilder::AddGeodetic(const PointFacts& facts, const GeodeticPosition& position,
                                PointSource source) {
  SurveyPoint* point = IsDeletedClass(facts.classification) ? nullptr : FindOpen(facts.name);
  if (point == nullptr || point->geodetic.HasPlan()) point = &Add(facts, source);
  point->geodetic = position;
}

void SurveyBuilder::AddGps(const PointFacts& facts, const GridPosition& grid,
                           const GeodeticPosition& geodetic) {
  if (grid.HasPlan()) {
    AddGrid(facts, grid, PointSource::Gps);
  } else {
    EnsurePoint(facts, PointSource::Gps);
  }
  SurveyPoint* point = FindOpen(facts.name);
  if (point != nullptr && geodetic.HasPlan()) point->geodetic = geodetic;
}

void SurveyBuilder::AddDeleted(const PointFacts& facts, const GridPosition& position) {
  SurveyPoint point;
  point.name = Trim(facts.name);
  point.code = Trim(facts.code);
  point.grid = position;
  point.classification = facts.classification;
  point.isDeleted = true;
  point.line = facts.line;
  m_survey.points.push_back(std::move(point));
}

// ---- Setups and shots

void SurveyBuilder::BeginSetup(std::wstring_view station, double instrumentHeight,
                               std::int64_t line, const GridPosition& position) {
  Setup setup;
  setup.station = Trim(station);
  setup.position = position;
  setup.instrumentHeight = m_instrumentHeight = instrumentHeight;
  setup.line = line;
  m_setupOf[setup.station] = m_survey.setups.size();
  if (position.HasPlan() && FindOpen(station) == nullptr) {
    AddGrid({station, {}, L'1', line}, position);
  }
  m_survey.setups.push_back(std::move(setup));
}

void SurveyBuilder::Occupy(std::wstring_view station) {
  if (!m_survey.setups.empty() && m_survey.setups.back().station == Trim(station)) return;
  BeginSetup(station, m_instrumentHeight, 0);
}

void SurveyBuilder::SetInstrumentHeight(double height) {
  m_instrumentHeight = height;
  if (!m_survey.setups.empty()) m_survey.setups.back().instrumentHeight = height;
}

void SurveyBuilder::SetBacksight(std::wstring_view backsight, double azimuth, double circle) {
  std::vector<Setup>& setups = m_survey.setups;
  if (setups.empty()) return;
  Setup& setup = setups.back();
  setup.backsight = Trim(backsight);
  setup.circle = circle;
  setup.backsightAzimuth = azimuth;
  if (!IsNull(azimuth) || setups.size() < 2) return;
  Setup& before = setups[setups.size() - 2];
  setup.backsightAzimuth = before.backsightAzimuth;
  const bool isNew = m_setupsWithShots < setups.size();
  if (before.station != setup.station || before.backsight != setup.backsight || !isNew) return;
  before.instrumentHeight = setup.instrumentHeight;
  before.circle = circle;
  setups.pop_back();
  m_setupOf[before.station] = setups.size() - 1;
}

void SurveyBuilder::AddShot(Shot shot) {
  shot.target = Trim(shot.target);
  shot.code = Trim(shot.code);
  shot.station = Trim(shot.station);
  if (shot.setup == kNone) shot.setup = FindSetup(shot.station);
  if (shot.setup != kNone) {
    m_setupsWithShots = std::max(m_setupsWithShots, shot.setup + 1);
    const Setup& setup = m_survey.setups[shot.setup];
    shot.station = setup.station;
    if (IsNull(shot.azimuth) && shot.kind != ShotKind::Backsight) {
      shot.azimuth = Sum(setup.backsightAzimuth, Difference(shot.circle, setup.circle));
    }
  }
  if (IsNull(shot.instrumentHeight)) shot.instrumentHeight = m_instrumentHeight;
  if (IsNull(shot.targetHeight)) shot.targetHeight = m_targetHeight;
  if (shot.kind != ShotKind::Backsight) AddTarget(shot);
  m_survey.shots.push_back(std::move(shot));
}

/// The latest setup on the station; of no station the latest of all.
std::size_t SurveyBuilder::FindSetup(std::wstring_view station) const {
  if (station.empty()) return m_survey.setups.empty() ? kNone : m_survey.setups.size() - 1;
  const std::size_t* found = m_setupOf.Find(station);
  return found == nullptr ? kNone : *found;
}

void SurveyBuilder::AddTarget(const Shot& shot) {
  const PointFacts facts{shot.target, shot.code, L'1', shot.line};
  if (!shot.isDeleted) return EnsurePoint(facts, PointSource::Shot);
  m_deletedTargets.push_back(m_survey.points.size());
  AddDeleted(facts, {});
  m_survey.points.back().source = PointSource::Shot;
}

void SurveyBuilder::AddVector(GpsVector vector) {
  vector.base = Trim(vector.base);
  vector.rover = Trim(vector.rover);
  vector.code = Trim(vector.code);
  if (!vector.isDeleted) {
    EnsurePoint({vector.rover, vector.code, L'1', vector.line}, PointSource::Gps);
  }
  m_survey.vectors.push_back(std::move(vector));
}

void SurveyBuilder::Know(std::wstring_view name, const GridPosition& position) {
  m_others.Insert(name, position);
}

// ---- Reduction

void SurveyBuilder::Reduce() {
  const std::vector<SurveyPoint>& points = m_survey.points;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (points[i].grid.HasPlan() && !points[i].isDeleted) m_known.Insert(points[i].name, i);
  }
  TakeStationsOfSetups();
  std::size_t next = 0;  // the first setup whose station hasn't been looked up
  for (Shot& shot : m_survey.shots) {
    while (shot.setup != kNone && next <= shot.setup) LookUpStation(m_survey.setups[next++]);
    ReduceShot(shot);
  }
  while (next < m_survey.setups.size()) LookUpStation(m_survey.setups[next++]);
}

void SurveyBuilder::LookUpStation(Setup& setup) const {
  if (!setup.position.HasPlan()) setup.position = KnownPosition(setup.station);
}

GridPosition SurveyBuilder::KnownPosition(std::wstring_view name) const {
  if (const std::size_t* known = m_known.Find(name)) return m_survey.points[*known].grid;
  const GridPosition* other = m_others.Find(name);
  return other == nullptr ? GridPosition() : *other;
}

// A station that a setup gives coordinates has these, also where a shot led to it before.
void SurveyBuilder::TakeStationsOfSetups() {
  for (const Setup& setup : m_survey.setups) {
    if (!setup.position.HasPlan() || m_known.Find(setup.station) != nullptr) continue;
    AddGrid({setup.station, {}, L'1', setup.line}, setup.position, PointSource::Occupied);
    m_known.Insert(setup.station, m_latest[setup.station]);
  }
}

void SurveyBuilder::ReduceShot(Shot& shot) {
  const GridPosition station =
      shot.setup != kNone ? m_survey.setups[shot.setup].position : KnownPosition(shot.station);
  const ReducedShot reduced = zelconvert::ReduceShot(
      station.north, station.east, {shot.azimuth, shot.zenith, shot.slopeDistance, shot.scale});
  // In face two the circle reads the way back, and the sine of the zenith angle is negative.
  if (!IsNull(shot.zenith) && std::sin(shot.zenith) < 0) shot.azimuth = Sum(shot.azimuth, kPi);
  shot.azimuth = WithinCircle(shot.azimuth);
  shot.position.north = reduced.north;
  shot.position.east = reduced.east;
  shot.position.elevation = Difference(
      Sum(Sum(station.elevation, shot.instrumentHeight), reduced.rise), shot.targetHeight);
  if (shot.kind == ShotKind::Backsight) return;
  if (shot.isDeleted) {
    m_survey.points[m_deletedTargets[m_nextDeleted++]].grid = shot.position;
    return;
  }
  if (!shot.position.HasPlan()) return;
  const std::size_t* latest = m_latest.Find(shot.target);
  if (latest == nullptr) return;
  SurveyPoint& point = m_survey.points[*latest];
  if (point.source != PointSource::Shot || point.grid.HasPlan()) return;
  point.grid = shot.position;
  m_known.Insert(point.name, *latest);
}

}  // namespace zelconvert::tools
