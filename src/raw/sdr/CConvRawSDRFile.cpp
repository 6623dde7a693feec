#include "raw/sdr/CConvRawSDRFile.h"

#include <cmath>
#include <limits>
#include <optional>
#include <tuple>

#include "convert/CConvertProgress.h"
#include "io/HandlerTable.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "raw/Angles.h"
#include "raw/RawIndex.h"
#include "raw/RawUnits.h"
#include "raw/ReduceShot.h"
#include "raw/sdr/NoteMarks.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kUsFeetText =
    L"SDR does not support US feet. All the distances have been converted from US feet to feet.";
constexpr std::wstring_view kAlphanumericText =
    L"Alphanumeric point names are not supported in SDR 2 file format. This file cannot be "
    L"converted.";

constexpr double kFeetPerUsFoot = 1.000002;
constexpr double kInchesPerFoot = 12;
constexpr std::size_t kNoteLength = 16;
constexpr std::size_t kFigureNameLength = 9;

/// What a mark appends to the next point's note, or the line that it becomes.
struct MarkEffect {
  NoteMark mark;
  std::wstring_view suffix;
  std::wstring_view line;
};
constexpr MarkEffect kMarkEffects[] = {
    {NoteMark::BEG, L" ST", {}},  {NoteMark::C2, L" PC", {}},     {NoteMark::C3, L" PC", {}},
    {NoteMark::JN, L" JP", {}},   {NoteMark::JP, L" ST JPT", {}}, {NoteMark::JFS, {}, L" JFS"},
    {NoteMark::JNS, {}, L" JNS"}, {NoteMark::JT, {}, L" JPT"},
};

// A field that the record lacks: no text of a log reads as NaN.
constexpr double kUnread = std::numeric_limits<double>::quiet_NaN();
[[nodiscard]] bool WasRead(double value) {
  return !std::isnan(value);
}
void KeepRead(std::string_view text, std::wstring& kept) {
  if (text.data() != nullptr) AssignUtf8(kept, text);
}

/// One run over a log. A record that lacks a field isn't refused: what stands before the field
/// counts, and what the pass remembers from earlier records stands for the rest.
class RawToSdr {
 public:
  RawToSdr(CRawFile& raw, CFileCE& sdr, const SdrLayout& layout, Report& report)
      : m_raw(raw), m_sdr(sdr), m_layout(layout), m_lines(layout), m_report(report) {}

  [[nodiscard]] bool Run() {
    CConvertProgress progress;
    progress.Start();
    m_index.Build(m_raw);
    const std::int64_t length = m_raw.GetLength();
    std::string_view record;
    while (m_raw.ReadRecord(record)) {
      ++m_line;
      progress.SetPosition(m_raw.GetPosition(), length);
      if (!Convert(record)) return false;
    }
    return true;
  }

 private:
  using Handler = void (RawToSdr::*)(std::string_view record);

  /// False for a point name that the layout can't write.
  [[nodiscard]] bool Convert(std::string_view record) {
    static constexpr auto kHandlers = MakeHandlerTable<kRawRecordTypes, RawRecordType, Handler>({
        {RawRecordType::SS, &RawToSdr::OnShot},
        {RawRecordType::TR, &RawToSdr::OnTraverse},
        {RawRecordType::LS, &RawToSdr::OnHeights},
        {RawRecordType::Comment, &RawToSdr::OnComment},
        {RawRecordType::SP, &RawToSdr::OnStored},
        {RawRecordType::BK, &RawToSdr::OnBacksight},
        {RawRecordType::OC, &RawToSdr::OnOccupy},
        {RawRecordType::MO, &RawToSdr::OnMode},
        {RawRecordType::JB, &RawToSdr::OnJob},
    });
    const Handler* handler = kHandlers.Find(CRawFile::GetRecordType(record));
    if (handler != nullptr) (this->**handler)(record);
    return !m_isRefused || m_report.Refuse(kAlphanumericText);
  }

  void OnJob(std::string_view record) {
    JB_RECORD job;
    std::ignore = CRawFile::Parse(record, job);
    KeepRead(job.name, m_jobName);
    KeepRead(job.date, m_date);
    KeepRead(job.time, m_time);
  }

