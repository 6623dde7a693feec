#include "raw/todc/CConvRawDCFile.h"

#include <array>
#include <utility>

#include "convert/CConvertProgress.h"
#include "io/Strings.h"
#include "raw/todc/JobPoints.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kBadRecord =
    L"Bad raw data record found at line %ld. The conversion is aborted.";
constexpr std::wstring_view kJobNotRead = L"Warning: The points of the job %s could not be read.";
constexpr std::wstring_view kNoMode = L"Bad ZEL raw data file.";

/// While these follow, a stored point may still turn out to be a design point.
constexpr RawKinds kStakeKinds = {RawRecordType::CF, RawRecordType::SK, RawRecordType::SL,
                                  RawRecordType::SR, RawRecordType::SD, RawRecordType::OE,
                                  RawRecordType::DE};

}  // namespace

const CConvRawDCFile::Handler CConvRawDCFile::kHandlers[] = {
    {RawRecordType::JB, &CConvRawDCFile::OnJob},
    {RawRecordType::MO, &CConvRawDCFile::OnMode},
    {RawRecordType::OC, &CConvRawDCFile::OnOccupy},
    {RawRecordType::BK, &CConvRawDCFile::OnBacksight},
    {RawRecordType::LS, &CConvRawDCFile::OnLineOfSight},
    {RawRecordType::Comment, &CConvRawDCFile::OnComment},
    {RawRecordType::SP, &CConvRawDCFile::OnStoredPoint},
    {RawRecordType::TR, &CConvRawDCFile::OnTraverse},
    {RawRecordType::SS, &CConvRawDCFile::OnSideshot},
    {RawRecordType::RS, &CConvRawDCFile::OnEndOfRounds},
    {RawRecordType::OB, &CConvRawDCFile::OnEndOfRounds},
    {RawRecordType::RB, &CConvRawDCFile::OnRoundBacksight},
    {RawRecordType::RF, &CConvRawDCFile::OnRoundForesight},
    {RawRecordType::RD, &CConvRawDCFile::OnDirection},
    {RawRecordType::MD, &CConvRawDCFile::OnSetDistance},
    {RawRecordType::CF, &CConvRawDCFile::OnStake},
    {RawRecordType::SL, &CConvRawDCFile::OnSlopeStake},
    {RawRecordType::SR, &CConvRawDCFile::OnSlopeStake},
    {RawRecordType::SD, &CConvRawDCFile::OnStakedDelta},
    {RawRecordType::OE, &CConvRawDCFile::OnStationError},
    {RawRecordType::SK, &CConvRawDCFile::OnStakeShot},
    {RawRecordType::GK, &CConvRawDCFile::OnCheckPoint},
    {RawRecordType::RX, &CConvRawDCFile::OnReceiver},
    {RawRecordType::EQ, &CConvRawDCFile::OnEquipment},
    {RawRecordType::AH, &CConvRawDCFile::OnAntennaHeight},
    {RawRecordType::BP, &CConvRawDCFile::OnBasePoint},
    {RawRecordType::EP, &CConvRawDCFile::OnGpsPosition},
    {RawRecordType::GS, &CConvRawDCFile::OnGpsStored},
    {RawRecordType::GP, &CConvRawDCFile::OnGpsPoint},
    {RawRecordType::BL, &CConvRawDCFile::OnVector},
    {RawRecordType::CV, &CConvRawDCFile::OnCovariance},
    {RawRecordType::GQ, &CConvRawDCFile::OnQuality},
    {RawRecordType::GO, &CConvRawDCFile::OnGpsOffset},
    {RawRecordType::EE, &CConvRawDCFile::OnStoredGps},
    {RawRecordType::CT, &CConvRawDCFile::OnControlPoint},
    {RawRecordType::RP, &CConvRawDCFile::OnRoverPoint},
    {RawRecordType::ES, &CConvRawDCFile::OnEllipsoid},
    {RawRecordType::ST, &CConvRawDCFile::OnSite},
    {RawRecordType::PJ, &CConvRawDCFile::OnProjection},
    {RawRecordType::PE, &CConvRawDCFile::OnExtendedProjection},
    {RawRecordType::DT, &CConvRawDCFile::OnDatum},
    {RawRecordType::DG, &CConvRawDCFile::OnDatumGrid},
    {RawRecordType::HA, &CConvRawDCFile::OnHorizontalAdjust},
    {RawRecordType::VA, &CConvRawDCFile::OnVerticalAdjust},
    {RawRecordType::CS, &CConvRawDCFile::OnSystemNames},
    {RawRecordType::CG, &CConvRawDCFile::OnCogoFlags},
    {RawRecordType::LM, &CConvRawDCFile::OnZone},
    {RawRecordType::LH, &CConvRawDCFile::OnLocalization},
    {RawRecordType::SG, &CConvRawDCFile::OnGeoid},
};

