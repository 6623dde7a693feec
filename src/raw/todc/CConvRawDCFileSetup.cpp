// Job, mode, and the records that set the instrument up.
#include "io/Numbers.h"
#include "io/Strings.h"
#include "raw/todc/CConvRawDCFile.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kConflictingModes =
    L"Warning: There are conflicting MO records in the raw data file. The most recent has been "
    L"used.";

/// What a data collector calls itself, by the version of the DC file.
constexpr std::wstring_view kVersionWords[] = {L"FX V07-50", L"FX V07-70", L"FX V10-70",
                                               L"FX V10-70"};
/// Versions from here on have record 78 in place of D4.
constexpr int kFirstCogoVersion = 2;

/// DC header digits by AU and UN; a unit that a log can't have keeps the header's default.
constexpr std::int32_t kAngleDigits[] = {1, 2};
constexpr std::int32_t kDistanceDigits[] = {2, 1, 3};

template <std::size_t N>
std::int32_t Digit(const std::int32_t (&digits)[N], std::int32_t unit) {
  return unit >= 0 && unit < static_cast<std::int32_t>(N) ? digits[unit] : 1;
}

/// A backsight point that the log doesn't name.
constexpr std::wstring_view kNamelessBacksight = L"0";

}  // namespace

Outcome CConvRawDCFile::OnJob() {
  JB_RECORD job;
  if (!CRawFile::ParseJB(m_strRecord, job)) return Outcome::BadRecord;
  m_Mode.jobName = job.name;
  m_Mode.date = job.date;
  m_Mode.time = job.time;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnMode() {
  MO_RECORD mode;
  if (!CRawFile::ParseMO(m_strRecord, mode)) return Outcome::BadRecord;
  const std::int32_t azimuthOrigin = mode.azimuthOrigin == 1 ? 2 : 1;
  if (m_Mode.seenMode) {
    if (!m_Mode.conflictReported) Say(std::wstring(kConflictingModes));
    m_Mode.conflictReported = true;
    WriteCogo(azimuthOrigin, 1);
  } else {
    if (!WriteHeader(mode)) return Outcome::Failed;
    WriteJob(mode);
    WriteCogo(azimuthOrigin, 1);
    if (!m_Index.HasLocalization()) WriteDefaultSystem();
  }
  m_Mode.SetUnits(mode);
  return Outcome::Done;
}

bool CConvRawDCFile::WriteHeader(const MO_RECORD& mode) {
  if (m_nVersion < 0 || m_nVersion >= static_cast<int>(std::size(kVersionWords))) return false;
  tDC_HEADERRecord header;
  header.version = kVersionWords[m_nVersion];
  header.dateTime.append(m_Mode.date).append(L" ").append(Left(m_Mode.time, 5));
  header.angleUnit = Digit(kAngleDigits, mode.angleUnit);
  header.distanceUnit = Digit(kDistanceDigits, mode.distanceUnit);
  m_pDc->WriteHeader(header);
  return true;
}

void CConvRawDCFile::WriteJob(const MO_RECORD& mode) {
  const MO_RECORD& first = m_Index.FirstMode();
  tDC_JOBRecord job;
  job.name = m_Mode.jobName;
  job.scaleFlag = first.curvature == 1 ? 2 : 1;
  job.gridFlag = first.scaleMode == 2 || first.scaleMode == 3 ? 2 : 1;
  m_pDc->WriteJob(job);

  tDC_OFFSET_SETTINGRecord offset;
  offset.value = mode.edmOffset;
  m_pDc->WriteOffsetSetting(offset);
}

void CConvRawDCFile::WriteCogo(std::int32_t azimuthOrigin, std::int32_t gridOrientation) {
  if (m_nVersion >= kFirstCogoVersion) {
    tDC_COGORecord cogo;
    cogo.azimuthOrigin = azimuthOrigin;
    cogo.gridOrientation = gridOrientation;
    m_pDc->WriteCogo(cogo);
  } else {
    tDC_COGO_OLDRecord cogo;
    cogo.azimuthOrigin = azimuthOrigin;
    cogo.gridOrientation = gridOrientation;
    m_pDc->WriteCogoOld(cogo);
  }
}

void CConvRawDCFile::WriteDefaultSystem() {
  tDC_ELLIPSOIDRecord ellipsoid;
  ellipsoid.semiMajorAxis = DC_NULL;
  ellipsoid.inverseFlattening = DC_NULL;
  m_pDc->WriteEllipsoid(ellipsoid);

  tDC_PROJECTIONRecord projection;
  projection.originLatitude = DC_NULL;
  projection.originLongitude = DC_NULL;
  projection.originNorthing = DC_NULL;
  projection.falseNorthing = DC_NULL;
  projection.falseEasting = DC_NULL;
  projection.originEasting = DC_NULL;
  projection.scale = m_Index.FirstMode().scale;
  projection.parallel1 = DC_NULL;
  projection.parallel2 = DC_NULL;
  m_pDc->WriteProjection(projection);

  tDC_COORDINATE_SYSTEMRecord system;
  system.systemKind = 2;
  m_pDc->WriteCoordinateSystem(system);
}

Outcome CConvRawDCFile::OnOccupy() {
  POINT_RECORD point;
  if (!CRawFile::ParseOC(m_strRecord, point)) return Outcome::BadRecord;
  m_Setup.station = point.name;
  if (m_Index.OccupyIsSuperseded(m_nLineNumber)) return Outcome::Done;
  m_Setup.occupiedPoint = ToPoint(point);
  m_Setup.occupied = true;
  if (!IsWritten(point.name)) WriteGridPosition(m_Setup.occupiedPoint, false);
  FindHeights(point.name);
  WriteStation(point.name);
  m_Rounds.Clear();
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnBacksight() {
  BK_RECORD backsight;
  if (!CRawFile::ParseBK(m_strRecord, backsight)) return Outcome::BadRecord;
  if (m_Index.BacksightIsSuperseded(m_nLineNumber)) return Outcome::Done;
  m_Setup.backsightAzimuth = m_Mode.Angle(backsight.azimuth);
  m_Setup.circle = m_Mode.Angle(backsight.circle);
  m_Setup.station = backsight.station;
  m_Setup.backsight = Trim(backsight.backsight);
  if (m_Setup.backsight == kNamelessBacksight) m_Setup.backsight = NextBacksightName();
  if (!m_Setup.occupied) {
    FindHeights(backsight.station);
    m_Setup.occupiedPoint.m_strName = backsight.station;
    WriteStation(backsight.station);
  }
  WriteOrientation(m_Setup.backsightAzimuth);
  return Outcome::Done;
}

std::wstring CConvRawDCFile::NextBacksightName() {
  std::wstring name;
  do {
    name = L"BS";
    AppendInteger(name, m_Setup.nextBacksightNumber++);
  } while (m_JobPoints.contains(name));
  return name;
}

Outcome CConvRawDCFile::OnLineOfSight() {
  LS_RECORD heights;
  if (!CRawFile::ParseLS(m_strRecord, heights)) return Outcome::BadRecord;
  const double height = m_Mode.Length(heights.instrumentHeight);
  const bool changed = height != m_Setup.instrumentHeight;
  m_Setup.instrumentHeight = height;
  m_Setup.rodHeight = m_Mode.Length(heights.rodHeight);
  WriteRodHeight(m_Setup.rodHeight);
  if (changed && !m_Setup.firstLineOfSight && !m_Index.OccupyIsSuperseded(m_nLineNumber)) {
    WriteStation(m_Setup.station);
    WriteOrientation(DC_NULL);
  }
  m_Setup.firstLineOfSight = false;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnComment() {
  tDC_NOTERecord note;
  note.text = std::wstring_view(m_strRecord).substr(2);
  m_pDc->WriteNote(note);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnStoredPoint() {
  POINT_RECORD point;
  if (!CRawFile::ParseSP(m_strRecord, point)) return Outcome::BadRecord;
  m_Stored.point = ToPoint(point);
  m_Stored.name = point.name;
  m_Stored.pending = true;
  return Outcome::Done;
}

CZelPoint CConvRawDCFile::ToPoint(const POINT_RECORD& point) const {
  return {std::wstring(point.name), m_Mode.Length(point.north), m_Mode.Length(point.east),
          m_Mode.Length(point.elevation), std::wstring(point.note)};
}

/// Takes the instrument height that goes with the setup at hand from the records after it.
void CConvRawDCFile::FindHeights(std::wstring_view name) {
  const HeightsAhead* ahead = m_Index.FindHeights(m_nLineNumber, m_RecordType, name);
  if (ahead == nullptr) return;
  m_Setup.instrumentHeight = LengthInUnit(ahead->heights.instrumentHeight,
                                          m_Index.FirstMode().distanceUnit, ahead->distanceUnit);
}

void CConvRawDCFile::WriteStation(std::wstring_view name) {
  tDC_STATION_EXTRecord station;
  station.name = name;
  station.height = m_Setup.instrumentHeight;
  m_pDc->WriteStationExt(station);
}

/// The backsight and its observation, and the rod height that holds from then on.
void CConvRawDCFile::WriteOrientation(double azimuth) {
  tDC_BACKSIGHT_EXTRecord backsight;
  backsight.from = m_Setup.station;
  backsight.to = m_Setup.backsight;
  backsight.angle1 = azimuth;
  backsight.angle2 = m_Setup.circle;
  m_pDc->WriteBacksightExt(backsight);
  WriteRodHeight(DC_NULL);

  tDC_OBSERVATION_TEXTRecord observation;
  observation.from = m_Setup.station;
  observation.to = m_Setup.backsight;
  observation.angle2 = FormatDcNumber(m_Setup.circle, 5);
  observation.classification = L'5';
  m_pDc->WriteObservationText(observation);
  WriteRodHeight(m_Setup.rodHeight);
}

void CConvRawDCFile::WriteRodHeight(double height) {
  m_RodHeight.scale = height;
  m_pDc->WriteScale(m_RodHeight);
}

}  // namespace zelconvert
