#include "jxl/CConvertJobXml.h"

#include <optional>
#include <type_traits>

#include "convert/CConvertProgress.h"
#include "io/HandlerTable.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "jxl/JxlInstrument.h"
#include "jxl/KnownPoints.h"
#include "raw/Angles.h"
#include "raw/RawIndex.h"
#include "raw/RawUnits.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kEmptyLogText = L"Bad ZEL raw data file.";
/// The angle unit by its code: here a code that is none stands for decimal degrees.
constexpr AngularUnit AngularUnitOfCode(std::int32_t au) {
  return au == 0 || au == 1 ? AngularUnitOfRaw(au) : AngularUnit::DecimalDegrees;
}

/// Lengths of no unit count as metres.
double MetresFrom(double length, std::optional<LinearUnit> unit) {
  return ToMetres(length, unit.value_or(LinearUnit::Metre));
}

/// Reads fixed-width numbers as scanf does: blanks before a number don't count in its width.
class Scanner {
 public:
  explicit Scanner(std::wstring_view text) : m_text(text) {}

  /// 0, and every later field as well, when no number stands here.
  std::int32_t Number(std::size_t width) {
    if (m_failed) return 0;
    m_text = TrimLeft(m_text);
    const std::wstring_view field = Left(m_text, width);
    const ParsedInteger number = ParseInteger(field);
    m_failed = number.consumed == 0;
    m_text.remove_prefix(number.consumed);
    return static_cast<std::int32_t>(number.value);
  }
  Scanner& Skip(wchar_t separator) {
    if (m_text.empty() || m_text.front() != separator) {
      m_failed = true;
    } else {
      m_text.remove_prefix(1);
    }
    return *this;
  }

 private:
  std::wstring_view m_text;
  bool m_failed = false;
};

int DaysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

/// The date and time of a job record; the 31st of a shorter month is a day of the next. False if a
/// field is no calendar's or no clock's.
[[nodiscard]] bool ParseTime(const JB_RECORD& job, platform::LocalTime& time) {
  const std::wstring dateText = FromUtf8(job.date), timeText = FromUtf8(job.time);
  Scanner date(dateText);
  std::int32_t month = date.Number(2);
  std::int32_t day = date.Skip(L'-').Number(2);
  const std::int32_t year = date.Skip(L'-').Number(4);
  Scanner clock(timeText);
  const std::int32_t hour = clock.Number(2);
  const std::int32_t minute = clock.Skip(L':').Number(2);
  const std::int32_t second = clock.Skip(L':').Number(2);
  const auto within = [](std::int32_t value, std::int32_t low, std::int32_t high) {
    return value >= low && value <= high;
  };
  if (!within(month, 1, 12) || !within(day, 1, 31) || !within(year, 1, 9999) ||
      !within(hour, 0, 23) || !within(minute, 0, 59) || !within(second, 0, 59)) {
    return false;
  }
  if (day > DaysInMonth(year, month)) {
    day -= DaysInMonth(year, month);
    ++month;
  }
  const auto word = [](std::int32_t value) { return static_cast<std::uint16_t>(value); };
  time = {word(year), word(month), 0, word(day), word(hour), word(minute), word(second), 0};
  return true;
}

/// One run over a log.
class RawToJxl {
 public:
  /// The log is at its start; `index` is that of it.
  RawToJxl(CRawFile& raw, RawIndex& index, CJxlFile& jxl)
      : m_raw(raw), m_jxl(jxl), m_index(index) {}

  /// False, with a text, for a bad log. progress: null for a run that nobody is told of.
  [[nodiscard]] bool Run(std::wstring_view version, CConvertProgress* progress, Report& report) {
    std::string_view line;
    if (!m_raw.ReadRecord(line)) return report.Refuse(kEmptyLogText);
    m_line = 1;
    bool good = BeginDocument(line, version);
    const std::int64_t length = m_raw.GetLength();
    while (good && m_raw.ReadRecord(line)) {
      ++m_line;
      if (progress != nullptr) progress->SetPosition(m_raw.GetPosition(), length);
      m_hasMore = m_hasMore || !Trim(line).empty();
      good = ConvertRecord(line);
    }
    if (!good) return report.Refuse(FormatText(kBadRawRecordText, m_line));
    Finish();
    return true;
  }

