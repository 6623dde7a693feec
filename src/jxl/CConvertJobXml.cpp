#include "jxl/CConvertJobXml.h"

#include <optional>

#include "convert/CConvertProgress.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "raw/Angles.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kEmptyLogText = L"Bad ZEL raw data file.";
constexpr std::wstring_view kBadRecordText =
    L"Bad raw data record found at line %ld. The conversion is aborted.";

/// AD of a log whose azimuths count from south.
constexpr std::int32_t kFromSouth = 1;

std::string Utf8(std::wstring_view text) {
  std::string utf8;
  AppendXmlCharacters(utf8, text);
  return utf8;
}

/// A length in the unit of an MO; any unit that is none of feet counts as metres.
double MetresFromRaw(double length, std::int32_t unit) {
  if (IsNull(length)) return length;
  switch (unit) {
    case kRawInternationalFeet:
      return MetresFromUnits(length, kInternationalFeet);
    case kRawUsSurveyFeet:
      return MetresFromUnits(length, kUsSurveyFeet);
    default:
      return length;
  }
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
bool ParseTime(const JB_RECORD& job, platform::LocalTime& time) {
  Scanner date(job.date);
  std::int32_t month = date.Number(2);
  std::int32_t day = date.Skip(L'-').Number(2);
  const std::int32_t year = date.Skip(L'-').Number(4);
  Scanner clock(job.time);
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
  time.year = static_cast<std::uint16_t>(year);
  time.month = static_cast<std::uint16_t>(month);
  time.day = static_cast<std::uint16_t>(day);
  time.hour = static_cast<std::uint16_t>(hour);
  time.minute = static_cast<std::uint16_t>(minute);
  time.second = static_cast<std::uint16_t>(second);
  return true;
}

}  // namespace

void KnownPoints::Add(std::wstring_view name, std::wstring_view description,
                      const JxlPosition& position) {
  if (m_names.Insert(name)) {
    m_points.push_back({Utf8(name), Utf8(description), position, false});
    return;
  }
  Point& known = *FindEntry(name);
  known.position = position;
  known.isDeleted = false;
  if (!description.empty()) known.description = Utf8(description);
}

KnownPoints::Point* KnownPoints::FindEntry(std::wstring_view name) {
  const std::optional<std::size_t> number = m_names.Find(name);
  return number ? &m_points[*number] : nullptr;
}

const KnownPoints::Point* KnownPoints::Find(std::wstring_view name) const {
  const std::optional<std::size_t> number = m_names.Find(name);
  return number && !m_points[*number].isDeleted ? &m_points[*number] : nullptr;
}

void KnownPoints::Delete(std::wstring_view name) {
  Point* point = FindEntry(name);
  if (point != nullptr) point->isDeleted = true;
}

/// What is done with a record of a kind.
struct CConvertJobXml::Handler {
  RawRecordType type;
  bool (CConvertJobXml::*handle)(std::wstring_view line);
};

const CConvertJobXml::Handler CConvertJobXml::kHandlers[] = {
    {RawRecordType::SS, &CConvertJobXml::OnSideshot},
    {RawRecordType::TR, &CConvertJobXml::OnTraverse},
    {RawRecordType::LS, &CConvertJobXml::OnHeights},
    {RawRecordType::Comment, &CConvertJobXml::OnComment},
    {RawRecordType::SP, &CConvertJobXml::OnStoredPoint},
    {RawRecordType::BK, &CConvertJobXml::OnBacksight},
    {RawRecordType::OC, &CConvertJobXml::OnOccupy},
    {RawRecordType::MO, &CConvertJobXml::OnMode},
    {RawRecordType::JB, &CConvertJobXml::OnSecondJob},
    {RawRecordType::DP, &CConvertJobXml::OnDelete},
    {RawRecordType::SC, &CConvertJobXml::OnScan},
    {RawRecordType::CR, &CConvertJobXml::OnCamera},
    {RawRecordType::IM, &CConvertJobXml::OnImage},
};

bool CConvertJobXml::Convert(CRawFile& rawFile, CJxlFile& jxlFile, StringList& messages,
                             StringList& /*files*/) {
  CConvertProgress progress;
  progress.Start();
  m_pJxlFile = &jxlFile;
  const std::wstring version = FindVersion(rawFile);

  m_index.Build(rawFile);
  std::wstring line;
  if (!rawFile.ReadRecord(line)) {
    messages.emplace_back(kEmptyLogText);
    return false;
  }
  m_line = 1;
  bool good = BeginDocument(line, version);
  const std::int64_t length = rawFile.GetLength();
  while (good && rawFile.ReadRecord(line)) {
    ++m_line;
    progress.SetPosition(rawFile.GetPosition(), length);
    m_hasMore = m_hasMore || !Trim(line).empty();
    good = ConvertRecord(line);
  }
  if (!good) {
    messages.push_back(FormatText(kBadRecordText, m_line));
    return false;
  }
  return Finish();
}

