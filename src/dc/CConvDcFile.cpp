#include "dc/CConvDcFile.h"

#include <utility>

#include "convert/CConvertProgress.h"
#include "dc/DcDialect.h"
#include "dc/DcUnits.h"
#include "dc/WriteCoordinateSystem.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "io/Clock.h"
#include "io/Paths.h"
#include "job/JobUnits.h"

namespace zelconvert {

namespace {

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

bool CConvDcFile::ConvertFromNative(Report& report) {
  if (DcVersionText(m_nVersion).empty()) return false;
  m_pFile1->SetMessages(&report.messages);
  CConvertProgress progress;
  progress.Start();
  if (!m_pFile2->ReadJobHeader(m_JobHeader)) return false;
  WriteHeaderRecords();
  return WriteCoordinateSystemRecords() && WritePoints(progress);
}

void CConvDcFile::WriteHeaderRecords() {
  tDC_HEADERRecord header;
  header.version = DcVersionText(m_nVersion);
  header.dateTime = FormatDateTime(CurrentLocalTime());
  header.distanceUnit = DcDigit(LinearUnitOfJob(m_JobHeader.distanceUnit));
  // A unit above 1 says degrees here, though its angles are written in gons.
  header.angleUnit = m_JobHeader.angleUnit == 1 ? 2 : 1;

  tDC_JOBRecord job;
  job.name = JobName(m_pFile2->GetFile().GetPath());
  const std::uint32_t grid = m_JobHeader.flags & kJobGridMask;
  job.scaleFlag = (m_JobHeader.flags & kJobFlagCurvature) != 0 ? 2 : 1;
  job.gridFlag = grid == kJobGridPlain || grid == kJobGridProjected ? 2 : 1;
  m_pFile1->Write(header);
  m_pFile1->Write(job);
}

// A system that has no records leaves the file without them; the conversion goes on.
bool CConvDcFile::WriteCoordinateSystemRecords() {
  CGlkProjectionRecord system;
  bool hasSystem = false;
  if (m_pFile2->GetVersion() >= kJobVersion) {
    CoordBlock block;
    if (!m_pFile2->ReadCoordBlock(block)) return false;
    system.Unpack(block);
    WriteCogoRecord(&system);
    hasSystem = !HasNoSystem(system);
  } else {
    WriteCogoRecord(nullptr);
    hasSystem = FindOldSystem(system);
  }
  if (!hasSystem) {
    WriteNoCoordinateSystem(*m_pFile1, m_JobHeader.scale);
  } else {
    WriteCoordinateSystem(system, LinearUnitOfJob(m_JobHeader.distanceUnit),
                          AngularUnitOfJob(m_JobHeader.angleUnit), *m_pFile1);
  }
  return true;
}

// system: null for a job below version 5, whose grid always grows north and east.
void CConvDcFile::WriteCogoRecord(const CGlkProjectionRecord* system) {
  tDC_COGORecord settings;
  settings.azimuthOrigin = (m_JobHeader.flags & kJobFlagSouthAzimuth) != 0 ? 2 : 1;
  if (system != nullptr && system->gridOrientation1 == 1 && system->gridOrientation2 == 1) {
    settings.azimuthOrigin = settings.gridOrientation = 2;
  }
  WriteCogoSettings(*m_pFile1, m_nVersion, settings);
}

// The zone that a job below version 5 names by its indices; false if it names none, or none that is
// known.
bool CConvDcFile::FindOldSystem(CGlkProjectionRecord& system) {
  JOB_OLD_HEADER old;
  if ((m_JobHeader.flags & kJobFlagScaleOnly) != 0 || !m_pFile2->ReadOldHeader(old)) return false;
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
  const LinearUnit unit = LinearUnitOfJob(m_JobHeader.distanceUnit);
  m_Position.north = FromMetres(point.north, unit);
  m_Position.east = FromMetres(point.east, unit);
  m_Position.elevation = FromMetres(point.elevation, unit);
  m_pFile1->Write(m_Position);
  if (!m_bFeatureData || point.attributeLink == 0) return true;

  const std::int64_t next = m_pFile2->GetFile().GetPosition();
  FEATURE_SET features;
  const bool known = ReadFeatureData(point.attributeLink, features);
  if (known) WriteFeatureRecords(features);
  return m_pFile2->SeekTo(next);
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

void CConvDcFile::WriteFeatureRecords(const FEATURE_SET& features) {
  tDC_FEATURE_CODERecord code;
  code.code = features.code;
  m_pFile1->Write(code);
  for (const FEATURE_ATTRIBUTE& attribute : features.attributes) {
    if (attribute.kind == kAttributesEnd) break;
    WriteFeatureAttribute(attribute);
  }
}

void CConvDcFile::WriteFeatureAttribute(const FEATURE_ATTRIBUTE& attribute) {
  const std::wstring name = attribute.name + L"?";
  if (attribute.kind == kAttributeText) {
    tDC_FEATURE_TEXTRecord record;
    record.name = name;
    record.value = attribute.value;
    m_pFile1->Write(record);
  } else if (attribute.kind == kAttributeNumber) {
    tDC_FEATURE_NUMBERRecord record;
    record.name = name;
    record.value = attribute.number;
    m_pFile1->Write(record);
  } else if (attribute.kind == kAttributeList) {
    tDC_FEATURE_LISTRecord record;
    record.name = name;
    record.value = attribute.value;
    if (!attribute.valueExtra.empty()) record.value.append(L"/").append(attribute.valueExtra);
    record.index = attribute.index;
    m_pFile1->Write(record);
  }
}

}  // namespace zelconvert