  void OnMode(std::string_view record) {
    MO_RECORD mode = m_mode;
    mode.angleUnit = 0;  // of a record without AU
    if (!CRawFile::Parse(record, mode)) mode.angleUnit = m_mode.angleUnit;
    m_mode = mode;
    m_angles = AngularUnitOfRaw(mode.angleUnit);
    m_lengths = LinearUnitOfRaw(mode.distanceUnit);
    if (m_lengths == LinearUnit::UsSurveyFoot) m_report.messages.Warn(std::wstring(kUsFeetText));

    m_lines.MakeHeader(m_date, m_time, m_angles, m_lengths == LinearUnit::Metre);
    m_sdr.WriteLine(m_lines.Line());
    Put(SdrJob{m_jobName});
    Put(SdrScale{m_mode.scale});
    PutInstrument();
  }

  void OnBacksight(std::string_view record) {
    BK_RECORD backsight;
    backsight.azimuth = backsight.circle = kUnread;
    std::ignore = CRawFile::Parse(record, backsight);
    KeepRead(backsight.station, m_station);
    KeepRead(backsight.backsight, m_backsight);
    if (WasRead(backsight.azimuth)) m_backsightAzimuth = NorthAzimuth(Angle(backsight.azimuth));
    if (WasRead(backsight.circle)) m_circle = Angle(backsight.circle);
    PutBacksight();
    PutBacksightObservation({});
  }

  void OnHeights(std::string_view record) {
    LS_RECORD heights{kUnread, kUnread};
    std::ignore = CRawFile::Parse(record, heights);
    const double before = m_instrumentHeight;
    if (WasRead(heights.instrumentHeight)) m_instrumentHeight = Length(heights.instrumentHeight);
    if (WasRead(heights.rodHeight)) m_rodHeight = Length(heights.rodHeight);
    const bool setUpAgain = m_instrumentHeight != before && !m_firstHeights;
    m_firstHeights = false;
    if (setUpAgain) PutSetup();
    Put(SdrTargetHeight{m_rodHeight});
  }

  void OnOccupy(std::string_view record) {
    OC_RECORD point;
    point.north = point.east = point.elevation = kUnread;
    std::ignore = CRawFile::Parse(record, point);
    KeepRead(point.name, m_occupied.m_strName);
    KeepRead(point.note, m_occupied.m_strDescription);
    if (WasRead(point.north)) m_occupied.m_dNorth = Length(point.north);
    if (WasRead(point.east)) m_occupied.m_dEast = Length(point.east);
    if (WasRead(point.elevation)) m_occupied.m_dElevation = Length(point.elevation);
    m_station = m_occupied.m_strName;
    FindHeights(RawRecordType::OC, m_station);
    PutStation();
  }

  void OnComment(std::string_view record) {
    const std::wstring text = FromUtf8(record.substr(2));
    std::wstring_view value;
    const NoteMark mark = ParseNoteMark(text, value);
    const std::wstring_view figure = Left(value, kFigureNameLength);
    for (const MarkEffect& effect : kMarkEffects) {
      if (effect.mark != mark) continue;
      if (!effect.suffix.empty()) m_pendingSuffix = effect.suffix;
      if (!effect.line.empty()) m_sdr.WriteLine(std::wstring(effect.line).append(figure));
    }
    if (mark == NoteMark::JP) m_pendingSuffix += figure;
    if (mark == NoteMark::C2) m_curveCountdown = value.empty() ? 2 : ToInteger(value);
    if (mark == NoteMark::C3) m_curveCountdown = 3;
    if (mark == NoteMark::SS) m_joinCountdown = 2;
    Put(SdrNote{text});
  }

  void OnStored(std::string_view record) {
    POINT_RECORD point;
    std::ignore = CRawFile::Parse(record, point);
    const std::wstring name = FromUtf8(point.name);
    const std::wstring note = FromUtf8(point.note) + m_pendingSuffix;
    m_pendingSuffix.clear();
    Put(SdrCoordinates{name, Length(point.north), Length(point.east), Length(point.elevation),
                       note});
  }

  void OnShot(std::string_view record) { ConvertShot(record); }
  void OnTraverse(std::string_view record) {
    ConvertShot(record);
    Advance();
  }

