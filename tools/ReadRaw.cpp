#include "tools/ReadRaw.h"

#include <cmath>
#include <optional>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "io/Strings.h"
#include "raw/GpsSignature.h"
#include "raw/RawUnits.h"
#include "tools/Dates.h"
#include "tools/RecordCounts.h"

namespace zelconvert::tools {
namespace {

constexpr std::size_t kTwoCharacters = 8;  // bytes of UTF-8, at most
constexpr std::string_view kDateComment = "Date:";

class LogReader {
 public:
  LogReader(CRawFile& log, Survey& survey) : m_log(log), m_survey(survey) {}

  LogFacts Read();

 private:
  void ReadRecord(RawRecordType kind);
  void OnJob();
  void OnMode();
  void OnComment();
  void OnOccupied();
  void OnBacksight();
  template <class Record>
  void OnShot(std::string_view Record::*target);
  void OnTraverse();
  template <class Record>
  void OnRound();
  void OnPoint();
  void OnBase();
  void OnGpsPoint();
  void OnReceiver();
  void OnEquipment();
  void OnPosition();
  void OnVector();
  void OnQuality();
  void OnDeleted();
  void MarkDeleted();

  static double Finite(double value) { return std::isfinite(value) ? value : DC_NULL; }
  double Metres(double length) const { return Finite(m_unit ? ToMetres(length, *m_unit) : length); }
  GridPosition Grid(const POINT_RECORD& point) const {
    return {Metres(point.north), Metres(point.east), Metres(point.elevation)};
  }
  template <class Record>
  GeodeticPosition Geodetic(const Record& position) const;
  SourceMark Here() const { return {m_line, m_scale, m_signature, {}}; }

  CRawFile& m_log;
  Survey& m_survey;
  LogFacts m_facts;
  std::string_view m_record;  // the line at hand
  std::int64_t m_line = 0;

  bool m_hasMode = false;
  std::optional<LinearUnit> m_unit = LinearUnit::Metre;
  double m_scale = 1;
  std::wstring m_occupied;

