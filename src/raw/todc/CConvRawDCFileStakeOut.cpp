// Stake-out: a design point or station (CF) or a slope stake (SL, SR), then the shot (SK) or the
// GPS point that staked it. What the design asks for and what was reached go out behind the shot.
#include <cmath>

#include "raw/todc/CConvRawDCFile.h"
#include "raw/todc/OffsetNote.h"

namespace zelconvert {
namespace {

/// The name column of a station on a line.
constexpr std::wstring_view kNoName = L" ";

/// On the line, or beside it.
std::wstring_view SideText(std::int32_t offsetDirection) {
  return offsetDirection == 0 ? L";" : L"7";
}

/// How far the stake's offset is from the one its note asks for; null if the note asks for none.
double OffsetError(const PendingStake& stake, double offset) {
  const OffsetNote design = ParseOffsetNote(stake.note);
  if (IsNull(design.value) || IsNull(offset)) return DC_NULL;
  if (design.side == stake.offsetDirection) {
    const bool inward = design.side == 2 ? design.value < offset : design.value > offset;
    const double error = std::fabs(offset - design.value);
    return inward ? -error : error;
  }
  const double error = offset + design.value;
  return design.side == 1 ? -error : error;
}

}  // namespace

Outcome CConvRawDCFile::OnStake() {
  CF_RECORD stake;
  if (!CRawFile::ParseCF(m_strRecord, stake)) return Outcome::BadRecord;
  PendingStake& pending = m_Stake.stake;
  pending.isPoint = stake.isPoint;
  pending.name = stake.name;
  pending.station = m_Mode.Length(stake.station);
  pending.offsetDirection = stake.offsetDirection;
  // Under another unit the offset becomes the station, scaled once more. Readers of the DC files
  // know it so.
  pending.offset = m_Mode.HasUnitConflict() ? m_Mode.Length(pending.station) : stake.offset;
  pending.elevation = m_Mode.Length(stake.elevation);
  pending.grade = m_Mode.Length(stake.grade);
  pending.note = stake.note;
  m_Stake.stakePending = true;
  if (IsStakeDue()) FlushStake();
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnSlopeStake() {
  SLOPE_RECORD slope;
  if (!CRawFile::ParseSL(m_strRecord, slope)) return Outcome::BadRecord;
  PendingSlope& pending = m_Stake.slope;
  pending.station = m_Mode.Length(slope.station);
  pending.offsetDirection = slope.offsetDirection;
  pending.elevation = m_Mode.Length(slope.elevation);
  pending.stationShift = m_Mode.Length(slope.stationShift);
  pending.hingeHorizontal = m_Mode.Length(slope.hingeHorizontal);
  pending.hingeVertical = m_Mode.Length(slope.hingeVertical);
  pending.catchHorizontal = m_Mode.Length(slope.catchHorizontal);
  pending.cutFill = slope.cutFill;
  pending.designSlope = slope.designSlope;
  pending.offset = m_Mode.Length(slope.offset);
  pending.note = slope.note;
  m_Stake.slopePending = true;
  if (IsStakeDue()) FlushSlope();
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnStakedDelta() {
  STAKED_DELTA_RECORD delta;
  if (!CRawFile::ParseSD(m_strRecord, delta)) return Outcome::BadRecord;
  m_Stake.delta = {m_Mode.Length(delta.north), m_Mode.Length(delta.east),
                   m_Mode.Length(delta.elevation)};
  m_Stake.deltaRead = true;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnStationError() {
  STATION_ERROR_RECORD error;
  if (!CRawFile::ParseOE(m_strRecord, error)) return Outcome::BadRecord;
  m_Stake.offsetError = m_Mode.Length(error.offsetError);
  m_Stake.stationErrorRead = true;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnStakeShot() {
  STAKE_SHOT_RECORD shot;
  if (!CRawFile::ParseSK(m_strRecord, shot)) return Outcome::BadRecord;
  m_Setup.station = shot.station;
  const bool deleted = IsDeleted(shot.foresight);
  const bool staked = m_Stake.stakePending || m_Stake.slopePending;
  std::wstring_view target = shot.foresight;
  if (staked && target.empty()) m_Stored.name.clear();
  if (staked) target = m_Stored.name;  // the stored point is what was staked
  const wchar_t classification =
      staked ? Classify(target, deleted, L'3', L'8') : Classify(target, deleted);
  WriteObservation(target, m_Mode.Length(shot.slopeDistance), m_Mode.Angle(shot.zenith),
                   m_Mode.Angle(shot.angleRight), shot.note, classification);
  FlushPending();
  if (!deleted) m_Names.observed.Insert(target);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnCheckPoint() {
  NAME_RECORD name;
  if (!CRawFile::ParseGK(m_strRecord, name)) return Outcome::BadRecord;
  FlushPending();
  return Outcome::Done;
}

/// After a stored GPS point a stake is written at once, unless details of it follow.
bool CConvRawDCFile::IsStakeDue() {
  if (!m_Stake.ready || m_Index.NextIsStakeDetail(m_nLineNumber)) return false;
  m_Stake.ready = false;
  return true;
}

/// One shot serves one stake: with both kinds pending the slope waits for the next.
void CConvRawDCFile::FlushPending() {
  if (m_Stake.stakePending) {
    FlushStake();
  } else if (m_Stake.slopePending) {
    FlushSlope();
  }
}

void CConvRawDCFile::FlushStake() {
  WriteStake();
  m_Stake.stakePending = false;
}

void CConvRawDCFile::FlushSlope() {
  WriteSlope();
  m_Stake.slopePending = false;
}

void CConvRawDCFile::WriteStake() {
  if (m_Stake.stake.isPoint) {
    WritePointStake();
  } else {
    WriteStationStake();
  }
}

void CConvRawDCFile::WritePointStake() {
  const PendingStake& stake = m_Stake.stake;
  tDC_TARGET_IDRecord target;
  target.name = stake.name;
  m_pDc->WriteTargetId(target);

  tDC_ANTENNA_OFFSETRecord difference;
  difference.value1 = DC_NULL;
  difference.value2 = DC_NULL;
  if (const CZelPoint* design = FindDesignPoint(stake.name)) {
    difference.value1 = Difference(design->m_dNorth, m_Stored.point.m_dNorth);
    difference.value2 = Difference(design->m_dEast, m_Stored.point.m_dEast);
  }
  difference.value3 = Difference(stake.grade, stake.elevation);
  if (m_Stake.deltaRead) {
    difference.value1 = m_Stake.delta.north;
    difference.value2 = m_Stake.delta.east;
    difference.value3 = m_Stake.delta.elevation;
  }
  m_Stake.deltaRead = false;
  m_pDc->WriteAntennaOffset(difference);
}

const CZelPoint* CConvRawDCFile::FindDesignPoint(std::wstring_view name) const {
  for (const PointMap* points : {&m_JobPoints, &m_ExtraPoints}) {
    const auto found = points->find(name);
    if (found != points->end()) return &found->second;
  }
  return nullptr;
}

void CConvRawDCFile::WriteStationStake() {
  const PendingStake& stake = m_Stake.stake;
  const double offset = stake.offsetDirection == 0 ? 0 : stake.offset;
  tDC_TARGET_HEIGHTS_Record target;
  target.name = kNoName;
  target.flag = SideText(stake.offsetDirection);
  target.value1 = stake.station;
  target.value2 = offset;
  m_pDc->WriteTargetHeights(target);

  tDC_ANTENNA_MEASUREMENTRecord errors;
  errors.value1 = DC_NULL;
  errors.value2 = m_Stake.stationErrorRead ? m_Stake.offsetError : OffsetError(stake, offset);
  errors.value3 = Difference(stake.grade, stake.elevation);
  errors.value4 = DC_NULL;
  m_Stake.stationErrorRead = false;
  m_pDc->WriteAntennaMeasurement(errors);
}

void CConvRawDCFile::WriteSlope() {
  const PendingSlope& slope = m_Stake.slope;
  tDC_TARGET_HEIGHTS_Record target;
  target.name = kNoName;
  target.flag = SideText(slope.offsetDirection);
  target.value1 = slope.station;
  target.value2 = DC_NULL;
  m_pDc->WriteTargetHeights(target);

  tDC_DESIGN_SLOPERecord design;
  design.name = slope.note;
  design.side = slope.cutFill == 0 ? L"1" : L"2";
  design.slope = Computed(1 / slope.designSlope * 100, slope.designSlope);
  m_pDc->WriteDesignSlope(design);

  tDC_ANTENNA_MEASUREMENTRecord errors;
  errors.value1 = Sum(slope.station, slope.stationShift);
  errors.value4 = slope.offset;
  m_pDc->WriteAntennaMeasurement(errors);

  tDC_CATCH_POINTRecord point;
  point.value1 = slope.stationShift;
  point.value2 = slope.catchHorizontal;
  point.value3 = slope.elevation;
  point.horizontal = slope.hingeHorizontal;
  point.vertical = slope.hingeVertical;
  m_pDc->WriteCatchPoint(point);
}

}  // namespace zelconvert
