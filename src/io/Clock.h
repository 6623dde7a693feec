// Time as the conversions see it: the system's, unless a test has fixed it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelconvert {

/// Date and time of day in the zone of the machine.
platform::LocalTime CurrentLocalTime();
/// The pattern with two digits in place of each of its letters C and y (both halves of the year),
/// m, d, H, M and S: "m-d-Cy H:M" gives "03-14-2026 09:26". All else stands for itself.
std::wstring FormatTime(std::wstring_view pattern, const platform::LocalTime& time);
/// Milliseconds, monotonic, wrapping at 2^32.
std::uint32_t CurrentTickCount();

/// Fixes the clock of all threads while it lives; no other thread may run when it begins or ends.
/// For tests and golden files; nothing of it is exported.
class ScopedClock {
 public:
  /// The tick count starts at `ticks` milliseconds and grows by 1 with each look; the time stands.
  ScopedClock(const platform::LocalTime& time, std::uint32_t ticks);
  ~ScopedClock();
  ScopedClock(const ScopedClock&) = delete;
  ScopedClock& operator=(const ScopedClock&) = delete;
};

}  // namespace zelconvert
