// Traverse shots and sideshots: any form of angles and distances becomes slope distance, zenith
// angle and circle reading.
#include <cmath>

#include "io/Strings.h"
#include "io/Units.h"
#include "raw/Angles.h"
#include "raw/todc/CConvRawDCFile.h"

namespace zelconvert {
namespace {

constexpr double kDegreesPerRadian = 180 / kPi;

/// Notes of observations have 16 columns.
constexpr std::size_t kNoteColumns = 16;

/// From where a shot went back to its station. In face two its circle reads the way back already.
double BackAzimuth(double azimuth, double zenith, std::int32_t unit) {
  return NormalizeAngle(IsFaceTwo(zenith, unit) ? azimuth : azimuth + FullCircle(unit) / 2, unit);
}

}  // namespace

Outcome CConvRawDCFile::OnTraverse() {
  return OnShot(true);
}

Outcome CConvRawDCFile::OnSideshot() {
  return OnShot(false);
}

Outcome CConvRawDCFile::OnShot(bool traverse) {
  SHOT_RECORD shot;
  if (!CRawFile::ParseTR(m_strRecord, shot)) return Outcome::BadRecord;
  m_Setup.station = shot.station;
  const bool deleted = IsDeleted(shot.foresight);
  if (!deleted) m_Names.observed.Insert(shot.foresight);
  EndRounds(traverse, shot.foresight);

  double circle = 0;
  if (!ReduceHorizontal(shot, circle)) return Outcome::Failed;
  double zenith = 0;
  double slopeDistance = 0;
  ReduceVertical(shot, zenith, slopeDistance);
  WriteObservation(shot.foresight, slopeDistance, zenith, circle, shot.note,
                   Classify(shot.foresight, deleted));
  if (traverse && m_Index.TraverseContinues(m_nLineNumber)) {
    const double azimuth = Computed(m_Setup.backsightAzimuth + circle - m_Setup.circle,
                                    m_Setup.backsightAzimuth, circle, m_Setup.circle);
    MoveTo(shot.foresight, BackAzimuth(azimuth, zenith, m_Mode.firstAngleUnit));
  }
  return Outcome::Done;
}

/// The circle reading of a shot; all but AR tell an azimuth. False if a bearing has no text.
bool CConvRawDCFile::ReduceHorizontal(const SHOT_RECORD& shot, double& circle) const {
  const double halfCircle = FullCircle(m_Mode.firstAngleUnit) / 2;
  double value = m_Mode.Angle(shot.horizontal);
  double azimuth = 0;
  switch (shot.horizontalKind) {
    case HorizontalKind::AngleRight:
      circle = value;
      return true;
    case HorizontalKind::Azimuth:
      azimuth = value;
      break;
    case HorizontalKind::Bearing: {
      std::wstring_view bearing;
      if (!CRawFile::GetField(m_strRecord, L"BR", bearing)) return false;
      value = m_Mode.ToFirstAngleUnit(ParseBearing(bearing, m_Mode.angleUnit));
      azimuth = value;
      break;
    }
    case HorizontalKind::AngleLeft:
      azimuth = m_Setup.backsightAzimuth - value;
      break;
    case HorizontalKind::DeflectionRight:
      azimuth = m_Setup.backsightAzimuth + halfCircle + value;
      break;
    case HorizontalKind::DeflectionLeft:
      azimuth = m_Setup.backsightAzimuth + halfCircle - value;
      break;
  }
  circle = Computed(azimuth - m_Setup.backsightAzimuth + m_Setup.circle, value,
                    m_Setup.backsightAzimuth, m_Setup.circle);
  return true;
}

void CConvRawDCFile::ReduceVertical(const SHOT_RECORD& shot, double& zenith,
                                    double& slopeDistance) const {
  const std::int32_t unit = m_Mode.angleUnit;
  const bool gons = unit == kRawGons;
  slopeDistance = m_Mode.Length(shot.distance);
  switch (shot.verticalKind) {
    case VerticalKind::Zenith:
      zenith = m_Mode.Angle(shot.vertical);
      break;
    case VerticalKind::VerticalAngle: {
      const double quarter = FullCircle(unit) / 4;
      const double angle = gons ? shot.vertical : DmsToDegrees(shot.vertical);
      zenith =
          m_Mode.ToFirstAngleUnit(Computed(NormalizeZenith(quarter - angle, unit), shot.vertical));
      break;
    }
    case VerticalKind::ElevationChange: {
      const double rise = m_Mode.Length(shot.vertical);
      const double run = slopeDistance;
      const double degrees = 90 - std::atan2(rise, run) * kDegreesPerRadian;
      slopeDistance = Computed(std::sqrt(rise * rise + run * run), rise, run);
      zenith = Computed(NormalizeZenith(degrees, kRawDegrees), rise, run);
      zenith = m_Mode.ToFirstAngleUnit(ConvertAngleUnit(unit, kRawDegrees, zenith));
      break;
    }
  }
}

void CConvRawDCFile::WriteObservation(std::wstring_view to, double slopeDistance, double zenith,
                                      double circle, std::wstring_view note,
                                      wchar_t classification) {
  m_Observation.from = m_Setup.station;
  m_Observation.to = to;
  m_Observation.distance = slopeDistance;
  m_Observation.angle1 = zenith;
  m_Observation.angle2 = circle;
  m_Observation.code = Left(note, kNoteColumns);
  m_Observation.classification = classification;
  m_pDc->WriteObservationSigma(m_Observation);
}

/// The instrument moves to the foresight and looks back.
void CConvRawDCFile::MoveTo(std::wstring_view foresight, double backsightAzimuth) {
  m_Setup.backsightAzimuth = backsightAzimuth;
  m_Setup.backsight = m_Setup.station;
  m_Setup.station = foresight;
  m_Setup.occupiedPoint.m_strName = foresight;
  FindHeights(foresight);
  WriteStation(foresight);
  WriteOrientation(backsightAzimuth);
}

}  // namespace zelconvert
