#include "convert/CConvertProgress.h"

#include "io/Numbers.h"

namespace zelconvert {
namespace {

enum class Message : std::uintptr_t { Start = 0, Percent = 1, End = 2 };

void Send(ZelWindowHandle window, Message message, std::intptr_t argument) {
  platform::SendToWindow(window, static_cast<std::uintptr_t>(message), argument);
}

}  // namespace

CZelConvertApp& CZelConvertApp::Get() {
  static CZelConvertApp app;
  return app;
}

void CZelConvertApp::SendStart(std::wstring_view text) {
  if (m_hConvertCallbackWnd == nullptr || !platform::IsWindowAlive(m_hConvertCallbackWnd)) return;
  m_strProgressText = text;
  Send(m_hConvertCallbackWnd, Message::Start,
       reinterpret_cast<std::intptr_t>(m_strProgressText.c_str()));
}

void CZelConvertApp::SendPercent(std::int32_t percent) {
  if (m_hConvertCallbackWnd == nullptr || !platform::IsWindowAlive(m_hConvertCallbackWnd)) return;
  Send(m_hConvertCallbackWnd, Message::Percent, percent);
}

// Sent even to a window that no longer stands: the system drops it then.
void CZelConvertApp::SendEnd() {
  if (m_hConvertCallbackWnd != nullptr) Send(m_hConvertCallbackWnd, Message::End, 0);
}

void CConvertProgress::Start(std::wstring_view text) {
  if (m_bStarted) return;
  CZelConvertApp::Get().SendStart(text);
  m_bStarted = true;
}

void CConvertProgress::SetPercent(std::int32_t percent) {
  if (m_bStarted) CZelConvertApp::Get().SendPercent(percent);
}

void CConvertProgress::SetPosition(std::int64_t position, std::int64_t length) {
  if (m_bStarted && CZelConvertApp::Get().HasWindow()) {
    CZelConvertApp::Get().SendPercent(MulDiv(position, 100, length));
  }
}

void CConvertProgress::End() {
  if (!m_bStarted) return;
  m_bStarted = false;
  CZelConvertApp::Get().SendEnd();
}

}  // namespace zelconvert