 private:
  using Handler = bool (RawToJxl::*)(std::string_view line);

  /// A shot that waits for the record after it, whose backsight it may turn out to be.
  struct PendingShot {
    bool isPending = false;
    std::string name;
    std::string description;
    JxlPosition position;
    JxlReadings readings;
    JxlSetup setup;
  };

  /// An occupied point that waits for a backsight, or for a traverse to go on from it.
  struct PendingOccupy {
    bool isPending = false;
    std::string name;
    std::string description;
    JxlPosition position;
  };

  [[nodiscard]] bool BeginDocument(std::string_view line, std::wstring_view version) {
    JB_RECORD job;
    platform::LocalTime time;
    if (!CRawFile::Parse(line, job) || !ParseTime(job, time)) return false;
    m_jxl.BeginDocument(FromUtf8(job.name), version, time);
    return true;
  }

  [[nodiscard]] bool ConvertRecord(std::string_view line) {
    static constexpr auto kHandlers = MakeHandlerTable<kRawRecordTypes, RawRecordType, Handler>({
        {RawRecordType::SS, &RawToJxl::Give<&RawToJxl::OnSideshot>},
        {RawRecordType::TR, &RawToJxl::Give<&RawToJxl::OnTraverse>},
        {RawRecordType::LS, &RawToJxl::Give<&RawToJxl::OnHeights>},
        {RawRecordType::Comment, &RawToJxl::OnComment},
        {RawRecordType::SP, &RawToJxl::Give<&RawToJxl::OnStoredPoint>},
        {RawRecordType::BK, &RawToJxl::Give<&RawToJxl::OnBacksight>},
        {RawRecordType::OC, &RawToJxl::Give<&RawToJxl::OnOccupy>},
        {RawRecordType::MO, &RawToJxl::Give<&RawToJxl::OnMode>},
        {RawRecordType::JB, &RawToJxl::OnSecondJob},
        {RawRecordType::DP, &RawToJxl::Give<&RawToJxl::OnDelete>},
        {RawRecordType::SC, &RawToJxl::Give<&RawToJxl::OnScan>},
        {RawRecordType::CR, &RawToJxl::Give<&RawToJxl::OnCamera>},
        {RawRecordType::IM, &RawToJxl::Give<&RawToJxl::OnImage>},
    });
    const RawRecordType type = CRawFile::GetRecordType(line);
    if (m_shot.isPending && type != RawRecordType::BK) FlushPendingShot();
    const Handler* handler = kHandlers.Find(type);
    return handler == nullptr || (this->**handler)(line);
  }

  void Finish() {
    if (m_shot.isPending) FlushPendingShot();
    m_points.ForEach([this](const XmlText& name, const XmlText& code, const JxlPosition& position) {
      m_jxl.AddPoint(name, code, position);
    });
    if (m_hasMore) m_jxl.AddCoordinateSystem();
    m_jxl.WriteDocument();
  }

  /// Parses the record that `handle` takes and hands it over. False for a bad record.
  template <auto handle>
  [[nodiscard]] bool Give(std::string_view line) {
    const auto give = [&]<class Result, class Record>(Result (RawToJxl::*)(Record&)) {
      std::remove_const_t<Record> record;
      if (!CRawFile::Parse(line, record)) return false;
      if constexpr (std::is_same_v<Result, bool>) {
        return (this->*handle)(record);
      } else {
        (this->*handle)(record);
        return true;
      }
    };
    return give(handle);
  }

