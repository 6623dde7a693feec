// Progress of a running conversion, as messages to the host's window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelconvert {

/// The text every conversion starts with.
inline constexpr std::wstring_view kStartText = L"Start converting...";

/// The library's one application object: the host's window and the messages to it.
class CZelConvertApp {
 public:
  /// The one of this process.
  static CZelConvertApp& Get();

  /// Null: nobody is told. The window stays the host's.
  void SetWindow(ZelWindowHandle window) { m_hConvertCallbackWnd = window; }
  /// A window is set, alive or not.
  bool HasWindow() const { return m_hConvertCallbackWnd != nullptr; }
  // Each returns when the host has handled the message; nothing without a living window.
  // `text` is copied; percent: 0 to 100.
  void SendStart(std::wstring_view text);
  void SendPercent(std::int32_t percent);
  void SendEnd();

 private:
  ZelWindowHandle m_hConvertCallbackWnd = nullptr;
  std::wstring m_strProgressText;  // read by the host while it handles a start
};

/// One conversion's progress. Ends by itself when it goes out of scope.
class CConvertProgress {
 public:
  CConvertProgress() = default;
  ~CConvertProgress() { End(); }
  CConvertProgress(const CConvertProgress&) = delete;
  CConvertProgress& operator=(const CConvertProgress&) = delete;

  /// Tells the host that a conversion starts.
  void Start(std::wstring_view text = kStartText);
  /// 0 to 100. Nothing before Start.
  void SetPercent(std::int32_t percent);
  /// MulDiv(position, 100, length) as percentage.
  void SetPosition(std::int64_t position, std::int64_t length);
  /// Tells the host that the conversion is over; nothing before Start or a second time.
  void End();

 private:
  bool m_bStarted = false;
};

}  // namespace zelconvert