std::wstring CConvertJobXml::FindVersion(CRawFile& rawFile) const {
  const std::wstring_view mark = m_bNative ? L"--Gridlark Version:" : L"--Plumbwick Version:";
  std::wstring version;
  std::wstring line;
  while (rawFile.ReadRecord(line)) {
    if (line.starts_with(mark)) version = Trim(Mid(line, mark.size()));
  }
  return version;
}

bool CConvertJobXml::BeginDocument(std::wstring_view line, std::wstring_view version) {
  JB_RECORD job;
  platform::LocalTime time;
  if (!CRawFile::Parse(line, job) || !ParseTime(job, time)) return false;
  m_pJxlFile->BeginDocument(job.name, version, time);
  return true;
}

bool CConvertJobXml::ConvertRecord(std::wstring_view line) {
  const RawRecordType type = CRawFile::GetRecordType(line);
  if (m_shot.isPending && type != RawRecordType::BK) FlushPendingShot();
  for (const Handler& handler : kHandlers) {
    if (handler.type == type) return (this->*handler.handle)(line);
  }
  return true;
}

bool CConvertJobXml::Finish() {
  if (m_shot.isPending) FlushPendingShot();
  for (const KnownPoints::Point& point : m_points) {
    if (!point.isDeleted) m_pJxlFile->AddPoint(point.name, point.description, point.position);
  }
  if (m_hasMore) m_pJxlFile->AddCoordinateSystem();
  return m_pJxlFile->WriteDocument();
}

bool CConvertJobXml::OnSecondJob(std::wstring_view /*line*/) {
  return false;
}

bool CConvertJobXml::OnMode(std::wstring_view line) {
  MO_RECORD mode;
  if (!CRawFile::Parse(line, mode)) return false;
  m_sourceUnits = {mode.distanceUnit, mode.angleUnit};
  m_southAzimuths = mode.azimuthOrigin == kFromSouth;
  if (!m_firstMode) return true;
  m_firstMode = false;
  m_scale = mode.scale;
  m_pJxlFile->AddUnitsRecord(m_sourceUnits);
  m_pJxlFile->AddCorrectionsRecord(m_southAzimuths);
  m_pJxlFile->AddDisplaySettings(m_sourceUnits);
  return true;
}

bool CConvertJobXml::OnHeights(std::wstring_view line) {
  LS_RECORD heights;
  if (!CRawFile::Parse(line, heights)) return false;
  m_instrument.SetHeights({ToMetres(heights.instrumentHeight), ToMetres(heights.rodHeight)});
  return true;
}

bool CConvertJobXml::OnOccupy(std::wstring_view line) {
  OC_RECORD point;
  if (!CRawFile::Parse(line, point)) return false;
  m_occupied = {true, std::wstring(point.name), std::wstring(point.note), ToMetres(point)};
  return true;
}

bool CConvertJobXml::OnStoredPoint(std::wstring_view line) {
  POINT_RECORD point;
  if (!CRawFile::Parse(line, point)) return false;
  const JxlPosition position = ToMetres(point);
  m_lastPointRecord = m_pJxlFile->AddCoordinates(point.name, point.note, position);
  m_points.Add(point.name, point.note, position);
  return true;
}

bool CConvertJobXml::OnBacksight(std::wstring_view line) {
  BK_RECORD backsight;
  if (!CRawFile::Parse(line, backsight)) return false;
  // A shot right in front that is to the backsight point was made for the orientation.
  const bool toBacksight =
      m_shot.isPending && ComparedName(m_shot.name) == ComparedName(backsight.backsight);
  if (m_shot.isPending && !toBacksight) FlushPendingShot();
  const bool takesShot = toBacksight && m_shot.position.IsWhole();
  if (takesShot) m_shot.isPending = false;

  const double circle = ToDegrees(backsight.circle);
  m_lastPointRecord = m_instrument.Orient(
      *m_pJxlFile,
      {std::wstring(backsight.station), std::wstring(backsight.backsight),
       ToNorthAzimuth(backsight.azimuth), circle},
      FindHeights(backsight.station), takesShot ? m_shot.readings.horizontal : circle,
      takesShot ? m_shot.position : JxlPosition{});
  JoinOccupiedPoint();
  return true;
}

/// What the line of sight in front of the next shot says, or else the latest one.
JxlInstrument::Heights CConvertJobXml::FindHeights(std::wstring_view station) {
  const HeightsAhead* ahead = m_index.FindHeights(m_line, RawRecordType::BK, station);
  if (ahead == nullptr) return m_instrument.GetHeights();
  return {MetresFromRaw(ahead->heights.instrumentHeight, ahead->distanceUnit),
          MetresFromRaw(ahead->heights.rodHeight, ahead->distanceUnit)};
}

