#include "ilj/CMoskoJobRecordField.h"

#include <algorithm>

#include "convert/ConversionBase.h"
#include "io/CivilTime.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

// What stands first, next and last in a text of a date or time; the parts of a text that is too
// short overlap.
struct Parts {
  int first, next, last;
};

Parts SplitDigits(std::wstring_view text, std::size_t firstWidth) {
  return {ToInteger(Left(text, firstWidth)), ToInteger(Mid(text, firstWidth, 2)),
          ToInteger(Right(text, 2))};
}

void RequireRange(int value, int low, int high) {
  if (value < low || value > high) throw ConversionFailure();
}

}  // namespace

std::wstring CMoskoJobRecordField::GetText() const {
  std::wstring text;
  AppendText(text);
  return text;
}

bool CMoskoJobRecordFieldList::HasField(IljFieldType type) const {
  return std::any_of(begin(), end(), [type](const auto* one) { return one->GetType() == type; });
}

namespace ilj {

bool IsPointName(std::wstring_view name) {
  constexpr std::size_t kMaxLength = 16;
  return !name.empty() && name.size() <= kMaxLength &&
         std::all_of(name.begin(), name.end(),
                     [](wchar_t c) { return IsAsciiAlnum(c) || c == L'_'; }) &&
         name.find_first_not_of(L'0') != std::wstring_view::npos;
}

std::int64_t ParseDate(std::wstring_view text) {
  const auto [year, month, day] = SplitDigits(text, 4);
  if (year == 0 || month == 0 || day == 0) return 0;
  RequireRange(month, 1, 12);
  RequireRange(day, 1, 31);
  return CivilSeconds(year, month, day);
}

std::int64_t ParseTime(std::wstring_view text) {
  const auto [hour, minute, second] = SplitDigits(text, 2);
  RequireRange(hour, 0, 23);
  RequireRange(minute, 0, 59);
  RequireRange(second, 0, 59);
  // Nobody looks at the day of a time of day. Any but the first keeps midnight apart from unset.
  return CivilSeconds(1970, 1, 2, hour, minute, second);
}

void AppendDate(std::wstring& line, std::int64_t moment) {
  const CivilTime time = ToCivilTime(moment);
  AppendInteger(line, time.year);
  AppendTwoDigits(line, static_cast<int>(time.month));
  AppendTwoDigits(line, static_cast<int>(time.day));
}

void AppendTime(std::wstring& line, std::int64_t moment) {
  const CivilTime time = ToCivilTime(moment);
  AppendTwoDigits(line, time.hour);
  AppendTwoDigits(line, time.minute);
  AppendTwoDigits(line, time.second);
}

std::int32_t ParseTruncated(std::wstring_view text) {
  const double value = ToReal(text);
  return value > ilj::kMin && value < ilj::kMax + 1.0 ? static_cast<std::int32_t>(value)
                                                      : ilj::kMin;
}

}  // namespace ilj
}  // namespace zelconvert
