// The alignment of one road: walks its elements, keeps where it has got to, and writes the HR and
// VR sections of the road file on the way.
#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

#include "io/Units.h"
#include "roads/CRd5File.h"
#include "roads/RoadGeometry.h"
#include "roads/RoadRecords.h"

namespace zelconvert {

/// Where the azimuths of a file count from.
enum class AzimuthOrigin : std::uint8_t { North, South };

/// What the header and the settings records before an element say. They hold across roads.
struct RoadSettings {
  int iNEZOrder = 1;                                     ///< 1 north before east, 2 east before
                                                         ///< north
  AngularUnit angleUnits = AngularUnit::DecimalDegrees;  ///< or gons: of angles read and written
  AzimuthOrigin azmDir = AzimuthOrigin::North;
  bool needsPlaces = true;  ///< false: no element names a point, so none asks where it starts
};

class CRoadAlignment {
 public:
  /// Both stay the caller's and are looked at with every element.
  CRoadAlignment(CRd5File& file, const RoadSettings& settings)
      : m_file(file), m_settings(settings) {}

  // One element each. Failed writes show when the road file is closed.
  void Add(const tDC_ROAD_HALRecord& start) {
    m_file.WriteSection(L"HR");
    m_dStartStation = m_dLastStation = start.startStation;
    m_last = PointOf(start.coord1, start.coord2);
    m_last.azimuth = FromFileOrigin(RadiansFromAngle(start.startAzimuth, m_settings.angleUnits));
  }

  void Add(const tDC_ROAD_STRAIGHT_POINTRecord& straight) {
    AlignmentPoint end = PointOf(straight.coord1, straight.coord2);
    const double north = end.north - m_last.north;
    const double east = end.east - m_last.east;
    const double length = std::sqrt(north * north + east * east);
    end.azimuth = std::atan2(east, north);
    m_file.WriteHL(DisplayAzimuth(FromFileOrigin(end.azimuth), m_settings.angleUnits), length);
    m_last = end;
    MoveOn(length, false);
  }

  void Add(const tDC_ROAD_STRAIGHTRecord& straight) {
    if (!(std::abs(straight.length) < kShortestStraight)) {
      const bool inGons = m_settings.angleUnits == AngularUnit::Gon;
      m_file.WriteHL(inGons ? straight.azimuth : DegreesToDms(straight.azimuth), straight.length);
    }
    if (m_settings.needsPlaces) {
      const double azimuth = RadiansFromAngle(straight.azimuth, m_settings.angleUnits);
      m_last = StraightEnd(m_last, FromFileOrigin(azimuth), straight.length);
    }
    MoveOn(straight.length, false);
  }

  void Add(const tDC_ROAD_ARCRecord& arc) { AddArc(TurnOfSignedRadius(arc.radius), arc.length); }

  void Add(const tDC_ROAD_ARC_DIRECTIONRecord& arc) {
    AddArc({std::abs(arc.radius), arc.isRight}, arc.length);
  }

  void Add(const tDC_ROAD_ARC_ANGLERecord& arc) {
    const Turn turn = TurnOfSignedRadius(arc.radius);
    AddArc(turn, 2.0 * kPi * turn.radius * arc.deflection / FullCircle(m_settings.angleUnits));
  }

  void Add(const tDC_ROAD_SPIRALRecord& spiral) {
    const Turn turn = TurnOfSignedRadius(spiral.radius);
    m_file.WriteHS(kGoesOn, turn.radius, spiral.length, DirectionOf(turn),
                   m_bAfterCurve ? "C" : "T");
    if (m_settings.needsPlaces) m_last = SpiralEnd(m_last, turn, spiral.length, m_bAfterCurve);
    MoveOn(spiral.length, true);
  }

  void Add(const tDC_ROAD_VALRecord& start) {
    m_file.WriteSection(L"VR");
    m_dHorizontalEnd = m_dLastStation;
    m_dLastStation = start.startStation;
    m_dLastElevation = start.startElevation;
  }

  void Add(const tDC_ROAD_VPARABOLARecord& point) {
    const double grade = GradeTo(point.station, point.elevation);
    WriteOpenParabola(grade);
    const double rest = point.station - m_dLastStation - m_dLastOutLength - point.length / 2;
    if (rest > 0) m_file.WriteVG(rest, grade);
    MoveProfileTo(point.station, point.elevation, grade, point.length);
  }

  void Add(const tDC_ROAD_VPOINTRecord& point) {
    const double grade = GradeTo(point.station, point.elevation);
    const double distance = point.station - m_dLastStation;
    WriteOpenParabola(grade);
    if (!(m_dLastOutLength > 0)) {
      m_file.WriteVG(distance, grade);
    } else if (m_dLastOutLength < distance) {
      m_file.WriteVG(distance - m_dLastOutLength, grade);
    }
    MoveProfileTo(point.station, point.elevation, grade, 0);
  }

  /// Of the last record 84.
  double GetStartStation() const { return m_dStartStation; }
  /// Reached along the horizontal alignment, after record 34 along the vertical one.
  double GetLastStation() const { return m_dLastStation; }
  /// Reached along the horizontal alignment when record 34 came.
  double GetHorizontalEnd() const { return m_dHorizontalEnd; }

  /// North and east of a pair of coordinates of a record.
  AlignmentPoint PointOf(double coord1, double coord2) const {
    return m_settings.iNEZOrder == 2 ? AlignmentPoint{coord2, coord1, 0}
                                     : AlignmentPoint{coord1, coord2, 0};
  }

 private:
  /// Straights below it are left out of the road file.
  static constexpr double kShortestStraight = 0.001;
  static constexpr std::string_view DirectionOf(const Turn& turn) {
    return turn.isRight ? "R" : "L";
  }

  /// An azimuth as the file counts it against the one from north, which positions run on.
  double FromFileOrigin(double azimuth) const {
    return m_settings.azmDir == AzimuthOrigin::South ? azimuth + kPi : azimuth;
  }

  void AddArc(const Turn& turn, double length) {
    m_file.WriteHC(kGoesOn, turn.radius, length, DirectionOf(turn));
    if (m_settings.needsPlaces) m_last = ArcEnd(m_last, turn, length);
    MoveOn(length, true);
  }

  void MoveOn(double length, bool afterCurve) {
    m_dLastStation += length;
    m_bAfterCurve = afterCurve;
  }

  double GradeTo(double station, double elevation) const {
    return (elevation - m_dLastElevation) / (station - m_dLastStation) * 100.0;
  }

  /// The open parabola, if there is one, which ends in the new grade.
  void WriteOpenParabola(double grade) {
    if (m_dLastOutLength > 0) m_file.WriteVC(m_dParabolicLength, m_dGrade1, grade);
  }

  void MoveProfileTo(double station, double elevation, double grade, double parabolicLength) {
    m_dLastStation = station;
    m_dLastElevation = elevation;
    m_dGrade1 = grade;
    m_dParabolicLength = parabolicLength;
    m_dLastOutLength = parabolicLength / 2;
  }

  CRd5File& m_file;
  const RoadSettings& m_settings;

  AlignmentPoint m_last;  // dLastNorthing, dLastEasting, dLastAzimuth
  double m_dStartStation = 0;
  double m_dLastStation = 0;
  double m_dHorizontalEnd = 0;
  bool m_bAfterCurve = false;  // a spiral from here starts at a curve

  double m_dLastElevation = 0;
  double m_dGrade1 = 0;           // percent, before the next vertical element
  double m_dParabolicLength = 0;  // of the last parabola
  double m_dLastOutLength = 0;    // its half after the last point, not yet passed
};

}  // namespace zelconvert
