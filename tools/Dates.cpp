#include "tools/Dates.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include "io/CivilTime.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert::tools {
namespace {

constexpr std::wstring_view kMonths[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                         L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
constexpr std::int32_t kSecondsPerWeek = 604800;

/// Takes the number or word in front of the next "-" or "/" off `text`.
std::wstring_view TakePart(std::wstring_view& text) {
  std::size_t end = 0;
  while (end < text.size() && IsAsciiAlnum(text[end])) ++end;
  const std::wstring_view part = text.substr(0, end);
  const bool goesOn = end < text.size() && (text[end] == L'-' || text[end] == L'/');
  text.remove_prefix(end + (goesOn ? 1 : 0));
  return part;
}

int NumberOf(std::wstring_view part) {
  return part.empty() || part.size() > 4 || IsNonNumeric(part) ? -1 : ToInteger(part);
}

/// -1 if it is none.
int MonthNamed(std::wstring_view name) {
  const auto* found = std::find_if(std::begin(kMonths), std::end(kMonths),
                                   [&](auto month) { return EqualsIgnoringCase(month, name); });
  return found == std::end(kMonths) ? -1 : static_cast<int>(found - kMonths) + 1;
}

}  // namespace

std::wstring ParseDate(std::wstring_view text) {
  text = Trim(text);
  const std::wstring_view first = TakePart(text);
  const std::wstring_view second = TakePart(text);
  int year = NumberOf(TakePart(text));
  if (year >= 0 && year < 100) year += 2000;
  const int named = MonthNamed(second);
  return named > 0 ? DateOf(year, named, NumberOf(first))
                   : DateOf(year, NumberOf(first), NumberOf(second));
}

std::wstring DateOf(int year, int month, int day) {
  using namespace std::chrono;
  if (year < 1900 || year > 9999 || month < 1 || day < 1) return {};
  const year_month_day date{std::chrono::year(year),
                            std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return {};
  std::wstring text = FormatInteger(year) + L"-";
  AppendTwoDigits(text, month);
  text += L'-';
  AppendTwoDigits(text, day);
  return text;
}

std::wstring DateOfGpsWeek(std::int32_t week, double seconds) {
  constexpr std::int32_t kLastWeek = 10000;
  if (week < 1 || week > kLastWeek || !(seconds >= 0 && seconds < kSecondsPerWeek)) return {};
  const CivilTime time =
      ToCivilTime(CivilSeconds(1980, 1, 6) + std::int64_t{week} * kSecondsPerWeek +
                  static_cast<std::int64_t>(seconds));
  return DateOf(time.year, static_cast<int>(time.month), static_cast<int>(time.day));
}

void TakeDate(Survey& survey, const std::wstring& date) {
  if (date.empty()) return;
  if (survey.firstDate.empty() || date < survey.firstDate) survey.firstDate = date;
  survey.lastDate = std::max(survey.lastDate, date);
}

}  // namespace zelconvert::tools
