// Puts a survey together, record by record in the order of a file. What a shot leads to is reckoned
// at the end, since a file may state its stations after the shots from them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tools/NameMap.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

/// What a record says of a point besides its position.
struct PointFacts {
  std::wstring_view name;
  std::wstring_view code = {};
  wchar_t classification = L'1';
  std::int64_t line = 0;
};

class SurveyBuilder {
 public:
  /// `survey` stays the caller's.
  explicit SurveyBuilder(Survey& survey) : m_survey(survey) {}

  /// A point that the file states. It completes a point of its name that has no position in the
  /// grid yet.
  void AddGrid(const PointFacts& facts, const GridPosition& position,
               PointSource source = PointSource::Stated);
  /// Likewise for its position on an ellipsoid.
  void AddGeodetic(const PointFacts& facts, const GeodeticPosition& position, PointSource source);
  /// A point of a log that GPS measured: as AddGrid, and its geodetic position if it has none yet.
  void AddGps(const PointFacts& facts, const GridPosition& grid, const GeodeticPosition& geodetic);
  /// A point that is there, but that nothing can be taken for.
  void AddDeleted(const PointFacts& facts, const GridPosition& position);

  /// A point that isn't the survey's, but from which one may have shot.
  void Know(std::wstring_view name, const GridPosition& position);

  /// The instrument on a station, not yet oriented. A station that the record gives a position
  /// keeps it for this setup.
  void BeginSetup(std::wstring_view station, double instrumentHeight, std::int64_t line,
                  const GridPosition& position = {});
  /// A null azimuth leaves the setup oriented as the one before, which it continues if station and
  /// backsight are the same and nothing was shot since.
  void SetBacksight(std::wstring_view backsight, double azimuth, double circle);
  /// Begins a setup without a backsight, unless the latest is on this station.
  void Occupy(std::wstring_view station);
  void SetInstrumentHeight(double height);
  void SetTargetHeight(double height) { m_targetHeight = height; }

  /// An observation from its setup or, if it names none, the latest setup on its station, or from
  /// the latest of all if it names none. Heights that `shot` leaves empty are those that hold here.
  /// Adds its target to the points.
  void AddShot(Shot shot);
  void AddVector(GpsVector vector);

  /// Reduces the shots and gives every point that is only shot its coordinates. Once, at the end.
  /// J. Anderson, E. Mikhail: Surveying, Theory and Practice, 7th ed., chapters 4 and 8: polar
  /// coordinates in plan, trigonometric leveling in height.
  void Reduce();

 private:
  using Index = NameMap<std::size_t>;

  SurveyPoint& Add(const PointFacts& facts, PointSource source);
  SurveyPoint* FindOpen(std::wstring_view name);
  void EnsurePoint(const PointFacts& facts, PointSource source);
  std::size_t FindSetup(std::wstring_view station) const;
  void AddTarget(const Shot& shot);
  void TakeStationsOfSetups();
  void LookUpStation(Setup& setup) const;
  GridPosition KnownPosition(std::wstring_view name) const;
  void ReduceShot(Shot& shot);

  Survey& m_survey;
  Index m_latest;   // of each name the last point that isn't deleted
  Index m_known;    // of each name the first point with a place in plan, while shots are reduced
  Index m_setupOf;  // the latest of each station
  NameMap<GridPosition> m_others;             // known, but not the survey's
  std::size_t m_setupsWithShots = 0;          // up to the last from which there is one
  std::vector<std::size_t> m_deletedTargets;  // of the deleted shots, in their order
  std::size_t m_nextDeleted = 0;
  double m_instrumentHeight = DC_NULL;
  double m_targetHeight = DC_NULL;
};

}  // namespace zelconvert::tools
