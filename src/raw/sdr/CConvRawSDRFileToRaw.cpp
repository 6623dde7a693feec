// SDR to raw: the settings, the atmosphere, the prism and the notes of a file.

#include <algorithm>
#include <cmath>
#include <iterator>

#include "convert/CConvertProgress.h"
#include "io/Clock.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "raw/Angles.h"
#include "raw/sdr/CConvRawSDRFile.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kNotSdr2Text = L"This SDR file is not in SDR2X format.";
constexpr std::wstring_view kNotSdr33Text = L"This SDR file is not in SDR33 format.";
constexpr std::wstring_view kAlphanumericText =
    L"SDR2X format does not support alphanumeric point names. This is not a valid SDR2X file.";
constexpr std::wstring_view kNoHeaderText =
    L"This SDR file does not have a header record and can not be converted.\n";

enum SdrCode : int {
  kHeader = 0,
  kInstrument = 1,
  kStation = 2,
  kCollimation = 4,
  kAtmosphere = 5,
  kScale = 6,
  kCoordinates = 8,
  kObservation = 9,
  kJob = 10,
  kNote = 13,
  kLastCode = 13
};

constexpr std::wstring_view kDerivations[] = {
    L"F1", L"F2", L"MC", L"CL", L"CO", L"CP", L"IN", L"IR", L"KI", L"RE",
    L"RS", L"SC", L"SO", L"SR", L"TP", L"TS", L"TV", L"NM", L"IC", L"FC",
    L"KM", L"OS", L"RO", L"TL", L"GE", L"IP", L"FD", L"IM", L"TA"};

// Columns of a line. Fields of a record start behind its code and derivation.
constexpr std::size_t kFields = 4;
constexpr std::size_t kAngleUnitColumn = 40;
constexpr std::size_t kDistanceUnitColumn = 41;
constexpr std::size_t kHeaderSize = 45;
constexpr std::size_t kJobNameWidth = 16;
constexpr std::size_t kNoteWidth = 60;
constexpr std::size_t kSdr2PrismColumn = 61;
constexpr std::size_t kSdr33PrismColumn = 67;

/// Lengths that are as good as none, in file units.
constexpr double kNegligible = 0.001;

std::wstring TwoDigits(int value) {
  return {static_cast<wchar_t>(L'0' + value / 10 % 10), static_cast<wchar_t>(L'0' + value % 10)};
}

class SdrToRaw {
 public:
  SdrToRaw(CFileCE& sdr, CRawFile& raw, const SdrLayout& layout, StringList& messages)
      : m_sdr(sdr), m_raw(raw), m_layout(layout), m_messages(messages) {}

  bool Run() {
    CConvertProgress progress;
    progress.Start();
    if (!CheckSdrKind() || !FindCollimation() || !ReadSettings()) return false;
    const platform::LocalTime now = CurrentLocalTime();
    m_date = TwoDigits(now.month) + L"-" + TwoDigits(now.day) + L"-" + FormatInteger(now.year);
    m_time = TwoDigits(now.hour) + L":" + TwoDigits(now.minute) + L":" + TwoDigits(now.second);

    const std::int64_t length = m_sdr.GetLength();
    m_sdr.SeekToBegin();
    while (m_sdr.ReadLine(m_line)) {
      progress.SetPosition(m_sdr.GetPosition(), length);
      if (!ConvertLine()) return false;
    }
    return true;
  }

 private:
  bool Refuse(std::wstring_view text) {
    m_messages.emplace_back(text);
    return false;
  }

  bool CheckSdrKind();
  bool FindCollimation();
  bool ReadSettings();
  bool ReadHeader();
  bool ConvertLine();
  bool WriteJob();
  bool WriteMode();
  bool WritePrism();
  bool WriteAtmosphere();
  bool WriteNote();

  double RealAt(std::size_t column) const {
    return ToReal(Mid(m_line, column, m_layout.realWidth));
  }
  double ScaleOfLine() const { return RealAt(kFields); }

