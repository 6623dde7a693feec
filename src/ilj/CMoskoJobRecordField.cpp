#include "ilj/CMoskoJobRecordField.h"

#include <algorithm>

#include "convert/ConversionBase.h"
#include "io/CivilTime.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

// What stands first, next and last in a text of a date or time; the parts of a text that is too
// short overlap.
struct Parts {
  int first, next, last;
};

// A few digits, as parts of dates and most integers are, need no more than this.
int ParseDigits(std::string_view text) {
  constexpr std::size_t kFew = 4;
  int value = 0;
  for (const char c : text) {
    if (!IsDigit(c) || text.size() > kFew) return ToInteger(text);
    value = value * 10 + (c - '0');
  }
  return value;
}

// A text of as many units, none of which is a digit where one isn't ASCII.
std::string AsciiUnits(std::string_view text) {
  std::string units;
  for (const char byte : text) units.append(UnitsBegunBy(byte), (byte & 0x80) != 0 ? '?' : byte);
  return units;
}

Parts SplitDigits(std::string_view text, std::size_t firstWidth) {
  if (AsciiPrefix(text) < text.size()) return SplitDigits(AsciiUnits(text), firstWidth);
  return {ParseDigits(text.substr(0, firstWidth)), ParseDigits(Mid(text, firstWidth, 2)),
          ParseDigits(text.substr(text.size() - std::min<std::size_t>(text.size(), 2)))};
}

void RequireRange(int value, int low, int high) {
  if (value < low || value > high) throw ConversionFailure();
}

// Year, month and day of "YYYYMMDD"; 0 if one of them is 0.
std::int64_t ParseDate(std::string_view text) {
  const auto [year, month, day] = SplitDigits(text, 4);
  if (year == 0 || month == 0 || day == 0) return 0;
  RequireRange(month, 1, 12);
  RequireRange(day, 1, 31);
  return CivilSeconds(year, month, day);
}

// "HHMMSS".
std::int64_t ParseTime(std::string_view text) {
  const auto [hour, minute, second] = SplitDigits(text, 2);
  RequireRange(hour, 0, 23);
  RequireRange(minute, 0, 59);
  RequireRange(second, 0, 59);
  // Nobody looks at the day of a time of day. Any but the first keeps midnight apart from unset.
  return CivilSeconds(1970, 1, 2, hour, minute, second);
}

// Numbers from 0 to 99, two digits each.
template <std::size_t count>
void AppendPairs(std::string& line, const int (&numbers)[count]) {
  char digits[2 * count];
  for (std::size_t i = 0; i < count; ++i) {
    digits[2 * i] = static_cast<char>('0' + numbers[i] / 10);
    digits[2 * i + 1] = static_cast<char>('0' + numbers[i] % 10);
  }
  line.append(digits, 2 * count);
}

void AppendDate(std::string& line, std::int64_t moment) {
  const CivilTime time = ToCivilTime(moment);
  AppendInteger(line, time.year);
  AppendPairs(line, {static_cast<int>(time.month), static_cast<int>(time.day)});
}

void AppendTime(std::string& line, std::int64_t moment) {
  const CivilTime time = ToCivilTime(moment);
  AppendPairs(line, {time.hour, time.minute, time.second});
}

// The integer part of the number at the start of a text; the smallest integer if it is too large.
std::int32_t ParseTruncated(std::string_view text) {
  const double value = ToReal(text);
  return value > ilj::kMin && value < ilj::kMax + 1.0 ? static_cast<std::int32_t>(value)
                                                      : ilj::kMin;
}

// 1 to 16 letters A to Z of either case, digits and "_"; not a run of zeros alone.
[[nodiscard]] bool IsPointName(std::string_view name) {
  constexpr std::size_t kMaxLength = 16;
  return !name.empty() && name.size() <= kMaxLength &&
         std::all_of(name.begin(), name.end(),
                     [](char c) { return IsAsciiAlnum(c) || c == '_'; }) &&
         name.find_first_not_of('0') != std::string_view::npos;
}

}  // namespace

bool CMoskoJobRecordField::AcceptsValue() const {
  const IljFieldForm& form = Form();
  if (form.kind == IljFieldKind::Text) return !m_string.empty();
  if (form.kind == IljFieldKind::PointName) return IsPointName(m_string);
  if (form.kind == IljFieldKind::Real) return form.accepts(m_number);
  if (IsMoment(form.kind)) return m_number != 0;
  return m_number >= form.low && m_number <= form.high &&
         m_number != static_cast<double>(form.except);
}

void CMoskoJobRecordField::SetText(std::string_view value) {
  switch (Form().kind) {
    case IljFieldKind::Text:
      return SetUtf8(value);
    case IljFieldKind::PointName:
      return SetUtf8(value.substr(0, value.find_last_not_of(' ') + 1));
    case IljFieldKind::Date:
    case IljFieldKind::Time:
      return SetMoment(value);
    case IljFieldKind::Integer:
      return SetNumber(ParseDigits(value));
    case IljFieldKind::TruncatedReal:
      return SetNumber(ParseTruncated(value));
    case IljFieldKind::Real:
      return SetNumber(ToReal(value));
  }
}

void CMoskoJobRecordField::SetMoment(std::string_view value) {
  if (!m_hasMoment || value != m_momentText) {
    const bool isDate = Form().kind == IljFieldKind::Date;
    m_moment = static_cast<double>(isDate ? ParseDate(value) : ParseTime(value));
    m_momentText = value;
    m_hasMoment = true;
  }
  SetNumber(m_moment);
}

void CMoskoJobRecordField::AppendText(std::string& line) const {
  const IljFieldKind kind = Form().kind;
  if (IsMoment(kind) && m_number == 0) return;
  line.append(IljLayoutOf(m_type).tag.text, kIljFieldTagLength + 2);
  if (IsText(kind)) return static_cast<void>(line.append(m_string));
  if (kind == IljFieldKind::Real) return AppendFixed(line, m_number, m_decimals);
  const auto number = static_cast<std::int64_t>(m_number);
  if (kind == IljFieldKind::Date) return AppendDate(line, number);
  if (kind == IljFieldKind::Time) return AppendTime(line, number);
  AppendInteger(line, static_cast<std::int32_t>(number));
}

std::string CMoskoJobRecordField::GetText() const {
  std::string text;
  AppendText(text);
  return text.erase(0, 1);
}

bool CMoskoJobRecordFieldList::HasField(IljFieldType type) const {
  return std::any_of(begin(), end(), [type](const auto* one) { return one->GetType() == type; });
}

}  // namespace zelconvert
