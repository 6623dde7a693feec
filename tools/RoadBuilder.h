// The roads of a DC file as the survey holds them: the alignment walked in steps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "dc/SystemFields.h"
#include "roads/RoadGeometry.h"
#include "roads/RoadRecords.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

/// How the file counts: what its header and settings say.
struct RoadFrame {
  DisplayUnits units;
  bool isEastFirst = false;
  bool isSouthAzimuth = false;
};

/// Takes the records of roads in their order. Elements go on where the last one ended; what stands
/// before the first road is passed over.
class RoadBuilder {
 public:
  /// Both stay the caller's; `frame` is looked at with every record.
  RoadBuilder(std::vector<Road>& roads, const RoadFrame& frame) : m_roads(roads), m_frame(frame) {}

  void Begin(const std::wstring& name, std::int64_t line);
  void Add(const tDC_ROAD_HALRecord& start);
  void Add(const tDC_ROAD_STRAIGHT_POINTRecord& straight);
  void Add(const tDC_ROAD_STRAIGHTRecord& straight);
  void Add(const tDC_ROAD_ARCRecord& arc);
  void Add(const tDC_ROAD_ARC_DIRECTIONRecord& arc);
  void Add(const tDC_ROAD_ARC_ANGLERecord& arc);
  void Add(const tDC_ROAD_SPIRALRecord& spiral);
  void Add(const tDC_ROAD_VALRecord& start);
  void Add(const tDC_ROAD_VPARABOLARecord& point);
  void Add(const tDC_ROAD_VPOINTRecord& point);
  void Add(const tDC_ROAD_TEMPLATERecord& section);
  void Add(const tDC_ROAD_SEGMENTRecord& segment);
  void Add(const tDC_ROAD_HINGERecord& hinge);

 private:
  double Metres(double length) const { return ToMetres(length, m_frame.units.length); }
  double Azimuth(double angle) const;
  AlignmentPoint PlaceOf(double coord1, double coord2) const;
  void AddStraight(double azimuth, double length);
  void AddArc(const Turn& turn, double length);
  /// place: where a part of the element ends, by its length.
  template <class Place>
  void Walk(double length, bool isCurve, Place place);
  void AddPoint(double station, const AlignmentPoint& place);
  void AddSegment(const RoadSegment& segment);

  std::vector<Road>& m_roads;
  const RoadFrame& m_frame;
  AlignmentPoint m_last;
  double m_startStation = 0;
  double m_station = 0;
  bool m_isAfterCurve = false;
  bool m_hasStart = false;
};

}  // namespace zelconvert::tools
