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
  static CZelConvertApp& Get();

  void SetWindow(ZelWindowHandle window) { m_hConvertCallbackWnd = window; }
  bool HasWindow() const { return m_hConvertCallbackWnd != nullptr; }
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

  void Start(std::wstring_view text = kStartText);
  void SetPercent(std::int32_t percent);
  /// MulDiv(position, 100, length) as percentage.
  void SetPosition(std::int64_t position, std::int64_t length);
  void End();

 private:
  bool m_bStarted = false;
};

}  // namespace zelconvert
