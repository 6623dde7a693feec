#include "tools/SourceRecords.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "ilj/CMoskoJobRecord.h"
#include "io/CTextFile.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "job/CJobFile.h"
#include "raw/CRawFile.h"
#include "raw/RawUnits.h"
#include "tools/SourceGps.h"

namespace zelconvert::tools {
namespace {

using platform::kOpenReadOnly;

// ---- Jobs

void AddPoint(const JOB_POINT& record, Survey& survey) {
  SurveyPoint& point = survey.points.emplace_back();
  point.name = Trim(record.name);
  point.code = Trim(record.description);
  point.grid = {record.north, record.east, record.elevation};
}

bool ReadJobPoints(CJobFile& job, Survey& survey) {
  JobKind kind = JobKind::Unused;
  std::int64_t position = 0;
  std::uint32_t length = 0;
  if (!job.SeekToFirstRecord()) return false;
  while (job.ReadNextRecordHead(kind, position, length)) {
    JOB_POINT_EX point;
    const bool isPoint = kind == JobKind::Point;
    const bool isPointEx = kind == JobKind::PointEx;
    const bool read = isPoint     ? job.ReadPoint(point)
                      : isPointEx ? job.ReadPointEx(point)
                                  : job.SkipRecord();
    if (!read) return false;
    if (isPoint || isPointEx) AddPoint(point, survey);
  }
  return true;
}

// ---- Logs

class LogRecords {
 public:
  LogRecords(CRawFile& log, Survey& survey) : m_log(log), m_survey(survey), m_gps(survey) {}

  void Read();

 private:
  void ReadRecord(RawRecordType kind);
  void OnMode();
  void OnPoint();
  void OnStation();
  void OnShot();
  void OnDeleted();
  void MarkDeleted();
  void AddStation();
  SurveyPoint PointOf(const POINT_RECORD& record) const;

  double Metres(double length) const { return ToMetres(length, m_unit); }

