#include "io/Clock.h"

#include <optional>

namespace zelconvert {
namespace {

struct Fixed {
  platform::LocalTime time;
  std::uint32_t ticks;
};
std::optional<Fixed> g_fixed;

}  // namespace

platform::LocalTime CurrentLocalTime() {
  return g_fixed ? g_fixed->time : platform::SystemLocalTime();
}

// A fixed clock still ticks with every look, since callers may wait for the next tick.
std::uint32_t CurrentTickCount() {
  return g_fixed ? g_fixed->ticks++ : platform::SystemTickCount();
}

ScopedClock::ScopedClock(const platform::LocalTime& time, std::uint32_t ticks) {
  g_fixed = Fixed{time, ticks};
}

ScopedClock::~ScopedClock() {
  g_fixed.reset();
}

}  // namespace zelconvert
