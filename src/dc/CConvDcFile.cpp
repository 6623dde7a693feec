#include "dc/CConvDcFile.h"

#include <utility>

#include "convert/CConvertProgress.h"
#include "dc/DcDialect.h"
#include "dc/JobUnits.h"
#include "dc/WriteCoordinateSystem.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "io/Clock.h"
#include "io/Paths.h"

namespace zelconvert {

namespace {

// Job flags.
constexpr std::uint32_t kFlagScaled = 0x01;  // below version 5: a scale, no projection
constexpr std::uint32_t kFlagSouthAzimuth = 0x02;
constexpr std::uint32_t kFlagCurvature = 0x04;
constexpr std::uint32_t kGridMask = 0x38;
constexpr std::uint32_t kGridPlain = 0x10;
constexpr std::uint32_t kGridProjected = 0x18;

// "%m-%d-%Y %H:%M"
std::wstring FormatDateTime(const platform::LocalTime& time) {
  std::wstring text;
  const auto append = [&text](int value, std::size_t digits, std::wstring_view behind) {
    const std::wstring number = FormatInteger(value);
    if (number.size() < digits) text.append(digits - number.size(), L'0');
    text.append(number).append(behind);
  };
  append(time.month, 2, L"-");
  append(time.day, 2, L"-");
  append(time.year, 4, L" ");
  append(time.hour, 2, L":");
  append(time.minute, 2, L"");
  return text;
}

/// The digit of a unit in the header: 1 for the unit 0, and for units that the header doesn't know.
std::int32_t UnitDigit(int unit, int units) {
  return unit < units ? unit + 1 : 1;
}

std::wstring JobName(const std::wstring& path) {
  std::wstring name = GetFileName(path);
  if (HasExtensionIgnoringCase(name, L".job") || HasExtensionIgnoringCase(name, L".pwj")) {
    name.resize(name.size() - 4);
  }
  return name;
}

bool HasNoSystem(const CGlkProjectionRecord& system) {
  return (system.zoneName.empty() && system.horizontalType == 0) ||
         (system.horizontalType == 1 && system.verticalType == 0);
}

}  // namespace

CConvDcFile::CConvDcFile(CDcFile* dcFile, CJobFile* jobFile, int version)
    : CConvFile(dcFile, jobFile),
      m_nVersion(version),
      m_pFeatureData(std::make_unique<CFeatureCodeData>()) {
  m_Position.subtype = L"KI";
}

CConvDcFile::~CConvDcFile() = default;

void CConvDcFile::SetFeatureData(std::unique_ptr<CFeatureCodeData> data) {
  m_pFeatureData = std::move(data);
  m_bFeatureData = m_pFeatureData != nullptr;
}

bool CConvDcFile::ConvertFromNative(StringList& messages, StringList& /*files*/) {
  if (DcVersionText(m_nVersion).empty()) return false;
  m_pFile1->SetMessages(&messages);
  CConvertProgress progress;
  progress.Start();
  return m_pFile2->ReadJobHeader(m_JobHeader) && WriteHeaderRecords() &&
         WriteCoordinateSystemRecords() && WritePoints(progress);
}

bool CConvDcFile::WriteHeaderRecords() {
  tDC_HEADERRecord header;
  header.version = DcVersionText(m_nVersion);
  header.dateTime = FormatDateTime(CurrentLocalTime());
  header.distanceUnit = UnitDigit(m_JobHeader.distanceUnit, 3);
  header.angleUnit = UnitDigit(m_JobHeader.angleUnit, 2);

  tDC_JOBRecord job;
  job.name = JobName(m_pFile2->GetFile().GetPath());
  const std::uint32_t grid = m_JobHeader.flags & kGridMask;
  job.scaleFlag = (m_JobHeader.flags & kFlagCurvature) != 0 ? 2 : 1;
  job.gridFlag = grid == kGridPlain || grid == kGridProjected ? 2 : 1;
  return m_pFile1->WriteHeader(header) && m_pFile1->WriteJob(job);
}

// A system that has no records leaves the file without them; the conversion goes on.
bool CConvDcFile::WriteCoordinateSystemRecords() {
  CGlkProjectionRecord system;
  bool hasSystem = false;
  if (m_pFile2->GetVersion() >= kJobVersion) {
    CoordBlock block;
    if (!m_pFile2->ReadCoordBlock(block)) return false;
    system.Unpack(block);
    if (!WriteCogoRecord(&system)) return false;
    hasSystem = !HasNoSystem(system);
  } else {
    if (!WriteCogoRecord(nullptr)) return false;
    hasSystem = FindOldSystem(system);
  }
  if (!hasSystem) return WriteNoCoordinateSystem(*m_pFile1, m_JobHeader.scale);
  WriteCoordinateSystem(system, m_JobHeader.distanceUnit, m_JobHeader.angleUnit, *m_pFile1);
  return true;
}

// system: null for a job below version 5, whose grid always grows north and east.
bool CConvDcFile::WriteCogoRecord(const CGlkProjectionRecord* system) {
  tDC_COGORecord settings;
  settings.azimuthOrigin = (m_JobHeader.flags & kFlagSouthAzimuth) != 0 ? 2 : 1;
  if (system != nullptr && system->gridOrientation1 == 1 && system->gridOrientation2 == 1) {
    settings.azimuthOrigin = settings.gridOrientation = 2;
  }
  return WriteCogoSettings(*m_pFile1, m_nVersion, settings);
}

// The zone that a job below version 5 names by its indices; false if it names none, or none that is
// known.
bool CConvDcFile::FindOldSystem(CGlkProjectionRecord& system) {
  JOB_OLD_HEADER old;
  if ((m_JobHeader.flags & kFlagScaled) != 0 || !m_pFile2->ReadOldHeader(old)) return false;
  CGeodeticDllIndices indices;
  indices.Set(old.method, old.coordSystem, old.datum, old.zoneId, old.hemisphere, {}, 0);
  return FillProjectionRecord(indices, system);
}

bool CConvDcFile::WritePoints(CConvertProgress& progress) {
  const std::int64_t size = m_pFile2->GetFile().GetLength();
  JOB_POINT point;
  JOB_POINT_EX pointEx;
  JobKind kind = JobKind::Unused;
  std::int64_t position = 0;
  std::uint32_t length = 0;
  if (!m_pFile2->SeekToFirstRecord()) return false;
  while (m_pFile2->ReadNextRecordHead(kind, position, length)) {
    progress.SetPosition(position, size);
    bool done = false;
    if (kind == JobKind::Point) {
      point.attributeLink = 0;  // the old form has none
      done = m_pFile2->ReadPoint(point) && WritePoint(point);
    } else if (kind == JobKind::PointEx) {
      pointEx.attributeLink = 0;
      done = m_pFile2->ReadPointEx(pointEx) && WritePoint(pointEx);
    } else {
      done = m_pFile2->SkipRecord();
    }
    if (!done) return false;
  }
  return true;
}

bool CConvDcFile::WritePoint(const JOB_POINT& point) {
  m_Position.name = Left(point.name, kJobNameLength);
  m_Position.code = Left(point.description, kJobNameLength);
  m_Position.north = FromMeters(point.north, m_JobHeader.distanceUnit);
  m_Position.east = FromMeters(point.east, m_JobHeader.distanceUnit);
  m_Position.elevation = FromMeters(point.elevation, m_JobHeader.distanceUnit);
  if (!m_pFile1->WriteGridPosition(m_Position)) return false;
  if (!m_bFeatureData || point.attributeLink == 0) return true;

  const std::int64_t next = m_pFile2->GetFile().GetPosition();
  FEATURE_SET features;
  const bool known = ReadFeatureData(point.attributeLink, features);
  if (!m_pFile2->SeekTo(next)) return false;
  return !known || WriteFeatureRecords(features);
}

// False if there is no attribute block at `link`, or the feature library doesn't know it.
bool CConvDcFile::ReadFeatureData(std::uint32_t link, FEATURE_SET& features) {
  JOB_GENERIC_RECORD block;
  if (!m_pFile2->SeekTo(link)) return false;
  if (m_pFile2->GetVersion() < kJobVersion) {
    return m_pFile2->ReadBlockAtPosition(block) && m_pFeatureData->Decode(block.data, features);
  }
  JobKind kind = JobKind::Unused;
  std::int64_t position = 0;
  std::uint32_t length = 0;
  return m_pFile2->ReadNextRecordHead(kind, position, length) && kind == JobKind::Attributes &&
         m_pFile2->ReadGenericRecord(block) && m_pFeatureData->Decode(block.data, features);
}

bool CConvDcFile::WriteFeatureRecords(const FEATURE_SET& features) {
  tDC_FEATURE_CODERecord code;
  code.code = features.code;
  if (!m_pFile1->WriteFeatureCode(code)) return false;
  for (const FEATURE_ATTRIBUTE& attribute : features.attributes) {
    if (attribute.kind == kAttributesEnd) break;
    if (!WriteFeatureAttribute(attribute)) return false;
  }
  return true;
}

bool CConvDcFile::WriteFeatureAttribute(const FEATURE_ATTRIBUTE& attribute) {
  const std::wstring name = attribute.name + L"?";
  if (attribute.kind == kAttributeText) {
    tDC_FEATURE_TEXTRecord record;
    record.name = name;
    record.value = attribute.value;
    return m_pFile1->WriteFeatureText(record);
  }
  if (attribute.kind == kAttributeNumber) {
    tDC_FEATURE_NUMBERRecord record;
    record.name = name;
    record.value = attribute.number;
    return m_pFile1->WriteFeatureNumber(record);
  }
  if (attribute.kind == kAttributeList) {
    tDC_FEATURE_LISTRecord record;
    record.name = name;
    record.value = attribute.value;
    if (!attribute.valueExtra.empty()) record.value.append(L"/").append(attribute.valueExtra);
    record.index = attribute.index;
    return m_pFile1->WriteFeatureList(record);
  }
  return true;
}

}  // namespace zelconvert
