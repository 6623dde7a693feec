#include "tools/RoadBuilder.h"

#include <algorithm>
#include <cmath>

#include "io/Strings.h"

namespace zelconvert::tools {
namespace {

// Curves are followed in steps of a length, and no more of them than a picture can show, whatever
// length a file says.
constexpr double kPartLength = 5.0;  // metres
constexpr double kMostParts = 200;

/// A part of a clothoid that begins at its tangent. Curvature grows with the length: the part's end
/// has a larger radius than the whole.
AlignmentPoint FromTangent(const AlignmentPoint& start, const Turn& turn, double length,
                           double part) {
  return SpiralEnd(start, {turn.radius * length / part, turn.isRight}, part, false);
}

/// A part of one that begins at its curve. The rest, seen from the tangent at the far end, is one
/// that begins there.
AlignmentPoint FromCurve(const AlignmentPoint& start, const Turn& turn, double length,
                         double part) {
  AlignmentPoint end = SpiralEnd(start, turn, length, true);
  if (!(part < length)) return end;
  end.azimuth += kPi;
  AlignmentPoint place = FromTangent(end, {turn.radius, !turn.isRight}, length, length - part);
  place.azimuth += kPi;
  return place;
}

}  // namespace

void RoadBuilder::Begin(const std::wstring& name, std::int64_t line) {
  Road road;
  road.name = name;
  road.length = 0;
  road.line = line;
  m_roads.push_back(std::move(road));
  m_station = 0;
  m_last = {};
  m_isAfterCurve = false;
  m_hasStart = false;
}

double RoadBuilder::Azimuth(double angle) const {
  const double azimuth = RadiansFromAngle(angle, m_frame.units.angle);
  return m_frame.isSouthAzimuth ? azimuth + kPi : azimuth;
}

AlignmentPoint RoadBuilder::PlaceOf(double coord1, double coord2) const {
  if (m_frame.isEastFirst) std::swap(coord1, coord2);
  return {Metres(coord1), Metres(coord2), 0};
}

void RoadBuilder::Add(const tDC_ROAD_HALRecord& start) {
  if (m_roads.empty()) return;
  m_last = PlaceOf(start.coord1, start.coord2);
  m_last.azimuth = Azimuth(start.startAzimuth);
  m_station = m_startStation = Metres(start.startStation);
  m_isAfterCurve = false;
  m_hasStart = true;
  AddPoint(m_station, m_last);
}

void RoadBuilder::Add(const tDC_ROAD_STRAIGHT_POINTRecord& straight) {
  const AlignmentPoint end = PlaceOf(straight.coord1, straight.coord2);
  const double north = end.north - m_last.north, east = end.east - m_last.east;
  AddStraight(std::atan2(east, north), std::hypot(north, east));
}

void RoadBuilder::Add(const tDC_ROAD_STRAIGHTRecord& straight) {
  AddStraight(Azimuth(straight.azimuth), Metres(straight.length));
}

void RoadBuilder::AddStraight(double azimuth, double length) {
  const AlignmentPoint start = m_last;
  Walk(length, false, [&](double part) { return StraightEnd(start, azimuth, part); });
}

void RoadBuilder::Add(const tDC_ROAD_ARCRecord& arc) {
  AddArc(TurnOfSignedRadius(Metres(arc.radius)), Metres(arc.length));
}

void RoadBuilder::Add(const tDC_ROAD_ARC_DIRECTIONRecord& arc) {
  AddArc({std::abs(Metres(arc.radius)), arc.isRight}, Metres(arc.length));
}

void RoadBuilder::Add(const tDC_ROAD_ARC_ANGLERecord& arc) {
  const Turn turn = TurnOfSignedRadius(Metres(arc.radius));
  AddArc(turn, turn.radius * RadiansFromAngle(arc.deflection, m_frame.units.angle));
}

void RoadBuilder::AddArc(const Turn& turn, double length) {
  const AlignmentPoint start = m_last;
  Walk(length, true, [&](double part) { return ArcEnd(start, turn, part); });
}

void RoadBuilder::Add(const tDC_ROAD_SPIRALRecord& spiral) {
  const Turn turn = TurnOfSignedRadius(Metres(spiral.radius));
  const double length = Metres(spiral.length);
  const AlignmentPoint start = m_last;
  const bool fromCurve = m_isAfterCurve;
  Walk(length, true, [&](double part) {
    return fromCurve ? FromCurve(start, turn, length, part)
                     : FromTangent(start, turn, length, part);
  });
}

template <class Place>
void RoadBuilder::Walk(double length, bool isCurve, Place place) {
  if (!m_hasStart || !std::isfinite(length)) return;
  const double steps =
      isCurve ? std::clamp(std::ceil(std::abs(length) / kPartLength), 1.0, kMostParts) : 1.0;
  for (int i = 1; i < steps; ++i) {
    AddPoint(m_station + length * i / steps, place(length * i / steps));
  }
  m_last = place(length);
  m_station += length;
  m_isAfterCurve = isCurve;
  AddPoint(m_station, m_last);
  m_roads.back().length = m_station - m_startStation;
}

// One that a file's numbers lead beyond all bounds isn't taken.
void RoadBuilder::AddPoint(double station, const AlignmentPoint& place) {
  if (!std::isfinite(place.north) || !std::isfinite(place.east)) return;
  m_roads.back().alignment.push_back({station, place.north, place.east, place.azimuth});
}

void RoadBuilder::Add(const tDC_ROAD_VALRecord& start) {
  if (m_roads.empty()) return;
  m_roads.back().profile.push_back({Metres(start.startStation), Metres(start.startElevation), 0});
}

void RoadBuilder::Add(const tDC_ROAD_VPARABOLARecord& point) {
  if (m_roads.empty()) return;
  m_roads.back().profile.push_back(
      {Metres(point.station), Metres(point.elevation), Metres(point.length)});
}

void RoadBuilder::Add(const tDC_ROAD_VPOINTRecord& point) {
  if (m_roads.empty()) return;
  m_roads.back().profile.push_back({Metres(point.station), Metres(point.elevation), 0});
}

void RoadBuilder::Add(const tDC_ROAD_TEMPLATERecord& section) {
  if (!m_roads.empty()) m_roads.back().templates.push_back({section.name, {}});
}

// Methods 3 and 4 tell the grade, others the difference of elevation.
void RoadBuilder::Add(const tDC_ROAD_SEGMENTRecord& segment) {
  const bool isGrade = segment.method == 3 || segment.method == 4;
  const double width = Metres(segment.width);
  AddSegment({width, isGrade ? width * segment.grade / 100 : Metres(segment.deltaElevation),
              std::wstring(Trim(segment.code))});
}

void RoadBuilder::Add(const tDC_ROAD_HINGERecord& hinge) {
  AddSegment({Metres(hinge.offset), Metres(hinge.elevation), std::wstring(Trim(hinge.code))});
}

void RoadBuilder::AddSegment(const RoadSegment& segment) {
  if (m_roads.empty() || m_roads.back().templates.empty()) return;
  m_roads.back().templates.back().segments.push_back(segment);
}

}  // namespace zelconvert::tools