  bool m_isAfterReceiver = false;
  std::string m_rover;  // the RX of a rover; empty: another receiver
  Signature m_signature = Signature::NotAsked;
  GeodeticPosition m_position;  // of the latest EP, until a point is stored
  std::wstring m_vectorTarget;  // of the latest BL, likewise
  std::unordered_map<std::wstring, std::int64_t> m_deletions;  // the last of each name
};

LogFacts LogReader::Read() {
  RecordCounter counter(m_survey);
  m_log.SeekToBegin();
  while (m_log.ReadRecord(m_record)) {
    ++m_line;
    if (Trim(m_record).empty()) continue;
    counter.Count(Left(FromUtf8(m_record.substr(0, kTwoCharacters)), 2));
    const RawRecordType kind = CRawFile::GetRecordType(m_record);
    ReadRecord(kind);
    m_isAfterReceiver = kind == RawRecordType::RX;
  }
  MarkDeleted();
  return std::move(m_facts);
}

void LogReader::ReadRecord(RawRecordType kind) {
  switch (kind) {
    case RawRecordType::Comment:
      return OnComment();
    case RawRecordType::JB:
      return OnJob();
    case RawRecordType::MO:
      return OnMode();
    case RawRecordType::OC:
      return OnOccupied();
    case RawRecordType::BK:
      return OnBacksight();
    case RawRecordType::TR:
      return OnTraverse();
    case RawRecordType::SS:
      return OnShot(&SHOT_RECORD::foresight);
    case RawRecordType::SK:
      return OnShot(&STAKE_SHOT_RECORD::foresight);
    case RawRecordType::GO:
      return OnShot(&GO_RECORD::name);
    case RawRecordType::RB:
      return OnRound<ROUND_BACKSIGHT_RECORD>();
    case RawRecordType::RF:
      return OnRound<ROUND_FORESIGHT_RECORD>();
    case RawRecordType::SP:
    case RawRecordType::RP:
      return OnPoint();
    case RawRecordType::BP:
      return OnBase();
    case RawRecordType::GS:
      return OnGpsPoint();
    case RawRecordType::RX:
      return OnReceiver();
    case RawRecordType::EQ:
      return OnEquipment();
    case RawRecordType::EP:
      return OnPosition();
    case RawRecordType::BL:
      return OnVector();
    case RawRecordType::GQ:
      return OnQuality();
    case RawRecordType::DP:
      return OnDeleted();
    default:
      return;
  }
}

// ---- Job and mode

void LogReader::OnJob() {
  JB_RECORD job;
  std::ignore = CRawFile::Parse(m_record, job);
  if (m_survey.job.empty()) AssignUtf8(m_survey.job, Trim(job.name));
  TakeDate(m_survey, ParseDate(FromUtf8(job.date)));
}

void LogReader::OnMode() {
  MO_RECORD mode;
  if (!CRawFile::Parse(m_record, mode)) return;
  const std::optional<LinearUnit> unit = LinearUnitOfRaw(mode.distanceUnit);
  const AngularUnit angles = AngularUnitOfRaw(mode.angleUnit);
  if (m_hasMode && (unit != m_unit || angles != m_survey.angleUnit)) {
    m_survey.unitChanges.push_back({unit.value_or(LinearUnit::Metre), angles, m_line});
  }
  m_hasMode = true;
  m_unit = unit;
  m_survey.angleUnit = angles;  // the latest, until the DC file tells the first
  m_scale = std::isfinite(mode.scale) ? NullToOne(mode.scale) : 1;
}

void LogReader::OnComment() {
  const std::string_view text = Trim(m_record.substr(2));
  if (text.starts_with(kDateComment)) {
    TakeDate(m_survey, ParseDate(FromUtf8(text.substr(kDateComment.size()))));
  }
  m_survey.notes.push_back({FromUtf8(text), m_line});
}

// ---- Setups and shots

void LogReader::OnOccupied() {
  OC_RECORD point;
  if (!CRawFile::Parse(m_record, point)) return;
  SourceMark mark = Here();
  mark.position = Grid(point);
  AssignUtf8(m_occupied, Trim(point.name));
  m_facts.source.stations.Add(m_occupied, mark);
  m_facts.source.points.Add(m_occupied, mark);
}

void LogReader::OnBacksight() {
  BK_RECORD backsight;
  if (!CRawFile::Parse(m_record, backsight)) return;
  const std::wstring station = FromUtf8(Trim(backsight.station));
  if (station != m_occupied) m_facts.source.stations.Add(station, Here());
}

template <class Record>
void LogReader::OnShot(std::string_view Record::*target) {
  Record shot;
  if (CRawFile::Parse(m_record, shot)) m_facts.source.shots.Add(FromUtf8(shot.*target), Here());
}

void LogReader::OnTraverse() {
  SHOT_RECORD shot;
  if (!CRawFile::Parse(m_record, shot)) return;
  const std::wstring foresight = FromUtf8(shot.foresight);
  m_facts.source.shots.Add(foresight, Here());
  m_facts.source.stations.Add(foresight, Here());
}

template <class Record>
void LogReader::OnRound() {
  Record round;
  if (!CRawFile::Parse(m_record, round)) return;
  const AngularUnit angles = m_survey.angleUnit;
  Shot shot;
  AssignUtf8(shot.station, Trim(round.station));
  AssignUtf8(shot.target, Trim(round.target));
  AssignUtf8(shot.code, Trim(round.note));
  shot.kind = ShotKind::Round;
  shot.circle = Finite(ToRadians(round.angleRight, angles));
  shot.zenith = Finite(ToRadians(round.zenith, angles));
  shot.slopeDistance = Metres(round.slopeDistance);
  shot.targetHeight = Metres(round.rodHeight);
  shot.scale = m_scale;
  shot.line = m_line;
  m_facts.rounds.push_back(std::move(shot));
}

void LogReader::OnPoint() {
  POINT_RECORD point;
  if (CRawFile::Parse(m_record, point)) m_facts.source.points.Add(FromUtf8(point.name), Here());
}

// ---- GPS

void LogReader::OnReceiver() {
  RX_RECORD receiver;
  if (!CRawFile::Parse(m_record, receiver)) return;
  m_signature = Signature::NotAsked;
  m_position = {};
  m_vectorTarget.clear();
  m_rover = receiver.role == "ROVER" ? m_record : std::string_view();
}

// The equipment right after a rover's receiver is signed.
void LogReader::OnEquipment() {
  if (!m_isAfterReceiver || m_rover.empty()) return;
  std::string_view equipment = m_record;
  m_signature = TestGpsSignature(m_rover, equipment) ? Signature::Signed : Signature::Missing;
  if (m_signature == Signature::Missing) m_survey.unsignedLines.push_back(m_line);
}

template <class Record>
GeodeticPosition LogReader::Geodetic(const Record& position) const {
  constexpr AngularUnit kDms = AngularUnit::DegreesMinutesSeconds;
  return {ToRadians(position.latitude, kDms), ToRadians(position.longitude, kDms),
          Metres(position.height), true};
}

// The DC file has the place of its antenna.
void LogReader::OnBase() {
  BP_RECORD base;
  if (!CRawFile::Parse(m_record, base)) return;
  const std::wstring name = FromUtf8(Trim(base.name));
  m_facts.source.points.Add(name, Here());
  m_facts.gpsPoints.push_back({name, {}, {}, Geodetic(base), false, m_line});
}

void LogReader::OnPosition() {
  EP_RECORD position;
  m_position = CRawFile::Parse(m_record, position) ? Geodetic(position) : GeodeticPosition();
}

void LogReader::OnVector() {
  BL_RECORD vector;
  if (!CRawFile::Parse(m_record, vector)) return;
  AssignUtf8(m_vectorTarget, Trim(vector.name));
  m_facts.source.vectors.Add(m_vectorTarget, Here());
}

void LogReader::OnGpsPoint() {
  POINT_RECORD point;
  if (!CRawFile::Parse(m_record, point)) return;
  const std::wstring name = FromUtf8(Trim(point.name));
  if (name != m_vectorTarget) m_facts.source.vectors.Add(name, Here());
  m_facts.source.points.Add(name, Here());
  m_facts.gpsPoints.push_back(
      {name, FromUtf8(Trim(point.note)), Grid(point), m_position, false, m_line});
  m_position = {};
  m_vectorTarget.clear();
}

void LogReader::OnQuality() {
  GQ_RECORD quality;
  if (!CRawFile::Parse(m_record, quality)) return;
  TakeDate(m_survey, DateOfGpsWeek(quality.startWeek, quality.startSeconds));
  TakeDate(m_survey, DateOfGpsWeek(quality.endWeek, quality.endSeconds));
}

// ---- Deletions

void LogReader::OnDeleted() {
  NAME_RECORD deleted;
  if (CRawFile::Parse(m_record, deleted)) m_deletions[FromUtf8(Trim(deleted.name))] = m_line;
}

void LogReader::MarkDeleted() {
  for (GpsPoint& point : m_facts.gpsPoints) {
    const auto found = m_deletions.find(point.name);
    point.isDeleted = found != m_deletions.end() && point.line < found->second;
  }
}

}  // namespace

LogFacts ReadLog(CRawFile& log, Survey& survey) {
  return LogReader(log, survey).Read();
}

}  // namespace zelconvert::tools
