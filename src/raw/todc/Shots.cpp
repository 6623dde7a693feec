#include "raw/todc/Shots.h"

#include <cmath>

#include "raw/Angles.h"
#include "raw/CRawFile.h"
#include "raw/ReduceShot.h"

namespace zelconvert {
namespace {

constexpr double kDegreesPerRadian = 180 / kPi;

/// From where a shot went back to its station. In face two its circle reads the way back already.
double BackAzimuth(double azimuth, double zenith, AngularUnit unit) {
  return NormalizeAngle(IsFaceTwo(zenith, unit) ? azimuth : azimuth + FullCircle(unit) / 2, unit);
}

}  // namespace

Outcome Shots::OnShot(const SHOT_RECORD& shot, bool isTraverse) {
  m_setup.StandAt(shot.station);
  const bool deleted = m_pass.IsDeleted(shot.foresight);
  if (!deleted) m_pass.observed.Insert(shot.foresight);
  const bool isReduced = m_rounds.End(m_setup.Station(), m_setup.Backsight(), shot.foresight);
  if (isReduced && isTraverse) m_setup.MoveTo(shot.foresight, DC_NULL);

  double circle = 0;
  if (!ReduceHorizontal(shot, circle)) return Outcome::Failed;
  const auto [slopeDistance, zenith] = ReduceVertical(shot);
  m_setup.WriteObservation(shot.foresight, slopeDistance, zenith, circle, shot.note,
                           m_pass.Classify(shot.foresight, deleted));
  if (isTraverse && m_pass.index.TraverseContinues(m_pass.line)) {
    const double azimuth = Computed(m_setup.BacksightAzimuth() + circle - m_setup.Circle(),
                                    m_setup.BacksightAzimuth(), circle, m_setup.Circle());
    m_setup.MoveTo(shot.foresight, BackAzimuth(azimuth, zenith, m_pass.mode.firstAngleUnit));
  }
  return Outcome::Done;
}

/// The circle reading of a shot; all but AR tell an azimuth. False if a bearing has no text.
bool Shots::ReduceHorizontal(const SHOT_RECORD& shot, double& circle) const {
  const Mode& mode = m_pass.mode;
  const double backsight = m_setup.BacksightAzimuth();
  double value = mode.Angle(shot.horizontal);
  if (shot.horizontalKind == HorizontalKind::AngleRight) {
    circle = value;
    return true;
  }
  if (shot.horizontalKind == HorizontalKind::Bearing) {
    std::string_view bearing;
    if (!CRawFile::GetField(m_pass.record, "BR", bearing)) return false;
    value = mode.ToFirstAngleUnit(ParseBearing(FromUtf8(bearing), mode.angleUnit));
  }
  const double azimuth = ToldAzimuth(shot.horizontalKind, value, backsight, mode.firstAngleUnit);
  circle = Computed(azimuth - backsight + m_setup.Circle(), value, backsight, m_setup.Circle());
  return true;
}

Shots::Sight Shots::ReduceVertical(const SHOT_RECORD& shot) const {
  const Mode& mode = m_pass.mode;
  const AngularUnit unit = mode.angleUnit;
  const double distance = mode.Length(shot.distance);
  if (shot.verticalKind == VerticalKind::Zenith) return {distance, mode.Angle(shot.vertical)};
  if (shot.verticalKind == VerticalKind::VerticalAngle) {
    const double angle = ReckonedAngle(shot.vertical, unit);
    const double zenith = NormalizeZenith(FullCircle(unit) / 4 - angle, unit);
    return {distance, mode.ToFirstAngleUnit(Computed(zenith, shot.vertical))};
  }
  const double rise = mode.Length(shot.vertical);
  const double degrees = 90 - std::atan2(rise, distance) * kDegreesPerRadian;
  const double zenith =
      Computed(NormalizeZenith(degrees, AngularUnit::DecimalDegrees), rise, distance);
  return {Computed(std::sqrt(rise * rise + distance * distance), rise, distance),
          mode.ToFirstAngleUnit(ConvertAngleUnit(unit, AngularUnit::DecimalDegrees, zenith))};
}

}  // namespace zelconvert
