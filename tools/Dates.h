// Days as survey files write them, as "2026-09-14".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/Survey.h"

namespace zelconvert::tools {

/// Of a text that begins with month-day-year ("09-14-2026", also with "/") or day-month-year with
/// the month's English name ("14-Sep-26"); a year of two digits is one of this century. Empty if
/// there is no such day.
std::wstring ParseDate(std::wstring_view text);
/// Empty if the calendar has no such day.
std::wstring DateOf(int year, int month, int day);
/// The day in GPS time (IS-GPS-200, 3.3.4: weeks from 6 January 1980). Empty for a week below 1 or
/// seconds of no week.
std::wstring DateOfGpsWeek(std::int32_t week, double seconds);

/// Widens the survey's span of days; an empty date changes nothing.
void TakeDate(Survey& survey, const std::wstring& date);

}  // namespace zelconvert::tools
