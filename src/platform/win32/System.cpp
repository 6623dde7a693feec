// Clock, host heap and host window.
#include <windows.h>

#include "platform/Platform.h"

namespace zelconvert::platform {

std::uint32_t SystemTickCount() {
  return GetTickCount();
}

LocalTime SystemLocalTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth,  now.wDayOfWeek, now.wDay,
          now.wHour, now.wMinute, now.wSecond,    now.wMilliseconds};
}

void* AllocateForHost(std::size_t bytes) {
  return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, bytes);
}

std::uint32_t CallbackMessage() {
  static const UINT message = RegisterWindowMessageW(L"WM_ZELCONVERT_CALLBACK");
  return message;
}

bool IsWindowAlive(ZelWindowHandle window) {
  return window != nullptr && IsWindow(window) != 0;
}

void SendToWindow(ZelWindowHandle window, std::uintptr_t wParam, std::intptr_t lParam) {
  SendMessageW(window, CallbackMessage(), wParam, lParam);
}

}  // namespace zelconvert::platform
