#include "io/Clock.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <optional>

#include "io/Numbers.h"

namespace zelconvert {
namespace {

struct Fixed {
  Fixed(const platform::LocalTime& now, std::uint32_t first) : time(now), ticks(first) {}

  platform::LocalTime time;
  std::atomic<std::uint32_t> ticks;
};
std::optional<Fixed> g_fixed;

struct TimePart {
  wchar_t letter;
  std::uint16_t platform::LocalTime::*value;
  int divisor = 1;
};
constexpr TimePart kTimeParts[] = {
    {L'C', &platform::LocalTime::year, 100}, {L'y', &platform::LocalTime::year},
    {L'm', &platform::LocalTime::month},     {L'd', &platform::LocalTime::day},
    {L'H', &platform::LocalTime::hour},      {L'M', &platform::LocalTime::minute},
    {L'S', &platform::LocalTime::second},
};

}  // namespace

platform::LocalTime CurrentLocalTime() {
  return g_fixed ? g_fixed->time : platform::SystemLocalTime();
}

std::wstring FormatTime(std::wstring_view pattern, const platform::LocalTime& time) {
  std::wstring text;
  for (const wchar_t c : pattern) {
    const TimePart* part = std::find_if(std::begin(kTimeParts), std::end(kTimeParts),
                                        [c](const TimePart& other) { return other.letter == c; });
    if (part == std::end(kTimeParts)) {
      text.push_back(c);
    } else {
      AppendTwoDigits(text, time.*part->value / part->divisor % 100);
    }
  }
  return text;
}

// A fixed clock still ticks with every look, since callers may wait for the next tick.
std::uint32_t CurrentTickCount() {
  return g_fixed ? g_fixed->ticks++ : platform::SystemTickCount();
}

ScopedClock::ScopedClock(const platform::LocalTime& time, std::uint32_t ticks) {
  g_fixed.emplace(time, ticks);
}

ScopedClock::~ScopedClock() {
  g_fixed.reset();
}

}  // namespace zelconvert