  void ConvertShot(std::string_view record) {
    SHOT_RECORD shot;
    shot.horizontal = kUnread;
    std::ignore = CRawFile::Parse(record, shot);
    KeepRead(shot.station, m_station);
    if (!m_backsightWritten) PutBacksightObservation(FromUtf8(shot.note));
    ReadHorizontal(record, shot);
    ReadVertical(shot);
    CountDown();

    AssignUtf8(m_foresight.m_strName, shot.foresight);
    std::wstring& note = m_foresight.m_strDescription;
    AssignUtf8(note, shot.note);
    note += m_pendingSuffix;
    if (note.size() > kNoteLength) note.resize(kNoteLength);
    m_pendingSuffix.clear();
    Put(SdrObservation{m_station, m_foresight.m_strName, m_slopeDistance, m_zenith, m_horizontal,
                       note});
    ReduceForesight();
  }

  // All kinds but the circle reading itself give an azimuth first; the circle then counts from the
  // backsight.
  void ReadHorizontal(std::string_view record, const SHOT_RECORD& shot) {
    const HorizontalKind kind = shot.horizontalKind;
    const bool read = WasRead(shot.horizontal);
    const double value = read ? Angle(shot.horizontal) : 0;
    if (kind == HorizontalKind::AngleRight) {
      m_horizontal = value;
      return;
    }
    double azimuth = ToldAzimuth(kind, value, m_backsightAzimuth, m_angles);
    if (kind == HorizontalKind::Azimuth && read) azimuth = NorthAzimuth(value);
    if (kind == HorizontalKind::Bearing) {
      std::string_view bearing;
      std::ignore = CRawFile::GetField(record, "BR", bearing);
      azimuth = ParseBearing(FromUtf8(bearing), m_angles);
    }
    m_circle = 0;
    m_horizontal = Computed(azimuth - m_backsightAzimuth, azimuth, m_backsightAzimuth, value);
  }

  void ReadVertical(const SHOT_RECORD& shot) {
    const double quarterCircle = HalfCircle() / 2;
    const double angle = Angle(shot.vertical);
    const double distance = Length(shot.distance);
    m_slopeDistance = distance;
    if (shot.verticalKind == VerticalKind::Zenith) {
      m_zenith = angle;
    } else if (shot.verticalKind == VerticalKind::VerticalAngle) {
      m_zenith = NormalizeZenith(Computed(quarterCircle - angle, angle), m_angles);
    } else {
      const double change = Length(shot.vertical);
      const double aboveHorizon = AngleOfRadians(std::atan2(change, distance));
      m_slopeDistance =
          Computed(std::sqrt(change * change + distance * distance), change, distance);
      m_zenith = NormalizeZenith(Computed(quarterCircle - aboveHorizon, m_slopeDistance), m_angles);
    }
  }

  // A countdown from below 0, which a log may ask for, never gets to its end.
  void CountDown() {
    if (m_curveCountdown > 0 && --m_curveCountdown == 0) m_pendingSuffix = L" PT";
    if (m_joinCountdown > 0 && --m_joinCountdown == 0) m_pendingSuffix = L" ST JPT " + m_jobName;
  }

  // Without distance, zenith or scale there is no position; what an azimuth, a height or the
  // station lacks is missing from the position alone.
  void ReduceForesight() {
    const double azimuth = Computed(m_backsightAzimuth + m_horizontal - m_circle,
                                    m_backsightAzimuth, m_horizontal, m_circle);
    const auto [north, east, rise] =
        ReduceShot(m_occupied.m_dNorth, m_occupied.m_dEast,
                   {RadiansOf(azimuth, m_angles), RadiansOf(m_zenith, m_angles), m_slopeDistance,
                    m_mode.scale});
    m_foresight.m_dNorth = north;
    m_foresight.m_dEast = east;
    m_foresight.m_dElevation =
        Computed(m_occupied.m_dElevation + (rise + m_instrumentHeight - m_rodHeight),
                 m_occupied.m_dElevation, rise, m_mode.scale, m_instrumentHeight, m_rodHeight);
  }

  // The instrument moves to the foresight and looks back at the point it comes from.
  void Advance() {
    const double back = std::atan2(m_occupied.m_dEast - m_foresight.m_dEast,
                                   m_occupied.m_dNorth - m_foresight.m_dNorth);
    m_backsightAzimuth = Computed(NormalizeAngle(AngleOfRadians(back), m_angles),
                                  m_foresight.m_dNorth, m_foresight.m_dEast);
    m_backsight = m_station;
    m_station = m_foresight.m_strName;
    m_occupied = m_foresight;
    FindHeights(RawRecordType::TR, m_station);
    m_backsightWritten = false;
    PutSetup();
  }

