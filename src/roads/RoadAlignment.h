// The alignment of one road: walks its elements, keeps where it has got to, and writes the HR and
// VR sections of the road file on the way.
#pragma once

#include <cstdint>

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
};

class CRoadAlignment {
 public:
  /// Both stay the caller's and are looked at with every element.
  CRoadAlignment(CRd5File& file, const RoadSettings& settings)
      : m_file(file), m_settings(settings) {}

  // One element each. Failed writes show when the road file is closed.
  void Add(const tDC_ROAD_HALRecord& start);
  void Add(const tDC_ROAD_STRAIGHT_POINTRecord& straight);
  void Add(const tDC_ROAD_STRAIGHTRecord& straight);
  void Add(const tDC_ROAD_ARCRecord& arc) { AddArc(TurnOfSignedRadius(arc.radius), arc.length); }
  void Add(const tDC_ROAD_ARC_DIRECTIONRecord& arc);
  void Add(const tDC_ROAD_ARC_ANGLERecord& arc);
  void Add(const tDC_ROAD_SPIRALRecord& spiral);
  void Add(const tDC_ROAD_VALRecord& start);
  void Add(const tDC_ROAD_VPARABOLARecord& point);
  void Add(const tDC_ROAD_VPOINTRecord& point);

  /// Of the last record 84.
  double GetStartStation() const { return m_dStartStation; }
  /// Reached along the horizontal alignment, after record 34 along the vertical one.
  double GetLastStation() const { return m_dLastStation; }
  /// Reached along the horizontal alignment when record 34 came.
  double GetHorizontalEnd() const { return m_dHorizontalEnd; }
  /// North and east of a pair of coordinates of a record.
  AlignmentPoint PointOf(double coord1, double coord2) const;

 private:
  /// An azimuth as the file counts it against the one from north, which positions run on.
  double FromFileOrigin(double azimuth) const;
  void AddArc(const Turn& turn, double length);
  void MoveTo(const AlignmentPoint& end, double length, bool afterCurve);
  double GradeTo(double station, double elevation) const;
  /// The open parabola, if there is one, which ends in the new grade.
  void WriteOpenParabola(double grade);
  void MoveProfileTo(double station, double elevation, double grade, double parabolicLength);

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
