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

void CConvertProgress::Start(std::wstring_view text) {
  if (m_bStarted) return;
  m_hWindow = CZelConvertApp::Get().GetWindow();
  m_strProgressText = text;
  m_bStarted = true;
  if (!platform::IsWindowAlive(m_hWindow)) return;
  Send(m_hWindow, Message::Start, reinterpret_cast<std::intptr_t>(m_strProgressText.c_str()));
}

void CConvertProgress::SetPercent(std::int32_t percent) {
  if (!m_bStarted || !HasWindow() || !platform::IsWindowAlive(m_hWindow)) return;
  Send(m_hWindow, Message::Percent, percent);
}

void CConvertProgress::SetPosition(std::int64_t position, std::int64_t length) {
  if (m_bStarted && HasWindow()) SetPercent(MulDiv(position, 100, length));
}

// Sent even to a window that no longer stands: the system drops it then.
void CConvertProgress::End() {
  if (!m_bStarted) return;
  m_bStarted = false;
  if (HasWindow()) Send(m_hWindow, Message::End, 0);
}

}  // namespace zelconvert
