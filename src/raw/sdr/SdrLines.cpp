#include "raw/sdr/SdrLines.h"

#include "io/CParser.h"
#include "io/Columns.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {
namespace {

constexpr std::size_t kNameLength = 14;
constexpr std::size_t kNameWidth = 16;
constexpr std::size_t kNumberWidth = 4;
constexpr std::size_t kTextWidth = 16;
constexpr int kAngleDecimals = 5;
constexpr int kHeightDecimals = 3;
constexpr int kScaleDecimals = 3;
constexpr double kInchesPerFoot = 12;

// Where a header tells its units.
constexpr std::size_t kAngleUnitColumn = 40;
constexpr std::size_t kDistanceUnitColumn = 41;

void CutTo(std::wstring& line, std::size_t size) {
  if (line.size() > size) line.resize(size);
}

void Pad(std::wstring& line, std::size_t start, std::size_t width) {
  if (line.size() < start + width) line.append(start + width - line.size(), L' ');
}

// "%-*.*f": a longer number stays whole.
void AppendWhole(std::wstring& line, double value, std::size_t width, int decimals) {
  const std::size_t start = line.size();
  AppendFixed(line, value, decimals);
  Pad(line, start, width);
}

}  // namespace

const SdrLayout kSdr33 = {true, 16, 16, 5, 5, L"00NMSDR33  V04-01.190000", L"SDR3"};
const SdrLayout kSdr2 = {false, 4, 10, 3, 3, L"00NMSDR22  V03-01.7a0000", L"SDR2"};

namespace sdr {

void FormatReal(std::wstring& line, double value, std::size_t width, int decimals) {
  if (IsNull(value)) return AppendBlanks(line, width);
  const std::size_t start = line.size();
  AppendWhole(line, value, width, decimals);
  CutTo(line, start + width);
}

void FormatInteger(std::wstring& line, std::int32_t value, std::size_t width) {
  const std::size_t start = line.size();
  AppendInteger(line, value);
  Pad(line, start, width);
  CutTo(line, start + width);
}

void FormatPointNumber(std::wstring& line, std::int32_t number) {
  const std::size_t start = line.size();
  const std::wstring digits = zelconvert::FormatInteger(number);
  if (digits.size() < kNumberWidth) line.append(kNumberWidth - digits.size(), L'0');
  line += digits;
  CutTo(line, start + kNumberWidth);
}

void FormatName(std::wstring& line, std::wstring_view name) {
  AppendRight(line, Left(Trim(name), kNameLength), kNameWidth);
}

}  // namespace sdr

bool SdrLines::AppendName(std::wstring_view name) {
  if (m_layout.named) {
    sdr::FormatName(m_line, name);
    return true;
  }
  if (IsNonNumeric(name)) return false;
  sdr::FormatPointNumber(m_line, ToInteger(name));
  return true;
}

void SdrLines::AppendReal(double value, int decimals) {
  sdr::FormatReal(m_line, value, m_layout.realWidth, decimals);
}

bool SdrLines::AppendPoint(const CZelPoint& point) {
  if (!AppendName(point.m_strName)) return false;
  AppendReal(point.m_dNorth, m_layout.coordinateDecimals);
  AppendReal(point.m_dEast, m_layout.coordinateDecimals);
  AppendReal(point.m_dElevation, m_layout.coordinateDecimals);
  return true;
}

void SdrLines::Header(std::wstring_view date, std::wstring_view time, bool gons, bool metres) {
  m_line = m_layout.headerStart;
  m_line.append(date).append(L" ").append(Left(time, 5)).append(L"122211");
  // The columns stand where they do for a date of ten characters, whatever the log has.
  if (m_line.size() > kAngleUnitColumn) m_line[kAngleUnitColumn] = gons ? L'2' : L'1';
  if (m_line.size() > kDistanceUnitColumn) m_line[kDistanceUnitColumn] = metres ? L'1' : L'2';
}

void SdrLines::Job(std::wstring_view name) {
  m_line = L"10NM";
  AppendLeft(m_line, name, kTextWidth);
}

void SdrLines::Scale(double scale) {
  m_line = L"06NM";
  AppendReal(scale, kScaleDecimals);
}

void SdrLines::Instrument(double edmOffset) {
  const double offset = NullToZero(edmOffset) / kInchesPerFoot;
  const bool hasOffset = offset != 0;
  m_line = L"01NM";
  m_line += hasOffset ? L"3RED 3" : L"      ";
  AppendRight(m_line, L"000000", 17);
  AppendRight(m_line, L"00000021", 24);
  if (hasOffset) {
    AppendWhole(m_line, offset, m_layout.realWidth, 3);
    AppendWhole(m_line, 0, m_layout.realWidth, 3);
  } else {
    AppendBlanks(m_line, 2 * m_layout.realWidth);
  }
  AppendBlanks(m_line, m_layout.realWidth);
}

bool SdrLines::Station(const CZelPoint& point, double instrumentHeight) {
  m_line = L"02TV";
  if (!AppendPoint(point)) return false;
  if (NullToZero(instrumentHeight) != 0) {
    AppendWhole(m_line, instrumentHeight, m_layout.realWidth, kHeightDecimals);
  } else {
    AppendBlanks(m_line, m_layout.realWidth);
  }
  AppendLeft(m_line, point.m_strDescription, kTextWidth);
  return true;
}

void SdrLines::TargetHeight(double height) {
  m_line = L"03NM";
  AppendReal(height, kHeightDecimals);
}

bool SdrLines::Backsight(std::wstring_view station, std::wstring_view backsight, double azimuth,
                         double circle) {
  m_line = L"07KI";
  if (!AppendName(station) || !AppendName(backsight)) return false;
  AppendReal(azimuth, kAngleDecimals);
  AppendReal(circle, kAngleDecimals);
  return true;
}

bool SdrLines::Coordinates(const CZelPoint& point) {
  m_line = L"08KI";
  if (!AppendPoint(point)) return false;
  AppendLeft(m_line, point.m_strDescription, kTextWidth);
  return true;
}

bool SdrLines::Observation(const SdrObservation& shot) {
  m_line = L"09F1";
  if (!AppendName(shot.station) || !AppendName(shot.target)) return false;
  AppendReal(shot.distance, m_layout.distanceDecimals);
  AppendReal(shot.zenith, kAngleDecimals);
  AppendReal(shot.horizontal, kAngleDecimals);
  AppendLeft(m_line, shot.note, kTextWidth);
  return true;
}

bool SdrLines::BacksightObservation(std::wstring_view station, std::wstring_view backsight,
                                    double circle, std::wstring_view note) {
  m_line = L"09F1";
  // Where points are numbers, readers find the station in both columns.
  if (!AppendName(station) || !AppendName(m_layout.named ? backsight : station)) return false;
  AppendBlanks(m_line, 2 * m_layout.realWidth);
  AppendReal(circle, kAngleDecimals);
  AppendLeft(m_line, note, kTextWidth);
  return true;
}

void SdrLines::Note(std::wstring_view text) {
  m_line = L"13NM";
  AppendLeft(m_line, text, 60);
}

}  // namespace zelconvert
