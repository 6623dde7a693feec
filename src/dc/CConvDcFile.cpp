#include "dc/CConvDcFile.h"

#include "convert/CConvertProgress.h"
#include "dc/DcDialect.h"
#include "dc/DcUnits.h"
#include "dc/WriteCoordinateSystem.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Clock.h"
#include "io/Paths.h"
#include "job/JobUnits.h"

namespace zelconvert {

namespace {

std::wstring JobName(const std::wstring& path) {
  std::wstring name = GetFileName(path);
  if (HasExtensionIgnoringCase(name, L".job") || HasExtensionIgnoringCase(name, L".pwj")) {
    name.resize(name.size() - 4);
  }
  return name;
}

[[nodiscard]] bool HasNoSystem(const CGlkProjectionRecord& system) {
  return (system.zoneName.empty() && system.horizontalType == 0) ||
         (system.horizontalType == 1 && system.verticalType == 0);
}

class JobToDc {
 public:
  /// features: null if no feature records are asked for.
  JobToDc(CJobFile& job, CDcFile& dc, int version, const CFeatureCodeData* features)
      : m_job(job), m_dc(dc), m_version(version), m_features(features) {
    m_position.subtype = L"KI";
  }

  [[nodiscard]] bool Convert() {
    if (DcVersionText(m_version).empty()) return false;
    m_progress.Start();
    if (!m_job.ReadJobHeader(m_settings)) return false;
    WriteHeaderRecords();
    return WriteCoordinateSystemRecords() && WritePoints();
  }

 private:
  // In the order of the file.
  void WriteHeaderRecords() {
    tDC_HEADERRecord header;
    header.version = DcVersionText(m_version);
    header.dateTime = FormatTime(L"m-d-Cy H:M", CurrentLocalTime());
    header.distanceUnit = DcDigit(LengthUnit());
    // A unit above 1 says degrees here, though its angles are written in gons.
    header.angleUnit = m_settings.angleUnit == 1 ? 2 : 1;

    tDC_JOBRecord job;
    job.name = JobName(m_job.GetFile().GetPath());
    const std::uint32_t grid = m_settings.flags & kJobGridMask;
    job.scaleFlag = (m_settings.flags & kJobFlagCurvature) != 0 ? 2 : 1;
    job.gridFlag = grid == kJobGridPlain || grid == kJobGridProjected ? 2 : 1;
    m_dc.Write(header);
    m_dc.Write(job);
  }

  // A system that has no records leaves the file without them; the conversion goes on.
  [[nodiscard]] bool WriteCoordinateSystemRecords() {
    CGlkProjectionRecord system;
    bool hasSystem = false;
    if (m_job.GetVersion() >= kJobVersion) {
      CoordBlock block;
      if (!m_job.ReadCoordBlock(block)) return false;
      system.Unpack(block);
      WriteCogoRecord(&system);
      hasSystem = !HasNoSystem(system);
    } else {
      WriteCogoRecord(nullptr);
      hasSystem = FindOldSystem(system);
    }
    if (!hasSystem) {
      WriteNoCoordinateSystem(m_dc, m_settings.scale);
    } else {
      WriteCoordinateSystem(system, LengthUnit(), AngularUnitOfJob(m_settings.angleUnit), m_dc);
    }
    return true;
  }

  // system: null for a job below version 5, whose grid always grows north and east.
  void WriteCogoRecord(const CGlkProjectionRecord* system) {
    tDC_COGORecord settings;
    settings.azimuthOrigin = (m_settings.flags & kJobFlagSouthAzimuth) != 0 ? 2 : 1;
    if (system != nullptr && system->gridOrientation1 == 1 && system->gridOrientation2 == 1) {
      settings.azimuthOrigin = settings.gridOrientation = 2;
    }
    WriteCogoSettings(m_dc, m_version, settings);
  }

  // The zone that a job below version 5 names by its indices; false if it names none, or none that
  // is known.
  [[nodiscard]] bool FindOldSystem(CGlkProjectionRecord& system) {
    JOB_OLD_HEADER old;
    if ((m_settings.flags & kJobFlagScaleOnly) != 0 || !m_job.ReadOldHeader(old)) return false;
    CGeodeticDllIndices indices;
    indices.Set(old.method, old.coordSystem, old.datum, old.zoneId, old.hemisphere, {}, 0);
    return FillProjectionRecord(indices, system);
  }

