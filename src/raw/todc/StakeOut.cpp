#include "raw/todc/StakeOut.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "io/Numbers.h"

namespace zelconvert {
namespace {

/// While these follow, a stored point may still turn out to be a design point.
constexpr RawRecordType kStakeKinds[] = {RawRecordType::CF, RawRecordType::SK, RawRecordType::SL,
                                         RawRecordType::SR, RawRecordType::SD, RawRecordType::OE,
                                         RawRecordType::DE};

/// The name column of a station on a line.
constexpr std::wstring_view kNoName = L" ";

/// A design offset as the note of a staked station tells it.
struct OffsetNote {
  int side = -1;  ///< 2 left, 1 right, 0 centre line, -1 none
  double value = DC_NULL;
};

/// The letters L, R and C are tried in this order. The first occurrence of one counts if it isn't
/// the first character of the note; the offset is the number after it:
///   "sta R 3.25" right 3.25   "1+00 L2" left 2   "a Line R5" left 0   "L5" none   "left 5" none
OffsetNote ParseOffsetNote(std::wstring_view note) {
  for (const auto& [letter, side] : {std::pair(L'L', 2), {L'R', 1}, {L'C', 0}}) {
    const std::size_t at = note.find(letter);
    if (at == std::wstring_view::npos || at == 0) continue;
    return {side, ToReal(note.substr(at + 1))};
  }
  return {};
}

}  // namespace

void StakeOut::OnStoredPoint(const POINT_RECORD& point) {
  m_pass.Take(point, m_storedPoint);
  m_storedName = point.name;
  m_isStoredWaiting = true;
}

void StakeOut::OnPointStored(const POINT_RECORD& point) {
  m_pass.Take(point, m_storedPoint);
  m_isGpsPointStored = true;
}

void StakeOut::BeforeRecord() {
  const auto* const end = std::end(kStakeKinds);
  if (!m_isStoredWaiting || std::find(std::begin(kStakeKinds), end, m_pass.kind) != end) return;
  const bool deleted = m_pass.index.IsDeleted(m_storedPoint.m_strName, m_pass.line - 1);
  m_pass.WriteGridPosition(m_storedPoint, deleted);
  m_isStoredWaiting = false;
}

void StakeOut::Finish() {
  if (m_isStoredWaiting) m_pass.WriteGridPosition(m_storedPoint, false);
}

void StakeOut::OnStake(const CF_RECORD& stake) {
  const Mode& mode = m_pass.mode;
  m_stake = {stake, FromUtf8(stake.name), FromUtf8(stake.note)};
  CF_RECORD& design = m_stake->design;
  for (double* length : {&design.station, &design.elevation, &design.grade}) {
    *length = mode.Length(*length);
  }
  // Under another unit the offset becomes the station, scaled once more: so it is wanted.
  if (mode.hasOtherLengths) design.offset = mode.Length(design.station);
  if (IsStakeDue()) WriteStake();
}

void StakeOut::OnSlopeStake(const SLOPE_RECORD& slope) {
  m_slope = {slope, FromUtf8(slope.note)};
  SLOPE_RECORD& design = m_slope->design;
  for (double* length :
       {&design.station, &design.elevation, &design.stationShift, &design.hingeHorizontal,
        &design.hingeVertical, &design.catchHorizontal, &design.offset}) {
    *length = m_pass.mode.Length(*length);
  }
  if (IsStakeDue()) WriteSlope();
}

void StakeOut::OnStakedDelta(const STAKED_DELTA_RECORD& delta) {
  const Mode& mode = m_pass.mode;
  m_delta = {mode.Length(delta.north), mode.Length(delta.east), mode.Length(delta.elevation)};
}

void StakeOut::OnStationError(const STATION_ERROR_RECORD& error) {
  m_offsetError = m_pass.mode.Length(error.offsetError);
}

void StakeOut::OnStakeShot(const STAKE_SHOT_RECORD& shot) {
  const Mode& mode = m_pass.mode;
  m_setup.StandAt(shot.station);
  const bool deleted = m_pass.IsDeleted(shot.foresight);
  const bool staked = m_stake || m_slope;
  std::string_view target = shot.foresight;
  if (staked && target.empty()) m_storedName.clear();
  if (staked) target = m_storedName;  // the stored point is what was staked
  const wchar_t classification =
      staked ? m_pass.Classify(target, deleted, L'3', L'8') : m_pass.Classify(target, deleted);
  m_setup.WriteObservation(target, mode.Length(shot.slopeDistance), mode.Angle(shot.zenith),
                           mode.Angle(shot.angleRight), shot.note, classification);
  Flush();
  if (!deleted) m_pass.observed.Insert(target);
}

/// After a stored GPS point a stake is written at once, unless details of it follow.
bool StakeOut::IsStakeDue() {
  if (!m_isGpsPointStored || m_pass.index.NextIsStakeDetail(m_pass.line)) return false;
  m_isGpsPointStored = false;
  return true;
}

/// One shot serves one stake: with both kinds waiting the slope waits for the next.
void StakeOut::Flush() {
  if (m_stake) {
    WriteStake();
  } else if (m_slope) {
    WriteSlope();
  }
}

void StakeOut::WriteStake() {
  if (m_stake->design.isPoint) {
    WritePointStake();
  } else {
    WriteStationStake();
  }
  m_stake.reset();
}

void StakeOut::WritePointStake() {
  tDC_TARGET_IDRecord target;
  target.name = m_stake->name;
  m_pass.dc.Write(target);

  const STAKED_DELTA_RECORD delta = m_delta.value_or(DeltaToDesign());
  m_delta.reset();
  tDC_ANTENNA_OFFSETRecord difference;
  difference.value1 = delta.north;
  difference.value2 = delta.east;
  difference.value3 = delta.elevation;
  m_pass.dc.Write(difference);
}

/// From the stored point; null where the design isn't known.
STAKED_DELTA_RECORD StakeOut::DeltaToDesign() const {
  STAKED_DELTA_RECORD delta{DC_NULL, DC_NULL,
                            Difference(m_stake->design.grade, m_stake->design.elevation)};
  if (const CZelPoint* design = FindDesignPoint(m_stake->name)) {
    delta.north = Difference(design->m_dNorth, m_storedPoint.m_dNorth);
    delta.east = Difference(design->m_dEast, m_storedPoint.m_dEast);
  }
  return delta;
}

const CZelPoint* StakeOut::FindDesignPoint(std::wstring_view name) const {
  for (const PointMap* points : {&m_pass.m_JobPoints, &m_pass.m_ExtraPoints}) {
    const auto found = points->find(name);
    if (found != points->end()) return &found->second;
  }
  return nullptr;
}

void StakeOut::WriteStationStake() {
  const CF_RECORD& stake = m_stake->design;
  const double offset = stake.offsetDirection == 0 ? 0 : stake.offset;
  WriteTarget(stake.offsetDirection, stake.station, offset);

  tDC_ANTENNA_MEASUREMENTRecord errors;
  errors.value1 = DC_NULL;
  errors.value2 = m_offsetError.value_or(OffsetError(offset));
  errors.value3 = Difference(stake.grade, stake.elevation);
  errors.value4 = DC_NULL;
  m_offsetError.reset();
  m_pass.dc.Write(errors);
}

/// How far the stake's offset is from the one its note asks for; null if the note asks for none.
double StakeOut::OffsetError(double offset) const {
  const OffsetNote design = ParseOffsetNote(m_stake->note);
  if (IsNull(design.value) || IsNull(offset)) return DC_NULL;
  if (design.side == m_stake->design.offsetDirection) {
    const bool inward = design.side == 2 ? design.value < offset : design.value > offset;
    const double error = std::fabs(offset - design.value);
    return inward ? -error : error;
  }
  const double error = offset + design.value;
  return design.side == 1 ? -error : error;
}

void StakeOut::WriteSlope() {
  const SLOPE_RECORD& slope = m_slope->design;
  WriteTarget(slope.offsetDirection, slope.station, DC_NULL);

  tDC_DESIGN_SLOPERecord design;
  design.name = m_slope->note;
  design.side = slope.cutFill == 0 ? L"1" : L"2";
  design.slope = Computed(1 / slope.designSlope * 100, slope.designSlope);
  m_pass.dc.Write(design);

  tDC_ANTENNA_MEASUREMENTRecord errors;
  errors.value1 = Sum(slope.station, slope.stationShift);
  errors.value4 = slope.offset;
  m_pass.dc.Write(errors);

  tDC_CATCH_POINTRecord point;
  point.value1 = slope.stationShift;
  point.value2 = slope.catchHorizontal;
  point.value3 = slope.elevation;
  point.horizontal = slope.hingeHorizontal;
  point.vertical = slope.hingeVertical;
  m_pass.dc.Write(point);
  m_slope.reset();
}

/// A1 of a station on a line or beside it.
void StakeOut::WriteTarget(std::int32_t offsetDirection, double station, double offset) {
  tDC_TARGET_HEIGHTS_Record target;
  target.name = kNoName;
  target.flag = offsetDirection == 0 ? L";" : L"7";
  target.value1 = station;
  target.value2 = offset;
  m_pass.dc.Write(target);
}

}  // namespace zelconvert