  [[nodiscard]] bool OnSecondJob(std::string_view /*line*/) { return false; }

  [[nodiscard]] bool OnComment(std::string_view line) {
    m_jxl.AddNoteRecord(line.substr(2));
    return true;
  }

  void OnBacksight(const BK_RECORD& backsight) {
    // A shot right before it that is to the backsight point was made for the orientation.
    const bool toBacksight =
        m_shot.isPending && ComparedName(m_shot.name) == ComparedName(backsight.backsight);
    if (m_shot.isPending && !toBacksight) FlushPendingShot();
    const bool takesShot = toBacksight && m_shot.position.IsWhole();
    if (takesShot) m_shot.isPending = false;

    const double circle = Degrees(backsight.circle);
    m_lastPointRecord = m_instrument.Orient(
        m_jxl, backsight.station, backsight.backsight, NorthAzimuth(backsight.azimuth), circle,
        FindHeights(backsight.station), takesShot ? m_shot.readings.horizontal : circle,
        takesShot ? m_shot.position : JxlPosition{});
    JoinOccupiedPoint();
  }

  void OnHeights(const LS_RECORD& heights) {
    m_instrument.SetHeights({Metres(heights.instrumentHeight), Metres(heights.rodHeight)});
  }

  void OnMode(const MO_RECORD& mode) {
    m_units = {LinearUnitOfRaw(mode.distanceUnit), AngularUnitOfCode(mode.angleUnit)};
    m_southAzimuths = mode.azimuthOrigin == kFromSouth;
    if (!m_firstMode) return;
    m_firstMode = false;
    m_scale = mode.scale;
    m_jxl.AddUnitsRecord(m_units);
    m_jxl.AddCorrectionsRecord(m_southAzimuths);
    m_jxl.AddDisplaySettings(m_units);
  }

  void OnOccupy(const OC_RECORD& point) {
    m_occupied = {true, std::string(point.name), std::string(point.note), Metres(point)};
  }

  void OnStoredPoint(const POINT_RECORD& point) {
    const JxlPosition position = Metres(point);
    m_lastPointRecord = m_jxl.AddCoordinates(point.name, point.note, position);
    m_points.Add(point.name, point.note, position);
  }

  [[nodiscard]] bool OnSideshot(const SHOT_RECORD& shot) { return OnShot(shot, false); }
  [[nodiscard]] bool OnTraverse(const SHOT_RECORD& shot) { return OnShot(shot, true); }

  void OnDelete(const NAME_RECORD& point) {
    m_jxl.DeletePoint(FromUtf8(point.name));
    m_points.Delete(point.name);
  }

  void OnScan(SC_RECORD& scan) {
    scan.horizontalStep = Degrees(scan.horizontalStep);
    scan.verticalStep = Degrees(scan.verticalStep);
    m_jxl.AddScanningRecord(m_instrument.Records(), scan);
  }

  void OnCamera(CR_RECORD& camera) {
    camera.kappa = Degrees(camera.kappa);
    camera.phi = Degrees(camera.phi);
    camera.omega = Degrees(camera.omega);
    m_camera = m_jxl.AddCameraRecord(camera);
  }

  void OnImage(IM_RECORD& image) {
    image.horizontalAngle = Degrees(image.horizontalAngle);
    image.verticalAngle = Degrees(image.verticalAngle);
    m_jxl.AddImageRecord(m_instrument.Records(), m_camera, m_lastPointRecord, image);
  }