CConvRawDCFile::Handle CConvRawDCFile::HandlerOf(RawRecordType type) {
  static const auto handlers = [] {
    std::array<Handle, kRawRecordTypes> byType{};
    for (const Handler& handler : kHandlers) {
      byType[static_cast<std::size_t>(handler.type)] = handler.handle;
    }
    return byType;
  }();
  return handlers[static_cast<std::size_t>(type)];
}

CConvRawDCFile::CConvRawDCFile(CRawFile* raw, CDcFile* dc, bool writeUnusedPoints, bool native,
                               int version, std::wstring jobPath)
    : m_pRaw(raw),
      m_pDc(dc),
      m_bWriteUnusedPoints(writeUnusedPoints),
      m_bNative(native),
      m_nVersion(version),
      m_strJobPath(std::move(jobPath)) {
  m_Position.subtype = L"KI";
}

void CConvRawDCFile::SetDesignPoints(PointMap jobPoints, PointMap extraPoints) {
  m_JobPoints = std::move(jobPoints);
  m_ExtraPoints = std::move(extraPoints);
}

bool CConvRawDCFile::ConvertToRaw(StringList& /*messages*/) {
  return true;
}

bool CConvRawDCFile::ConvertFromRaw(StringList& messages) {
  CConvertProgress progress;
  progress.Start();
  m_pMessages = &messages;
  m_pDc->SetMessages(&messages);
  m_Index.Build(*m_pRaw);
  ReadDesignPoints();
  WatchNames();
  const std::int64_t length = m_pRaw->GetLength();
  while (m_pRaw->ReadRecord(m_strRecord)) {
    ++m_nLineNumber;
    m_RecordType = CRawFile::GetRecordType(m_strRecord);
    progress.SetPosition(m_pRaw->GetPosition(), length);
    const Outcome outcome = ConvertRecord();
    if (outcome == Outcome::BadRecord) Say(FormatText(kBadRecord, m_nLineNumber));
    if (outcome != Outcome::Done) return false;
    m_PrevRecordType = m_RecordType;
  }
  return Finish();
}

void CConvRawDCFile::ReadDesignPoints() {
  if (!IsJobPath(m_strJobPath)) return;
  if (!ReadJobPoints(m_strJobPath, m_Index.FirstMode().distanceUnit, m_JobPoints)) {
    Say(FormatText(kJobNotRead, m_strJobPath));
  }
}

void CConvRawDCFile::WatchNames() {
  if (m_bWriteUnusedPoints) {
    for (const auto& [name, point] : m_JobPoints) m_Index.AskFor(name);
  }
  m_Names.observed.Watch(m_Index.AskedNames());
  m_Names.gps.Watch(m_Index.AskedNames());
}

Outcome CConvRawDCFile::ConvertRecord() {
  if (m_Stored.pending && !kStakeKinds.Contains(m_RecordType)) {
    const bool deleted = m_Index.IsDeleted(m_Stored.point.m_strName, m_nLineNumber - 1);
    WriteGridPosition(m_Stored.point, deleted);
    m_Stored.pending = false;
  }
  const Handle handle = HandlerOf(m_RecordType);
  return handle ? (this->*handle)() : Outcome::Done;
}

bool CConvRawDCFile::Finish() {
  if (m_Stored.pending) WriteGridPosition(m_Stored.point, false);
  if (!m_Mode.seenMode) {
    Say(std::wstring(kNoMode));
    return false;
  }
  if (m_bWriteUnusedPoints) WriteUnusedPoints();
  return true;
}

void CConvRawDCFile::WriteUnusedPoints() {
  for (const auto& [name, point] : m_JobPoints) {
    if (!IsWritten(name)) WriteGridPosition(point, false);
  }
}

void CConvRawDCFile::Say(std::wstring text) {
  m_pMessages->push_back(std::move(text));
}

bool CConvRawDCFile::IsDeleted(std::wstring_view name) const {
  return m_Index.IsDeleted(name, m_nLineNumber);
}

bool CConvRawDCFile::IsWritten(std::wstring_view name) const {
  return m_Names.observed.Contains(name) || m_Names.gps.Contains(name);
}

bool CConvRawDCFile::IsBacksightName(std::wstring_view name) const {
  return name.starts_with(L"BS") && !m_JobPoints.contains(name);
}

wchar_t CConvRawDCFile::Classify(std::wstring_view name, bool deleted, wchar_t live,
                                 wchar_t dead) const {
  return deleted || (!m_bKeepBacksightClass && IsBacksightName(name)) ? dead : live;
}

void CConvRawDCFile::WriteGridPosition(const CZelPoint& point, bool deleted) {
  m_Position.name = point.m_strName;
  m_Position.north = point.m_dNorth;
  m_Position.east = point.m_dEast;
  m_Position.elevation = point.m_dElevation;
  m_Position.code = point.m_strDescription;
  m_Position.classification = Classify(point.m_strName, deleted);
  m_pDc->WriteGridPosition(m_Position);
}

}  // namespace zelconvert
