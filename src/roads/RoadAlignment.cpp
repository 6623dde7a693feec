#include "roads/RoadAlignment.h"

#include <cmath>
#include <string_view>

namespace zelconvert {

namespace {

/// Straights below it are left out of the road file.
constexpr double kShortestStraight = 0.001;
/// In place of an azimuth: the element goes on in the direction of the one before.
constexpr double kGoesOn = -1.0;

constexpr std::wstring_view DirectionOf(const Turn& turn) {
  return turn.isRight ? L"R" : L"L";
}

}  // namespace

AlignmentPoint CRoadAlignment::PointOf(double coord1, double coord2) const {
  return m_settings.iNEZOrder == 2 ? AlignmentPoint{coord2, coord1, 0}
                                   : AlignmentPoint{coord1, coord2, 0};
}

double CRoadAlignment::FromFileOrigin(double azimuth) const {
  return m_settings.azmDir == AzimuthOrigin::South ? azimuth + kPi : azimuth;
}

void CRoadAlignment::Add(const tDC_ROAD_HALRecord& start) {
  m_file.WriteSection(L"HR");
  m_dStartStation = m_dLastStation = start.startStation;
  m_last = PointOf(start.coord1, start.coord2);
  m_last.azimuth = FromFileOrigin(RadiansFromAngle(start.startAzimuth, m_settings.angleUnits));
}

void CRoadAlignment::Add(const tDC_ROAD_STRAIGHT_POINTRecord& straight) {
  AlignmentPoint end = PointOf(straight.coord1, straight.coord2);
  const double north = end.north - m_last.north;
  const double east = end.east - m_last.east;
  const double length = std::sqrt(north * north + east * east);
  end.azimuth = std::atan2(east, north);
  m_file.WriteHL(DisplayAzimuth(FromFileOrigin(end.azimuth), m_settings.angleUnits), length);
  MoveTo(end, length, false);
}

void CRoadAlignment::Add(const tDC_ROAD_STRAIGHTRecord& straight) {
  if (!(std::abs(straight.length) < kShortestStraight)) {
    const bool inGons = m_settings.angleUnits == AngularUnit::Gon;
    m_file.WriteHL(inGons ? straight.azimuth : DegreesToDms(straight.azimuth), straight.length);
  }
  const double azimuth = FromFileOrigin(RadiansFromAngle(straight.azimuth, m_settings.angleUnits));
  MoveTo(StraightEnd(m_last, azimuth, straight.length), straight.length, false);
}

void CRoadAlignment::Add(const tDC_ROAD_ARC_DIRECTIONRecord& arc) {
  AddArc({std::abs(arc.radius), arc.isRight}, arc.length);
}

void CRoadAlignment::Add(const tDC_ROAD_ARC_ANGLERecord& arc) {
  const Turn turn = TurnOfSignedRadius(arc.radius);
  AddArc(turn, 2.0 * kPi * turn.radius * arc.deflection / FullCircle(m_settings.angleUnits));
}

void CRoadAlignment::AddArc(const Turn& turn, double length) {
  m_file.WriteHC(kGoesOn, turn.radius, length, DirectionOf(turn));
  MoveTo(ArcEnd(m_last, turn, length), length, true);
}

void CRoadAlignment::Add(const tDC_ROAD_SPIRALRecord& spiral) {
  const Turn turn = TurnOfSignedRadius(spiral.radius);
  m_file.WriteHS(kGoesOn, turn.radius, spiral.length, DirectionOf(turn),
                 m_bAfterCurve ? L"C" : L"T");
  MoveTo(SpiralEnd(m_last, turn, spiral.length, m_bAfterCurve), spiral.length, true);
}

void CRoadAlignment::MoveTo(const AlignmentPoint& end, double length, bool afterCurve) {
  m_last = end;
  m_dLastStation += length;
  m_bAfterCurve = afterCurve;
}

void CRoadAlignment::Add(const tDC_ROAD_VALRecord& start) {
  m_file.WriteSection(L"VR");
  m_dHorizontalEnd = m_dLastStation;
  m_dLastStation = start.startStation;
  m_dLastElevation = start.startElevation;
}

void CRoadAlignment::Add(const tDC_ROAD_VPARABOLARecord& point) {
  const double grade = GradeTo(point.station, point.elevation);
  WriteOpenParabola(grade);
  const double rest = point.station - m_dLastStation - m_dLastOutLength - point.length / 2;
  if (rest > 0) m_file.WriteVG(rest, grade);
  MoveProfileTo(point.station, point.elevation, grade, point.length);
}

void CRoadAlignment::Add(const tDC_ROAD_VPOINTRecord& point) {
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

double CRoadAlignment::GradeTo(double station, double elevation) const {
  return (elevation - m_dLastElevation) / (station - m_dLastStation) * 100.0;
}

void CRoadAlignment::WriteOpenParabola(double grade) {
  if (m_dLastOutLength > 0) m_file.WriteVC(m_dParabolicLength, m_dGrade1, grade);
}

void CRoadAlignment::MoveProfileTo(double station, double elevation, double grade,
                                   double parabolicLength) {
  m_dLastStation = station;
  m_dLastElevation = elevation;
  m_dGrade1 = grade;
  m_dParabolicLength = parabolicLength;
  m_dLastOutLength = parabolicLength / 2;
}

}  // namespace zelconvert