  [[nodiscard]] bool WritePoints() {
    const std::int64_t size = m_job.GetFile().GetLength();
    JOB_POINT_EX point;
    JobKind kind = JobKind::Unused;
    std::int64_t position = 0;
    std::uint32_t length = 0;
    if (!m_job.SeekToFirstRecord()) return false;
    while (m_job.ReadNextRecordHead(kind, position, length)) {
      m_progress.SetPosition(position, size);
      point.attributeLink = 0;  // the old form has none
      const bool done =
          IsPoint(kind) ? m_job.ReadAnyPoint(point) && WritePoint(point) : m_job.SkipRecord();
      if (!done) return false;
    }
    return true;
  }

  [[nodiscard]] bool WritePoint(const JOB_POINT& point) {
    m_position.name = Left(point.name, kJobNameLength);
    m_position.code = Left(point.description, kJobNameLength);
    const LinearUnit unit = LengthUnit();
    m_position.north = FromMetres(point.north, unit);
    m_position.east = FromMetres(point.east, unit);
    m_position.elevation = FromMetres(point.elevation, unit);
    m_dc.Write(m_position);
    if (m_features == nullptr || point.attributeLink == 0) return true;

    const std::int64_t next = m_job.GetFile().GetPosition();
    FEATURE_SET features;
    const bool known = ReadFeatureData(point.attributeLink, features);
    if (known) WriteFeatureRecords(features);
    return m_job.SeekTo(next);
  }

  // False if there is no attribute block at `link`, or the feature library doesn't know it.
  [[nodiscard]] bool ReadFeatureData(std::uint32_t link, FEATURE_SET& features) {
    JOB_GENERIC_RECORD block;
    if (!m_job.SeekTo(link)) return false;
    JobKind kind = JobKind::Unused;
    std::int64_t position = 0;
    std::uint32_t length = 0;
    return m_job.ReadNextRecordHead(kind, position, length) && kind == JobKind::Attributes &&
           m_job.ReadGenericRecord(block) && m_features->Decode(block.data, features);
  }

  void WriteFeatureRecords(const FEATURE_SET& features) {
    tDC_FEATURE_CODERecord code;
    code.code = features.code;
    m_dc.Write(code);
    for (const FEATURE_ATTRIBUTE& attribute : features.attributes) {
      if (attribute.kind == kAttributesEnd) break;
      WriteFeatureAttribute(attribute);
    }
  }

  void WriteFeatureAttribute(const FEATURE_ATTRIBUTE& attribute) {
    const std::wstring name = attribute.name + L"?";
    if (attribute.kind == kAttributeText) {
      tDC_FEATURE_TEXTRecord record;
      record.name = name;
      record.value = attribute.value;
      m_dc.Write(record);
    } else if (attribute.kind == kAttributeNumber) {
      tDC_FEATURE_NUMBERRecord record;
      record.name = name;
      record.value = attribute.number;
      m_dc.Write(record);
    } else if (attribute.kind == kAttributeList) {
      tDC_FEATURE_LISTRecord record;
      record.name = name;
      record.value = attribute.value;
      if (!attribute.valueExtra.empty()) record.value.append(L"/").append(attribute.valueExtra);
      record.index = attribute.index;
      m_dc.Write(record);
    }
  }

  LinearUnit LengthUnit() const { return LinearUnitOfJob(m_settings.distanceUnit); }

  CJobFile& m_job;
  CDcFile& m_dc;
  int m_version;
  const CFeatureCodeData* m_features;
  CConvertProgress m_progress;
  JOB_HEADER m_settings;
  tDC_GRID_POSITIONRecord m_position;  // the point being written; its memory is reused
};

}  // namespace

bool CConvDcFile::ConvertFromNative(Report& report) {
  m_pFile1->SetMessages(&report.messages);
  return JobToDc(*m_pFile2, *m_pFile1, m_nVersion, m_pFeatureData.get()).Convert();
}

}  // namespace zelconvert
