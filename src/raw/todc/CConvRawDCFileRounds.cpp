// Sets of rounds are gathered, and dropped at the next shot: what a DC file gets from a log are its
// plain shots. Only a set that is marked as pending is reduced, and no record marks one.
#include "raw/todc/CConvRawDCFile.h"
#include "raw/todc/Rounds.h"

namespace zelconvert {

Outcome CConvRawDCFile::OnRoundBacksight() {
  ROUND_SHOT_RECORD shot;
  if (!CRawFile::ParseRB(m_strRecord, shot)) return Outcome::BadRecord;
  m_Rounds.backsightShots.push_back(ToRoundShot(shot));
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnRoundForesight() {
  ROUND_SHOT_RECORD shot;
  if (!CRawFile::ParseRF(m_strRecord, shot)) return Outcome::BadRecord;
  m_Rounds.foresightShots.push_back(ToRoundShot(shot));
  return Outcome::Done;
}

ROUND_SHOT CConvRawDCFile::ToRoundShot(const ROUND_SHOT_RECORD& shot) const {
  ROUND_SHOT kept;
  kept.station = shot.station;
  kept.target = shot.target;
  kept.horizontal = m_Mode.Angle(shot.angleRight);
  kept.zenith = m_Mode.Angle(shot.zenith);
  kept.slopeDistance = m_Mode.Length(shot.slopeDistance);
  kept.rodHeight = m_Mode.Length(shot.rodHeight);
  kept.note = shot.note;
  kept.faceOne = kept.zenith < 180;
  return kept;
}

Outcome CConvRawDCFile::OnDirection() {
  DIRECTION_RECORD direction;
  if (!CRawFile::ParseRD(m_strRecord, direction)) return Outcome::BadRecord;
  if (direction.set != m_Rounds.currentSet) {
    if (m_Rounds.hasDirection) m_Rounds.directions.push_back(m_Rounds.currentDirection);
    m_Rounds.currentDirection = {};
    m_Rounds.currentSet = direction.set;
  }
  const double angle = m_Mode.Angle(direction.angle);
  m_Rounds.currentDirection.set = direction.set;
  m_Rounds.currentDirection[direction.kind] = angle;
  m_Rounds.hasDirection = true;
  m_Rounds.lastDirectionKind = direction.kind;
  if (direction.kind == DirectionKind::BacksightDirect) {
    m_Rounds.backsightDirections.push_back(angle);
  }
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnSetDistance() {
  SET_DISTANCE_RECORD distance;
  if (!CRawFile::ParseMD(m_strRecord, distance)) return Outcome::BadRecord;
  const double length = m_Mode.Length(distance.distance);
  if (m_Rounds.lastDirectionKind == DirectionKind::ZenithDirect) {
    m_Rounds.currentDirection.distances[0] = length;
  } else if (m_Rounds.lastDirectionKind == DirectionKind::ZenithReverse) {
    m_Rounds.currentDirection.distances[1] = length;
  }
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnEndOfRounds() {
  m_Rounds.Clear();
  return Outcome::Done;
}

void CConvRawDCFile::EndRounds(bool traverse, std::wstring_view foresight) {
  if (m_Rounds.pending) {
    RoundsReference reference;
    ReduceRounds(*m_pDc, m_Rounds.backsightShots, m_Rounds.foresightShots, m_Rounds.directions,
                 reference, m_Mode.firstAngleUnit,
                 {m_Setup.station, m_Setup.backsight, std::wstring(foresight)});
    if (traverse) MoveTo(foresight, DC_NULL);
  }
  m_Rounds.Clear();
}

}  // namespace zelconvert
