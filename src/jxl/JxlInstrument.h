// The instrument of a log on its way to JobXML: where it stands, how it is oriented, how high it
// and the rod are, and where it goes next. Adds the records that tell so: for a backsight at once,
// else right before the first shot that needs them.
//
// Angles are decimal degrees, azimuths from north; lengths are metres; names are UTF-8. What is
// computed from a null value is null.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "io/NameSet.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "jxl/CJxlFile.h"
#include "raw/Angles.h"
#include "raw/ReduceShot.h"

namespace zelconvert {

/// Names of shots are cut to this length.
inline constexpr std::size_t kShotNameLength = 16;
inline std::string CutName(std::string_view name) {
  if (name.size() <= kShotNameLength) return std::string(name);
  return ToUtf8(Left(FromUtf8(name), kShotNameLength));
}

/// Two names mean one point if they agree in what a shot keeps of them, blanks at the ends aside.
inline std::string ComparedName(std::string_view name) {
  return std::string(Trim(CutName(name)));
}

class JxlInstrument {
 public:
  struct Heights {
    double instrument = 0;
    double rod = 0;
  };

  struct Orientation {
    std::string station;
    std::string backsight;
    double backAzimuth = 0;
    double backCircle = 0;  ///< the circle's reading at the backsight

    double Azimuth(double circle) const {
      return Computed(backAzimuth + circle - backCircle, backAzimuth, backCircle, circle);
    }
  };

  /// The line of sight from here on. Records of it wait for a shot.
  void SetHeights(const Heights& heights) { m_heights = heights; }
  const Heights& GetHeights() const { return m_heights; }

  /// A backsight at `station`. Adds its five records, which tell `heights`; the last one, the angle
  /// only form, has the reading and the position of the shot to the backsight. Returns the id of
  /// that one.
  std::uint32_t Orient(CJxlFile& file, std::string_view station, std::string_view backsight,
                       double azimuth, double circle, const Heights& heights, double reading,
                       const JxlPosition& grid) {
    m_orientation = {std::string(station), std::string(backsight), azimuth, circle};
    if (Move* move = FindMove(station)) move->isPlanned = false;
    return AddSetup(file, heights, reading, grid);
  }

  /// A traverse shot from `from` to `to`: the instrument goes there with the next shot from `to`,
  /// unless a backsight there comes first, whatever is shot from other stations until then.
  void PlanMove(std::string_view from, std::string_view to, const JxlReadings& readings) {
    const double azimuth = m_orientation.Azimuth(readings.horizontal);
    // In face two the telescope points away from where the circle reads: back, as seen from there.
    const double back = IsFaceTwo(readings.vertical, kDegrees) ? azimuth : azimuth + 180;
    const Move move = {WithinCircle(back), m_orientation.backCircle, NumberOf(to),
                       NumberOf(from) & 0x7FFFFFFFu, true};
    const std::size_t place = m_names.Add(ComparedName(to));
    if (place >= m_moves.size()) m_moves.resize(m_names.Size());
    m_moves[place] = move;
  }

  /// Before a shot: makes the move to its station, or tells heights that the records of the
  /// setup lack. True if the instrument has moved.
  [[nodiscard]] bool PrepareShot(CJxlFile& file, std::string_view station) {
    Move* const move = FindMove(station);
    const bool moves = move != nullptr;
    if (moves) {
      move->isPlanned = false;
      m_orientation = {std::string(m_names.Name(move->station)),
                       std::string(m_names.Name(move->backsight)), move->backAzimuth,
                       move->backCircle};
    }
    const bool hasSetup = m_records.station != 0;
    if (moves || (hasSetup && m_heights.instrument != m_recorded.instrument)) {
      AddSetup(file, m_heights, m_orientation.backCircle, {});
    } else if (hasSetup && m_heights.rod != m_recorded.rod) {
      AddTarget(file, m_heights.rod);
    }
    return moves;
  }

  /// Where a shot from a station at `station` leads.
  JxlPosition Reduce(const JxlReadings& readings, const JxlPosition& station, double scale) const {
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

  /// The records of the setup; none before the first.
  const JxlSetup& Records() const { return m_records; }

 private:
  static constexpr AngularUnit kDegrees = AngularUnit::DecimalDegrees;
  static double Radians(double degrees) { return RadiansOf(degrees, kDegrees); }
  /// In [0, 360), and never -0. What noise has put right below a full circle is 0 as well.
  static double WithinCircle(double degrees) { return NormalizeZenith(degrees, kDegrees) + 0.0; }

  /// An orientation that waits for a shot from its station: a log may be full of them.
  struct Move {
    double backAzimuth = 0;
    double backCircle = 0;
    std::uint32_t station = 0;  // numbers of names
    std::uint32_t backsight : 31 = 0;
    std::uint32_t isPlanned : 1 = false;
  };
  /// The move to this station that is planned, or null.
  Move* FindMove(std::string_view station) {
    const auto place = m_names.Find(ComparedName(station));
    if (!place || *place >= m_moves.size() || !m_moves[*place].isPlanned) return nullptr;
    return &m_moves[*place];
  }
  std::uint32_t NumberOf(std::string_view name) {
    return static_cast<std::uint32_t>(m_names.Add(name));
  }

  std::uint32_t AddSetup(CJxlFile& file, const Heights& heights, double reading,
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

  void AddTarget(CJxlFile& file, double rodHeight) {
    m_recorded.rod = rodHeight;
    m_records.target = file.AddTargetRecord(rodHeight);
  }

  Heights m_heights;
  Heights m_recorded;  // in the records of the setup
  Orientation m_orientation;
  JxlSetup m_records;
  NameSet m_names;           // of stations, as compared too, and of backsights
  std::deque<Move> m_moves;  // by the numbers of the stations' compared names
};

}  // namespace zelconvert