  void PutInstrument() {
    const double offset = NullToZero(m_mode.edmOffset) / kInchesPerFoot;
    SdrInstrument instrument;
    if (offset != 0) {
      instrument.reduction = L"3RED 3";
      instrument.edmOffset = offset;
      instrument.prismOffset = 0;
    }
    Put(instrument);
  }

  void FindHeights(RawRecordType type, std::wstring_view name) {
    const HeightsAhead* ahead = m_index.FindHeights(m_line, type, ToUtf8(name));
    if (ahead == nullptr) return;
    const bool modeAhead = ahead->modeLine > m_line;
    m_instrumentHeight =
        Length(ahead->heights.instrumentHeight, modeAhead ? ahead->unit : m_lengths);
  }

  /// From here on angles are decimal degrees or gons, as the mode says.
  double Angle(double value) const { return ReckonedAngle(value, m_angles); }

  double NorthAzimuth(double azimuth) const {
    if (m_mode.azimuthOrigin != kFromSouth) return azimuth;
    return NormalizeAngle(azimuth + HalfCircle(), m_angles);
  }

  double AngleOfRadians(double radians) const { return radians / kPi * HalfCircle(); }
  double HalfCircle() const { return FullCircle(m_angles) / 2; }

  double Length(double value) const { return Length(value, m_lengths); }
  /// SDR files know no US survey feet: these become international feet.
  static double Length(double value, std::optional<LinearUnit> unit) {
    return unit == LinearUnit::UsSurveyFoot && !IsNull(value) ? value * kFeetPerUsFoot : value;
  }

  template <class Record>
  void Put(const Record& record) {
    if (m_lines.Make(record)) {
      m_sdr.WriteLine(m_lines.Line());
    } else {
      m_isRefused = true;
    }
  }
  void PutSetup() {
    PutStation();
    PutBacksight();
  }
  void PutStation() {
    const double height = NullToZero(m_instrumentHeight) == 0 ? DC_NULL : m_instrumentHeight;
    Put(SdrStation{m_occupied.m_strName, m_occupied.m_dNorth, m_occupied.m_dEast,
                   m_occupied.m_dElevation, height, m_occupied.m_strDescription});
  }
  void PutBacksight() { Put(SdrBacksight{m_station, m_backsight, m_backsightAzimuth, m_circle}); }
  /// The circle at the backsight, without distance and zenith. Where points are numbers, the
  /// station stands in both columns.
  void PutBacksightObservation(std::wstring_view note) {
    m_backsightWritten = true;
    Put(SdrObservation{m_station, m_layout.named ? m_backsight : m_station, DC_NULL, DC_NULL,
                       m_circle, note});
  }

  CRawFile& m_raw;
  CFileCE& m_sdr;
  const SdrLayout& m_layout;
  SdrLines m_lines;
  Report& m_report;
  RawIndex m_index;
  std::int64_t m_line = 0;
  bool m_isRefused = false;  // for a name that a line can't hold

  std::wstring m_jobName, m_date, m_time;
  MO_RECORD m_mode;
  AngularUnit m_angles = AngularUnit::DegreesMinutesSeconds;  // as the log writes them
  std::optional<LinearUnit> m_lengths = LinearUnitOfRaw(MO_RECORD().distanceUnit);
  std::wstring m_station, m_backsight;
  double m_backsightAzimuth = 0;
  double m_circle = 0;
  double m_instrumentHeight = 0;
  double m_rodHeight = 0;
  CZelPoint m_occupied;
  bool m_firstHeights = true;
  bool m_backsightWritten = false;

  std::wstring m_pendingSuffix;
  std::int32_t m_curveCountdown = 0;
  std::int32_t m_joinCountdown = 0;

  // The shot at hand.
  CZelPoint m_foresight;
  double m_horizontal = 0;
  double m_zenith = 0;
  double m_slopeDistance = 0;
};

}  // namespace

bool CConvRawSDRFile::ConvertFromRaw(Report& report) {
  return RawToSdr(*m_pRawFile, *m_pSdrFile, Layout(), report).Run();
}

}  // namespace zelconvert
