// Progress of a running conversion, as messages to the host's window.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelconvert {

/// The text every conversion starts with.
inline constexpr std::wstring_view kStartText = L"Start converting...";

/// The library's one application object: it keeps the host's window, for all threads.
class CZelConvertApp {
 public:
  /// The one of this process.
  static CZelConvertApp& Get();

  /// Null: nobody is told. The window stays the host's.
  void SetWindow(ZelWindowHandle window) { m_hConvertCallbackWnd = window; }
  ZelWindowHandle GetWindow() const { return m_hConvertCallbackWnd; }

 private:
  std::atomic<ZelWindowHandle> m_hConvertCallbackWnd = nullptr;
};

/// One conversion's progress, told to the window that is registered when it starts, for as long as
/// that stays registered. Each call returns when the host has handled the message; a window that is
/// no longer alive gets none. Ends by itself when it goes out of scope.
class CConvertProgress {
 public:
  CConvertProgress() = default;
  ~CConvertProgress() { End(); }
  CConvertProgress(const CConvertProgress&) = delete;
  CConvertProgress& operator=(const CConvertProgress&) = delete;

  /// Tells the host that a conversion starts. `text` is copied.
  void Start(std::wstring_view text = kStartText);
  /// 0 to 100. Nothing before Start.
  void SetPercent(std::int32_t percent);
  /// MulDiv(position, 100, length) as percentage.
  void SetPosition(std::int64_t position, std::int64_t length);
  /// Tells the host that the conversion is over; nothing before Start or a second time.
  void End();

 private:
  [[nodiscard]] bool HasWindow() const {
    return m_hWindow != nullptr && m_hWindow == CZelConvertApp::Get().GetWindow();
  }

  bool m_bStarted = false;
  ZelWindowHandle m_hWindow = nullptr;
  std::wstring m_strProgressText;  // read by the host while it handles a start
};

}  // namespace zelconvert