  [[nodiscard]] bool OnShot(const SHOT_RECORD& shot, bool traverse) {
    if (shot.horizontalKind != HorizontalKind::AngleRight ||
        shot.verticalKind != VerticalKind::Zenith) {
      return false;
    }
    const bool moved = m_instrument.PrepareShot(m_jxl, shot.station);
    if (moved && ComparedName(m_occupied.name) == ComparedName(shot.station)) JoinOccupiedPoint();
    const JxlPosition* station = m_points.Find(shot.station);
    if (station == nullptr) return false;
    m_shot.name = CutName(shot.foresight);
    m_shot.description = shot.note;
    m_shot.readings = {Degrees(shot.horizontal), Degrees(shot.vertical), Metres(shot.distance)};
    m_shot.position = m_instrument.Reduce(m_shot.readings, *station, m_scale);
    m_shot.setup = m_instrument.Records();
    m_shot.isPending = true;
    if (traverse) m_instrument.PlanMove(shot.station, m_shot.name, m_shot.readings);
    return true;
  }

  /// What the line of sight before the next shot says, or else the latest one.
  JxlInstrument::Heights FindHeights(std::string_view station) {
    const HeightsAhead* ahead = m_index.FindHeights(m_line, RawRecordType::BK, station);
    if (ahead == nullptr) return m_instrument.GetHeights();
    return {MetresFrom(ahead->heights.instrumentHeight, ahead->unit),
            MetresFrom(ahead->heights.rodHeight, ahead->unit)};
  }

  void FlushPendingShot() {
    m_shot.isPending = false;
    m_lastPointRecord = m_jxl.AddDirectReading(m_shot.name, m_shot.description, m_shot.readings,
                                               m_shot.setup, m_shot.position);
    m_points.Add(m_shot.name, m_shot.description, m_shot.position);
  }

  void JoinOccupiedPoint() {
    if (!m_occupied.isPending) return;
    m_points.Add(m_occupied.name, m_occupied.description, m_occupied.position);
    m_occupied.isPending = false;
  }

  // From the units of the log, and azimuths to those from north; null values pass.
  double Degrees(double angle) const {
    if (m_units.angle == AngularUnit::Gon) return Computed(angle * 0.9, angle);
    return ReckonedAngle(angle, m_units.angle);
  }

  double NorthAzimuth(double angle) const {
    const double azimuth = Degrees(angle);
    return m_southAzimuths ? NormalizeDegrees(azimuth + 180) : azimuth;
  }

  double Metres(double length) const { return MetresFrom(length, m_units.length); }

  JxlPosition Metres(const POINT_RECORD& point) const {
    return {Metres(point.north), Metres(point.east), Metres(point.elevation)};
  }

  CRawFile& m_raw;
  CJxlFile& m_jxl;

  double m_scale = 1.0;
  JxlUnits m_units;  // of the log
  bool m_southAzimuths = false;
  bool m_firstMode = true;
  bool m_hasMore = false;  // than its first line
  std::int64_t m_line = 0;

  RawIndex& m_index;
  KnownPoints m_points;
  PendingShot m_shot;
  PendingOccupy m_occupied;
  JxlInstrument m_instrument;
  std::uint32_t m_camera = 0;
  std::uint32_t m_lastPointRecord = 0;
};

/// The last version that a comment of the product tells.
std::wstring FindVersion(CRawFile& raw, const char* product) {
  const std::string mark = std::string("--") + product + " Version:";
  std::wstring version;
  for (std::string_view line; raw.ReadRecord(line);) {
    if (line.starts_with(mark)) AssignUtf8(version, Trim(line.substr(mark.size())));
  }
  return version;
}

}  // namespace

bool CConvertJobXml::Convert(CRawFile& rawFile, CJxlFile& jxlFile, Report& report) {
  CConvertProgress progress;
  progress.Start();
  const std::wstring version = FindVersion(rawFile, jxlFile.Product());
  RawIndex index;
  index.Build(rawFile);
  if (index.DeletedNames().Size() > 0) {
    jxlFile.Rehearse(index.DeletedNames());
    if (!RawToJxl(rawFile, index, jxlFile).Run(version, nullptr, report)) return false;
    rawFile.SeekToBegin();
  }
  return RawToJxl(rawFile, index, jxlFile).Run(version, &progress, report);
}

}  // namespace zelconvert