  CRawFile& m_log;
  Survey& m_survey;
  SourceGps m_gps;
  std::string_view m_line;
  std::int64_t m_number = 0;
  LinearUnit m_unit = LinearUnit::Metre;
  AngularUnit m_angles = AngularUnit::DegreesMinutesSeconds;
  std::optional<SurveyPoint> m_station;                        // occupied, but not used yet
  std::unordered_set<std::wstring> m_known;                    // names that were told or shot
  std::unordered_map<std::wstring, std::int64_t> m_deletions;  // the last of each name
};

void LogRecords::Read() {
  while (m_log.ReadRecord(m_line)) {
    ++m_number;
    ReadRecord(CRawFile::GetRecordType(m_line));
  }
  MarkDeleted();
}

void LogRecords::ReadRecord(RawRecordType kind) {
  switch (kind) {
    case RawRecordType::Comment:
      return;
    case RawRecordType::MO:
      return OnMode();
    case RawRecordType::SP:
      return OnPoint();
    case RawRecordType::OC:
      return OnStation();
    case RawRecordType::TR:
    case RawRecordType::SS:
      return OnShot();
    case RawRecordType::DP:
      return OnDeleted();
    default:
      return m_gps.Take(kind, m_line, m_number, m_unit);
  }
}

void LogRecords::OnMode() {
  MO_RECORD mode;
  if (!CRawFile::Parse(m_line, mode)) return;
  m_unit = LinearUnitOfRaw(mode.distanceUnit).value_or(LinearUnit::Metre);
  m_angles = AngularUnitOfRaw(mode.angleUnit);
}

void LogRecords::OnPoint() {
  POINT_RECORD record;
  if (!CRawFile::Parse(m_line, record)) return;
  m_survey.points.push_back(PointOf(record));
  m_known.insert(m_survey.points.back().name);
}

SurveyPoint LogRecords::PointOf(const POINT_RECORD& record) const {
  SurveyPoint point;
  AssignUtf8(point.name, Trim(record.name));
  AssignUtf8(point.code, Trim(record.note));
  point.grid = {Metres(record.north), Metres(record.east), Metres(record.elevation)};
  point.line = m_number;
  return point;
}

void LogRecords::OnStation() {
  OC_RECORD record;
  m_station.reset();
  if (CRawFile::Parse(m_line, record)) m_station = PointOf(record);
}

// One that is set up on and never used tells nothing, and one that is known keeps its place.
void LogRecords::AddStation() {
  if (m_station && m_known.insert(m_station->name).second) m_survey.points.push_back(*m_station);
  m_station.reset();
}

void LogRecords::OnShot() {
  SHOT_RECORD record;
  AddStation();
  if (!CRawFile::Parse(m_line, record)) return;
  Shot& shot = m_survey.shots.emplace_back();
  AssignUtf8(shot.station, Trim(record.station));
  AssignUtf8(shot.target, Trim(record.foresight));
  AssignUtf8(shot.code, Trim(record.note));
  shot.scale = DC_NULL;
  shot.line = m_number;
  m_known.insert(shot.target);
  if (record.horizontalKind == HorizontalKind::AngleRight) {
    shot.circle = ToRadians(record.horizontal, m_angles);
  }
  if (record.verticalKind != VerticalKind::Zenith) return;
  shot.zenith = ToRadians(record.vertical, m_angles);
  shot.slopeDistance = Metres(record.distance);
}

void LogRecords::OnDeleted() {
  NAME_RECORD deleted;
  if (CRawFile::Parse(m_line, deleted)) m_deletions[FromUtf8(Trim(deleted.name))] = m_number;
}

// A deletion further on raises the class.
void LogRecords::MarkDeleted() {
  const auto isDeleted = [this](const std::wstring& name, std::int64_t line,
                                wchar_t classification) {
    constexpr int kDeletedClassStep = 5;
    const auto found = m_deletions.find(name);
    const bool isRaised = found != m_deletions.end() && line < found->second;
    return IsDeletedClass(
        static_cast<wchar_t>(classification + (isRaised ? kDeletedClassStep : 0)));
  };
  for (SurveyPoint& point : m_survey.points) {
    point.isDeleted = isDeleted(point.name, point.line, point.classification);
  }
  for (Shot& shot : m_survey.shots) shot.isDeleted = isDeleted(shot.target, shot.line, L'1');
  for (std::size_t i = 0; i < m_survey.vectors.size(); ++i) {
    GpsVector& vector = m_survey.vectors[i];
    vector.isDeleted = isDeleted(vector.rover, vector.line, m_gps.GetClass(i));
  }
}

// ---- Interlock jobs

void ReadIljPoints(CTextFile& ilj, Survey& survey) {
  constexpr std::int32_t kGrid = 9, kFirstDeleted = 6;
  CMoskoJobRecord record;
  std::string_view line;
  for (std::int64_t number = 1; ilj.ReadString(line); ++number) {
    const std::size_t tab = line.find('\t');
    if (tab == line.npos || line.substr(0, tab) != "POINT") continue;
    record.Restart(CMoskoJobRecordPoint::kType);
    if (!record.ParseText(line.substr(tab + 1))) continue;
    CMoskoJobRecordPoint fields(record);
    if (fields.Value<"CDTY">() != kGrid) continue;
    SurveyPoint& point = survey.points.emplace_back();
    point.name = Trim(fields.Value<"PTNM">());
    point.code = Trim(fields.Value<"DESC">());
    if (fields.HasAll<"NRTH">()) point.grid.north = fields.Value<"NRTH">();
    if (fields.HasAll<"EAST">()) point.grid.east = fields.Value<"EAST">();
    if (fields.HasAll<"ELEV">()) point.grid.elevation = fields.Value<"ELEV">();
    point.isDeleted = fields.Value<"CDCL">() >= kFirstDeleted;
    point.line = number;
  }
}

std::wstring LogBeside(const std::wstring& path, std::wstring_view extension) {
  constexpr std::size_t kReplaced = 4;
  return path.substr(0, path.size() - std::min(path.size(), kReplaced)).append(extension);
}

bool ReadLog(const std::wstring& path, Survey& survey) {
  CRawFile log;
  if (!log.Open(path, kOpenReadOnly)) return false;
  LogRecords(log, survey).Read();
  return true;
}

bool ReadByType(const std::wstring& path, Survey& survey) {
  switch (survey.type) {
    case FT_JOB:
    case FT_OLD_JOB:
    case FT_PW_JOB: {
      CJobFile job(HasExtension(path, L".job"));
      return job.Open(path, true) && ReadJobPoints(job, survey);
    }
    case FT_RAW:
    case FT_RW5:
    case FT_PW_RAW:
      return ReadLog(path, survey);
    case FT_CR5_RW5:
      return ReadLog(LogBeside(path, L".rw5"), survey);
    case FT_JOB_RAW:
    case FT_PW_JOB_RAW:
      return ReadLog(LogBeside(path, HasExtension(path, L".job") ? L".raw" : L".pwr"), survey);
    case FT_ILJ: {
      CTextFile ilj(CTextFile::kUtf16LittleEndian);
      ilj.SetAllowUnicode(true);
      if (!ilj.Open(path, kOpenReadOnly)) return false;
      ReadIljPoints(ilj, survey);
      return true;
    }
    default:
      return false;
  }
}

}  // namespace

std::optional<Survey> ReadSourceRecords(const std::wstring& path, FileType type) {
  std::optional<Survey> survey(std::in_place);
  survey->type = type;
  return ReadByType(path, *survey) ? std::move(survey) : std::nullopt;
}

}  // namespace zelconvert::tools