void CConvertJobXml::JoinOccupiedPoint() {
  if (!m_occupied.isPending) return;
  m_points.Add(m_occupied.name, m_occupied.description, m_occupied.position);
  m_occupied.isPending = false;
}

bool CConvertJobXml::OnSideshot(std::wstring_view line) {
  return OnShot(line, false);
}

bool CConvertJobXml::OnTraverse(std::wstring_view line) {
  return OnShot(line, true);
}

bool CConvertJobXml::OnShot(std::wstring_view line, bool traverse) {
  SHOT_RECORD shot;
  if (!CRawFile::Parse(line, shot) || shot.horizontalKind != HorizontalKind::AngleRight ||
      shot.verticalKind != VerticalKind::Zenith) {
    return false;
  }
  const bool moved = m_instrument.PrepareShot(*m_pJxlFile, shot.station);
  if (moved && ComparedName(m_occupied.name) == ComparedName(shot.station)) JoinOccupiedPoint();
  const KnownPoints::Point* station = m_points.Find(shot.station);
  if (station == nullptr) return false;
  m_shot.name = Left(shot.foresight, kShotNameLength);
  m_shot.description = shot.note;
  m_shot.readings = {ToDegrees(shot.horizontal), ToDegrees(shot.vertical), ToMetres(shot.distance)};
  m_shot.position = m_instrument.Reduce(m_shot.readings, station->position, m_scale);
  m_shot.setup = m_instrument.Records();
  m_shot.isPending = true;
  if (traverse) m_instrument.PlanMove(shot.station, m_shot.name, m_shot.readings);
  return true;
}

void CConvertJobXml::FlushPendingShot() {
  m_shot.isPending = false;
  m_lastPointRecord = m_pJxlFile->AddDirectReading(m_shot.name, m_shot.description, m_shot.readings,
                                                   m_shot.setup, m_shot.position);
  m_points.Add(m_shot.name, m_shot.description, m_shot.position);
}

bool CConvertJobXml::OnComment(std::wstring_view line) {
  m_pJxlFile->AddNoteRecord(Mid(line, 2));
  return true;
}

bool CConvertJobXml::OnDelete(std::wstring_view line) {
  NAME_RECORD point;
  if (!CRawFile::Parse(line, point)) return false;
  m_pJxlFile->DeletePoint(point.name);
  m_points.Delete(point.name);
  return true;
}

bool CConvertJobXml::OnScan(std::wstring_view line) {
  SC_RECORD scan;
  if (!CRawFile::Parse(line, scan)) return false;
  m_pJxlFile->AddScanningRecord({m_instrument.Records(), scan.fileName, scan.points,
                                 ToDegrees(scan.horizontalStep), ToDegrees(scan.verticalStep)});
  return true;
}

bool CConvertJobXml::OnCamera(std::wstring_view line) {
  CR_RECORD camera;
  if (!CRawFile::Parse(line, camera)) return false;
  m_camera = m_pJxlFile->AddCameraRecord(
      {camera.x0, camera.y0, camera.focalLength, ToDegrees(camera.kappa), ToDegrees(camera.phi),
       ToDegrees(camera.omega), camera.s0, camera.c0, camera.z0, camera.i, camera.k1, camera.p1,
       camera.p2, camera.pixelSizeX, camera.pixelSizeY, camera.pixelsX, camera.pixelsY});
  return true;
}

bool CConvertJobXml::OnImage(std::wstring_view line) {
  IM_RECORD image;
  if (!CRawFile::Parse(line, image)) return false;
  m_pJxlFile->AddImageRecord({m_instrument.Records(), m_camera, m_lastPointRecord, image.fileName,
                              ToDegrees(image.horizontalAngle), ToDegrees(image.verticalAngle),
                              image.width, image.height, image.startX, image.startY, image.sizeX,
                              image.sizeY});
  return true;
}

double CConvertJobXml::ToDegrees(double angle) const {
  if (IsNull(angle)) return angle;
  if (m_sourceUnits.angle == kRawDegrees) return DmsToDegrees(angle);
  // Any other code stands for decimal degrees.
  return m_sourceUnits.angle == kRawGons ? angle * 0.9 : angle;
}

double CConvertJobXml::ToNorthAzimuth(double angle) const {
  const double azimuth = ToDegrees(angle);
  return m_southAzimuths ? NormalizeDegrees(azimuth + 180) : azimuth;
}

double CConvertJobXml::ToMetres(double length) const {
  return MetresFromRaw(length, m_sourceUnits.distance);
}

JxlPosition CConvertJobXml::ToMetres(const POINT_RECORD& point) const {
  return {ToMetres(point.north), ToMetres(point.east), ToMetres(point.elevation)};
}

}  // namespace zelconvert
