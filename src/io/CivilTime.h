// Date and time of day as one count of seconds, by the calendar alone.
#pragma once

#include <chrono>
#include <cstdint>

#include "platform/Platform.h"

namespace zelconvert {

/// Seconds since 1970-01-01 00:00:00 as the local clock shows it: without zone and summer time, so
/// that every day has 86400 of them. A day past the month's end runs on into the next month; the
/// month must be 1 to 12.
constexpr std::int64_t CivilSeconds(int year, int month, int day, int hour = 0, int minute = 0,
                                    int second = 0) {
  using namespace std::chrono;
  const sys_days first =
      std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) / 1;
  const std::int64_t days = first.time_since_epoch().count() + day - 1;
  return ((days * 24 + hour) * 60 + minute) * 60 + second;
}

/// Likewise; the milliseconds are dropped.
constexpr std::int64_t CivilSeconds(const platform::LocalTime& time) {
  return CivilSeconds(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

/// A date of the proleptic Gregorian calendar with a time of day.
struct CivilTime {
  int year = 1970;
  unsigned month = 1, day = 1;
  int hour = 0, minute = 0, second = 0;
};

/// The other way, for years that std::chrono::year can hold.
constexpr CivilTime ToCivilTime(std::int64_t seconds) {
  using namespace std::chrono;
  constexpr std::int64_t kDay = 86400;
  const std::int64_t days = seconds / kDay - (seconds % kDay < 0 ? 1 : 0);
  const int rest = static_cast<int>(seconds - days * kDay);
  const year_month_day date{sys_days{std::chrono::days{days}}};
  return {static_cast<int>(date.year()),
          static_cast<unsigned>(date.month()),
          static_cast<unsigned>(date.day()),
          rest / 3600,
          rest / 60 % 60,
          rest % 60};
}

}  // namespace zelconvert