  CFileCE& m_sdr;
  CRawFile& m_raw;
  const SdrLayout& m_layout;
  StringList& m_messages;
  std::wstring m_line;

  MO_RECORD m_mode;  // the units and the scale of the file; all else 0
  std::wstring m_date, m_time;
  std::wstring m_collimation;
  StringList m_pending;  // comments of before the job record
  bool m_jobWritten = false;
};

// Points of SDR2 are numbers of four digits.
bool SdrToRaw::CheckSdrKind() {
  m_sdr.SeekToBegin();
  while (m_sdr.ReadLine(m_line)) {
    const int code = GetSdrRecordCode(m_line);
    if (code == kHeader &&
        Mid(m_line, kFields, m_layout.headerName.size()) != m_layout.headerName) {
      return Refuse(m_layout.named ? kNotSdr33Text : kNotSdr2Text);
    }
    if (m_layout.named) continue;
    const std::size_t names = code == kStation || code == kCoordinates ? 1
                              : code == kObservation                   ? 2
                                                                       : 0;
    for (std::size_t i = 0; i < names; ++i) {
      const std::size_t column = kFields + i * m_layout.nameWidth;
      if (IsNonNumeric(Mid(m_line, column, m_layout.nameWidth))) return Refuse(kAlphanumericText);
    }
  }
  return true;
}

bool SdrToRaw::FindCollimation() {
  bool on = false;
  m_sdr.SeekToBegin();
  while (!on && m_sdr.ReadLine(m_line)) {
    const int code = GetSdrRecordCode(m_line);
    if (code == kStation || code == kCoordinates) break;
    on = code == kCollimation;
  }
  m_collimation = on ? L"--COLLIMATION ON\n" : L"--COLLIMATION OFF\n";
  m_pending.push_back(m_collimation);
  return true;
}

bool SdrToRaw::ReadSettings() {
  bool hasHeader = false;
  m_sdr.SeekToBegin();
  while (m_sdr.ReadLine(m_line)) {
    const int code = GetSdrRecordCode(m_line);
    if (code == kScale) m_mode.scale = ScaleOfLine();
    if (code != kHeader) continue;
    if (!ReadHeader()) return Refuse(kNoHeaderText);
    hasHeader = true;
  }
  return hasHeader || Refuse(kNoHeaderText);
}

/// False for a line that stops before its last setting. Other digits leave a unit as it is.
bool SdrToRaw::ReadHeader() {
  if (m_line.size() < kHeaderSize) return false;
  switch (m_line[kAngleUnitColumn]) {
    case L'1':
      m_mode.angleUnit = kRawDegrees;
      break;
    case L'2':
      m_mode.angleUnit = kRawGons;
      break;
    default:
      break;
  }
  switch (m_line[kDistanceUnitColumn]) {
    case L'1':
      m_mode.distanceUnit = kRawMetres;
      break;
    case L'2':
      m_mode.distanceUnit = kRawInternationalFeet;
      break;
    case L'3':
      m_mode.distanceUnit = kRawUsSurveyFeet;
      break;
    default:
      break;
  }
  return true;
}

bool SdrToRaw::ConvertLine() {
  switch (GetSdrRecordCode(m_line)) {
    case kHeader:
      // The comment stands twice in the log: once from the search, once from the header.
      m_pending.push_back(m_collimation);
      return ReadHeader();
    case kJob:
      return WriteJob();
    case kInstrument:
      return WritePrism();
    case kAtmosphere:
      return WriteAtmosphere();
    case kScale: {
      const double scale = ScaleOfLine();
      if (scale == m_mode.scale) return true;
      m_mode.scale = scale;
      return WriteMode();
    }
    case kNote:
      return WriteNote();
    // Points and observations don't go into the log.
    default:
      return true;
  }
}

bool SdrToRaw::WriteMode() {
  return m_raw.WriteMO(m_mode);
}

