#include "tools/ReadSdr.h"

#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "io/Strings.h"
#include "raw/RawUnits.h"
#include "tools/Dates.h"
#include "tools/RecordCounts.h"

namespace zelconvert::tools {
namespace {

constexpr int kHeaderCode = 0;
constexpr std::size_t kNameColumn = 4;  // after the code and the derivation
constexpr std::size_t kDateColumn = 24;

class SdrReader {
 public:
  SdrReader(CFileCE& sdr, const SdrLayout& layout, Survey& survey, SurveyBuilder& builder)
      : m_sdr(sdr), m_layout(layout), m_survey(survey), m_builder(builder) {}

  void Read();

 private:
  template <class Record>
  Record Fields() const {
    return zelconvert::ReadSdr<Record>(m_record, m_layout, DC_NULL);
  }
  void ReadRecord(int code);
  void OnHeader();
  void OnStation();
  void OnCoordinates();
  void OnBacksight();
  void OnObservation();

  double Metres(double length) const {
    const double metres = ToMetres(length, *m_survey.lengthUnit);
    return std::isfinite(metres) ? metres : DC_NULL;
  }
  double Radians(double angle) const {
    const double radians = ToRadians(angle, m_survey.angleUnit);
    return std::isfinite(radians) ? radians : DC_NULL;
  }
  /// SDR2 fills numbers with zeros.
  std::wstring_view Name(std::wstring_view name) const {
    name = Trim(name);
    while (!m_layout.named && name.size() > 1 && name.front() == L'0') name.remove_prefix(1);
    return name;
  }

  CFileCE& m_sdr;
  const SdrLayout& m_layout;
  Survey& m_survey;
  SurveyBuilder& m_builder;
  std::wstring m_record;  // the line at hand
  std::int64_t m_line = 0;
};

void SdrReader::Read() {
  RecordCounter counter(m_survey);
  m_survey.lengthUnit = LinearUnit::InternationalFoot;  // until the header says it
  m_survey.decimals = m_layout.lengthDecimals;
  m_sdr.SeekToBegin();
  while (m_sdr.ReadLine(m_record)) {
    ++m_line;
    if (Trim(m_record).empty()) continue;
    counter.Count(Left(m_record, 2));
    ReadRecord(GetSdrRecordCode(m_record));
  }
}

void SdrReader::ReadRecord(int code) {
  switch (code) {
    case kHeaderCode:
      return OnHeader();
    case kSdrCode<SdrStation>:
      return OnStation();
    case kSdrCode<SdrTargetHeight>:
      return m_builder.SetTargetHeight(Metres(Fields<SdrTargetHeight>().height));
    case kSdrCode<SdrScale>:
      m_survey.scale = NullToOne(Fields<SdrScale>().scale);
      return;
    case kSdrCode<SdrBacksight>:
      return OnBacksight();
    case kSdrCode<SdrCoordinates>:
      return OnCoordinates();
    case kSdrCode<SdrObservation>:
      return OnObservation();
    case kSdrCode<SdrJob>:
      if (m_survey.job.empty()) m_survey.job = Trim(Fields<SdrJob>().name);
      return;
    case kSdrCode<SdrNote>:
      m_survey.notes.push_back({std::wstring(Trim(Fields<SdrNote>().text)), m_line});
      return;
    default:
      return;
  }
}

// Angles are decimal degrees or gons.
void SdrReader::OnHeader() {
  TakeDate(m_survey, ParseDate(Mid(m_record, kDateColumn)));
  if (m_record.size() <= kSdrLengthUnitColumn) return;
  if (const auto angles = AngularUnitOfSdr(m_record[kSdrAngleUnitColumn])) {
    m_survey.angleUnit = ReckonedUnit(*angles);
  }
  if (const auto lengths = LinearUnitOfSdr(m_record[kSdrLengthUnitColumn])) {
    m_survey.lengthUnit = *lengths;
  }
}

void SdrReader::OnStation() {
  const auto station = Fields<SdrStation>();
  const GridPosition position{Metres(station.north), Metres(station.east),
                              Metres(station.elevation)};
  // A height that isn't told is one of 0.
  m_builder.BeginSetup(Name(station.name), NullToZero(Metres(station.instrumentHeight)), m_line,
                       position);
}

void SdrReader::OnCoordinates() {
  const auto point = Fields<SdrCoordinates>();
  m_builder.AddGrid({Name(point.name), point.description, L'1', m_line},
                    {Metres(point.north), Metres(point.east), Metres(point.elevation)});
}

void SdrReader::OnBacksight() {
  const auto backsight = Fields<SdrBacksight>();
  m_builder.SetBacksight(Name(backsight.backsight), Radians(backsight.azimuth),
                         Radians(backsight.circle));
}

// The one that belongs to a backsight has neither distance nor zenith angle.
void SdrReader::OnObservation() {
  const auto observation = Fields<SdrObservation>();
  Shot shot;
  shot.station = Name(observation.station);
  shot.target = Name(observation.target);
  shot.code = observation.note;
  shot.slopeDistance = Metres(observation.slopeDistance);
  shot.zenith = Radians(observation.zenith);
  shot.circle = Radians(observation.horizontal);
  shot.scale = m_survey.scale;
  shot.line = m_line;
  if (IsNull(shot.slopeDistance) && IsNull(shot.zenith)) shot.kind = ShotKind::Backsight;
  m_builder.AddShot(std::move(shot));
}

}  // namespace

const SdrLayout* FindSdrLayout(CFileCE& sdr) {
  std::wstring line;
  sdr.SeekToBegin();
  while (sdr.ReadLine(line)) {
    if (GetSdrRecordCode(line) != kHeaderCode) continue;
    const std::wstring_view name = Mid(line, kNameColumn);
    if (name.starts_with(kSdr2.headerName)) return &kSdr2;
    if (name.starts_with(kSdr33.headerName)) return &kSdr33;
    return nullptr;
  }
  return nullptr;
}

void ReadSdr(CFileCE& sdr, const SdrLayout& layout, Survey& survey, SurveyBuilder& builder) {
  SdrReader(sdr, layout, survey, builder).Read();
}

}  // namespace zelconvert::tools
