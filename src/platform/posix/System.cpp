// Clock, host heap and host window.
#include <time.h>

#include <algorithm>
#include <cstdlib>

#include "platform/Platform.h"

namespace zelconvert::platform {

std::uint32_t SystemTickCount() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  const std::int64_t milliseconds =
      static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
  return static_cast<std::uint32_t>(milliseconds);
}

LocalTime SystemLocalTime() {
  timespec now{};
  tm local{};
  clock_gettime(CLOCK_REALTIME, &now);
  localtime_r(&now.tv_sec, &local);
  const auto word = [](long value) { return static_cast<std::uint16_t>(value); };
  LocalTime time;
  time.year = word(local.tm_year + 1900);
  time.month = word(local.tm_mon + 1);
  time.dayOfWeek = word(local.tm_wday);
  time.day = word(local.tm_mday);
  time.hour = word(local.tm_hour);
  time.minute = word(local.tm_min);
  time.second = word(std::min(local.tm_sec, 59));  // a leap second has no place in a file
  time.millisecond = word(now.tv_nsec / 1000000);
  return time;
}

void* AllocateForHost(std::size_t bytes) {
  return std::calloc(std::max<std::size_t>(bytes, 1), 1);
}

std::uint32_t CallbackMessage() {
  return ZEL_CONVERT_CALLBACK_MESSAGE;
}

bool IsWindowAlive(ZelWindowHandle window) {
  return window != nullptr && window->procedure != nullptr;
}

void SendToWindow(ZelWindowHandle window, std::uintptr_t wParam, std::intptr_t lParam) {
  if (IsWindowAlive(window)) window->procedure(window, CallbackMessage(), wParam, lParam);
}

}  // namespace zelconvert::platform