bool SdrToRaw::WriteJob() {
  const std::wstring_view name = Mid(m_line, kFields, kJobNameWidth);
  if (!m_raw.WriteJB({name, m_date, m_time}) || !WriteMode()) return false;
  m_jobWritten = true;
  return std::all_of(m_pending.begin(), m_pending.end(),
                     [this](const std::wstring& comment) { return m_raw.WriteComment(comment); });
}

bool SdrToRaw::WritePrism() {
  const std::size_t column = m_layout.named ? kSdr33PrismColumn : kSdr2PrismColumn;
  const RawArgument offset[] = {RealAt(column)};
  const RawArgument constant[] = {RealAt(column + m_layout.realWidth)};
  return m_raw.WriteRecord(L"--PRISM CONSTANT %lf\n", constant) &&
         m_raw.WriteRecord(L"--PRISM OFFSET %lf\n", offset);
}

bool SdrToRaw::WriteAtmosphere() {
  const bool metric = m_mode.distanceUnit == kRawMetres;
  const RawArgument values[] = {RealAt(kFields + m_layout.realWidth), RealAt(kFields)};
  return m_raw.WriteRecord(
      metric ? L"--TEMP %lf C\n--PRESS %lf MM\n" : L"--TEMP %lf F\n--PRESS %lf INCH\n", values);
}

bool SdrToRaw::WriteNote() {
  std::wstring note = L"--";
  note.append(Mid(m_line, kFields, kNoteWidth)).append(L"\n");
  if (m_jobWritten) return m_raw.WriteLine(note);
  m_pending.push_back(std::move(note));
  return true;
}

}  // namespace

int GetSdrRecordCode(std::wstring_view line) {
  if (line.size() < 2 || !IsDigit(line[0]) || !IsDigit(line[1])) return -1;
  const int code = (line[0] - L'0') * 10 + (line[1] - L'0');
  return code <= kLastCode ? code : -1;
}

int GetSdrDerivation(std::wstring_view line) {
  const auto* found = std::find(std::begin(kDerivations), std::end(kDerivations), Mid(line, 2, 2));
  return found == std::end(kDerivations) ? -1 : static_cast<int>(found - kDerivations);
}

bool CConvRawSDRFile::ConvertToRaw(Report& report) {
  return SdrToRaw(*m_pSdrFile, *m_pRawFile, Layout(), report.messages).Run();
}

std::wstring CConvRawSDRFile::MakeSideshotLine(std::wstring_view kind, int mode, std::int32_t unit,
                                               const CZelPoint& station, double instrumentHeight,
                                               double rodHeight, double reference, double circle,
                                               const CZelPoint& point) {
  const double north = point.m_dNorth - station.m_dNorth;
  const double east = point.m_dEast - station.m_dEast;
  const double rise = point.m_dElevation - station.m_dElevation + rodHeight - instrumentHeight;
  const double horizontalDistance = std::sqrt(north * north + east * east);
  double azimuth = 0;
  if (std::fabs(north) >= kNegligible || std::fabs(east) >= kNegligible) {
    azimuth = (mode == 1 ? std::atan2(east, north) : std::atan2(north, east)) * 180.0 / kPi;
  }
  double verticalAngle = 0;
  if (horizontalDistance >= kNegligible && std::fabs(rise) >= kNegligible) {
    verticalAngle = std::atan2(rise, horizontalDistance) * 180.0 / kPi;
  }
  const double angleRight =
      ConvertAngleUnit(unit, kRawDegrees, NormalizeDegrees(azimuth - reference + circle));

  std::wstring line;
  line.append(kind.size() < 2 ? 2 - kind.size() : 0, L' ').append(kind);
  line.append(L",OP").append(station.m_strName).append(L",FP").append(point.m_strName);
  line += L",AR";
  AppendFixed(line, angleRight, 4);
  line += L",ZE";
  AppendFixed(line, 90 - verticalAngle, 4);
  line += L",SD";
  AppendFixed(line, std::sqrt(horizontalDistance * horizontalDistance + rise * rise), 4);
  line.append(L",--").append(point.m_strDescription).append(L"\n");
  return line;
}

}  // namespace zelconvert
