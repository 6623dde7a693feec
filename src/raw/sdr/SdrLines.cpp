#include "raw/sdr/SdrLines.h"

#include <algorithm>
#include <iterator>

namespace zelconvert {
namespace {

constexpr std::size_t kNameLength = 14;
constexpr std::size_t kNameWidth = 16;
constexpr std::size_t kNumberWidth = 4;

constexpr std::wstring_view kDerivations[] = {
    L"F1", L"F2", L"MC", L"CL", L"CO", L"CP", L"IN", L"IR", L"KI", L"RE",
    L"RS", L"SC", L"SO", L"SR", L"TP", L"TS", L"TV", L"NM", L"IC", L"FC",
    L"KM", L"OS", L"RO", L"TL", L"GE", L"IP", L"FD", L"IM", L"TA"};

// "%-*.*f": a longer number stays whole.
void AppendWhole(std::string& line, double value, std::size_t width, int decimals) {
  if (IsNull(value)) return AppendBlanks(line, width);
  const std::size_t start = line.size();
  AppendFixed(line, value, decimals);
  line.resize(std::max(line.size(), start + width), ' ');
}

}  // namespace

const SdrLayout kSdr33 = {true, 16, 16, 5, L"00NMSDR33  V04-01.190000", L"SDR3"};
const SdrLayout kSdr2 = {false, 4, 10, 3, L"00NMSDR22  V03-01.7a0000", L"SDR2"};

namespace sdr {

void FormatReal(std::string& line, double value, std::size_t width, int decimals) {
  const std::size_t start = line.size();
  AppendWhole(line, value, width, decimals);
  line.resize(start + width);
}

void FormatInteger(std::string& line, std::int32_t value, std::size_t width) {
  const std::size_t start = line.size();
  AppendInteger(line, value);
  line.resize(start + width, ' ');
}

void FormatPointNumber(std::string& line, std::int32_t number) {
  const std::size_t start = line.size();
  std::string digits;
  AppendInteger(digits, number);
  if (digits.size() < kNumberWidth) line.append(kNumberWidth - digits.size(), '0');
  line += digits;
  line.resize(start + kNumberWidth);
}

void FormatName(std::string& line, std::wstring_view name) {
  AppendRight(line, Left(Trim(name), kNameLength), kNameWidth);
}

}  // namespace sdr

std::optional<AngularUnit> AngularUnitOfSdr(wchar_t c) {
  if (c == L'1') return AngularUnit::DegreesMinutesSeconds;
  if (c == L'2') return AngularUnit::Gon;
  return std::nullopt;
}

std::optional<LinearUnit> LinearUnitOfSdr(wchar_t c) {
  if (c == L'1') return LinearUnit::Metre;
  if (c == L'2') return LinearUnit::InternationalFoot;
  if (c == L'3') return LinearUnit::UsSurveyFoot;
  return std::nullopt;
}

int GetSdrDerivation(std::wstring_view line) {
  const auto* found = std::find(std::begin(kDerivations), std::end(kDerivations), Mid(line, 2, 2));
  return found == std::end(kDerivations) ? -1 : static_cast<int>(found - kDerivations);
}

void SdrLines::MakeHeader(std::wstring_view date, std::wstring_view time, AngularUnit angles,
                          bool metres) {
  std::wstring line(m_layout.headerStart);
  line.append(date).append(L" ").append(Left(time, 5)).append(L"122211");
  // The columns stand where they do for a date of ten characters, whatever the log has.
  const auto put = [&line](std::size_t column, wchar_t c) {
    if (line.size() > column) line[column] = c;
  };
  put(kSdrAngleUnitColumn, angles == AngularUnit::Gon ? L'2' : L'1');
  put(kSdrLengthUnitColumn, metres ? L'1' : L'2');
  m_line = ToNarrow(line);
}

void SdrLines::AppendReal(double value, SdrForm form) {
  const std::size_t width = m_layout.realWidth;
  if (form == SdrForm::Whole) return AppendWhole(m_line, value, width, 3);
  sdr::FormatReal(m_line, value, width,
                  form == SdrForm::Length  ? m_layout.lengthDecimals
                  : form == SdrForm::Angle ? 5
                                           : 3);
}

bool SdrLines::AppendText(std::wstring_view text, SdrForm form, std::size_t width) {
  if (form == SdrForm::Text) {
    AppendLeft(m_line, text, width);
  } else if (m_layout.named) {
    sdr::FormatName(m_line, text);
  } else if (IsNonNumeric(text)) {
    return false;
  } else {
    sdr::FormatPointNumber(m_line, ToInteger(text));
  }
  return true;
}

}  // namespace zelconvert
