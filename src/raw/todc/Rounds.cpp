#include "raw/todc/Rounds.h"

namespace zelconvert {

ROUND_SHOT Rounds::ToRoundShot(const ROUND_SHOT_RECORD& shot) const {
  const Mode& mode = m_pass.mode;
  ROUND_SHOT kept;
  AssignUtf8(kept.station, shot.station);
  AssignUtf8(kept.target, shot.target);
  kept.horizontal = mode.Angle(shot.angleRight);
  kept.zenith = mode.Angle(shot.zenith);
  kept.slopeDistance = mode.Length(shot.slopeDistance);
  kept.rodHeight = mode.Length(shot.rodHeight);
  AssignUtf8(kept.note, shot.note);
  kept.faceOne = kept.zenith < 180;
  return kept;
}

void Rounds::OnDirection(const DIRECTION_RECORD& direction) {
  RD_RECORD& current = m_set.currentDirection;
  if (direction.set != current.set) {
    if (m_set.hasDirection && m_isPending) m_set.directions.push_back(current);
    current = {};
    current.set = direction.set;
  }
  current[direction.kind] = m_pass.mode.Angle(direction.angle);
  m_set.hasDirection = true;
  m_set.lastDirectionKind = direction.kind;
}

void Rounds::OnSetDistance(const SET_DISTANCE_RECORD& distance) {
  const double length = m_pass.mode.Length(distance.distance);
  if (m_set.lastDirectionKind == DirectionKind::ZenithDirect) {
    m_set.currentDirection.distances[0] = length;
  } else if (m_set.lastDirectionKind == DirectionKind::ZenithReverse) {
    m_set.currentDirection.distances[1] = length;
  }
}

bool Rounds::End(const std::wstring& station, const std::wstring& backsight,
                 std::string_view foresight) {
  const bool isReduced = m_isPending;
  if (isReduced) {
    RoundsReference reference;
    ReduceRounds(m_pass.dc, m_set.backsightShots, m_set.foresightShots, m_set.directions, reference,
                 ReckonedUnit(m_pass.mode.firstAngleUnit),
                 {station, backsight, FromUtf8(foresight)});
  }
  m_isPending = false;
  Clear();
  return isReduced;
}

}  // namespace zelconvert
