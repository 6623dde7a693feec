#include "jxl/JxlInstrument.h"

#include <utility>

#include "io/Strings.h"
#include "io/Units.h"
#include "raw/Angles.h"
#include "raw/ReduceShot.h"

namespace zelconvert {
namespace {

constexpr AngularUnit kDegrees = AngularUnit::DecimalDegrees;

double Radians(double degrees) {
  return RadiansOf(degrees, kDegrees);
}

/// In [0, 360), and never -0. What noise has put right below a full circle is 0 as well.
double WithinCircle(double degrees) {
  return NormalizeZenith(degrees, kDegrees) + 0.0;
}

}  // namespace

std::wstring_view ComparedName(std::wstring_view name) {
  return Trim(Left(name, kShotNameLength));
}

double JxlInstrument::Orientation::Azimuth(double circle) const {
  return Computed(backAzimuth + circle - backCircle, backAzimuth, backCircle, circle);
}

std::uint32_t JxlInstrument::Orient(CJxlFile& file, Orientation orientation, const Heights& heights,
                                    double reading, const JxlPosition& grid) {
  m_orientation = std::move(orientation);
  const auto move = m_moves.find(ComparedName(m_orientation.station));
  if (move != m_moves.end()) m_moves.erase(move);
  return AddSetup(file, heights, reading, grid);
}

void JxlInstrument::PlanMove(std::wstring_view from, std::wstring_view to,
                             const JxlReadings& readings) {
  const double azimuth = m_orientation.Azimuth(readings.horizontal);
  // In face two the telescope points away from where the circle reads: back, as seen from there.
  const double back = IsFaceTwo(readings.vertical, kDegrees) ? azimuth : azimuth + 180;
  m_moves.insert_or_assign(std::wstring(ComparedName(to)),
                           Orientation{std::wstring(to), std::wstring(from), WithinCircle(back),
                                       m_orientation.backCircle});
}

bool JxlInstrument::PrepareShot(CJxlFile& file, std::wstring_view station) {
  const auto move = m_moves.find(ComparedName(station));
  const bool moves = move != m_moves.end();
  if (moves) {
    m_orientation = std::move(move->second);
    m_moves.erase(move);
  }
  const bool hasSetup = m_records.station != 0;
  if (moves || (hasSetup && m_heights.instrument != m_recorded.instrument)) {
    AddSetup(file, m_heights, m_orientation.backCircle, {});
  } else if (hasSetup && m_heights.rod != m_recorded.rod) {
    AddTarget(file, m_heights.rod);
  }
  return moves;
}

std::uint32_t JxlInstrument::AddSetup(CJxlFile& file, const Heights& heights, double reading,
                                      const JxlPosition& grid) {
  const auto& [station, backsight, backAzimuth, backCircle] = m_orientation;
  const double correction =
      Computed(WithinCircle(backAzimuth - backCircle), backAzimuth, backCircle);
  m_recorded.instrument = heights.instrument;
  m_records.station = file.AddStationRecord(station, heights.instrument);
  file.AddAzimuthOnly(backsight, station, backAzimuth);
  m_records.backBearing =
      file.AddBackBearingRecord(m_records.station, station, backsight, backCircle, correction);
  AddTarget(file, heights.rod);
  return file.AddAngleOnly(backsight, reading, m_records, grid);
}

void JxlInstrument::AddTarget(CJxlFile& file, double rodHeight) {
  m_recorded.rod = rodHeight;
  m_records.target = file.AddTargetRecord(rodHeight);
}

JxlPosition JxlInstrument::Reduce(const JxlReadings& readings, const JxlPosition& station,
                                  double scale) const {
  if (!readings.AreUsable()) return {};
  const auto [north, east, rise] =
      ReduceShot(station.north, station.east,
                 {Radians(m_orientation.Azimuth(readings.horizontal)), Radians(readings.vertical),
                  readings.distance, scale});
  const auto [instrument, rod] = m_heights;
  return {
      north, east,
      Computed(station.elevation + instrument - rod + rise, station.elevation, instrument, rod)};
}

}  // namespace zelconvert
