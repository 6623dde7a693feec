// Progress: what a host's window receives, in which order.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "convert/CConvertProgress.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert {
namespace {

#if !defined(_WIN32)  // a real window stands in tests/windows

struct Message {
  std::uint32_t number;
  std::uintptr_t wParam;
  std::intptr_t lParam;
  std::wstring text;  // of a start
  bool operator==(const Message&) const = default;
};

struct Host : ZelWindow {
  Host() : ZelWindow{&Receive} { cZelSetupZelConvertDLLCallBack(this); }
  ~Host() { cZelSetupZelConvertDLLCallBack(nullptr); }
  static std::intptr_t Receive(ZelWindow* window, std::uint32_t number, std::uintptr_t wParam,
                               std::intptr_t lParam) {
    auto& messages = static_cast<Host*>(window)->messages;
    if (wParam == 0) {
      messages.push_back({number, wParam, 0, reinterpret_cast<const wchar_t*>(lParam)});
    } else {
      messages.push_back({number, wParam, lParam, L""});
    }
    return 0;
  }
  std::vector<Message> messages;
};

constexpr std::uint32_t kMessage = ZEL_CONVERT_CALLBACK_MESSAGE;

TEST(Progress, SendsStartPercentAndEnd) {
  const Host host;
  {
    CConvertProgress progress;
    progress.SetPercent(1);  // not started: nothing
    progress.End();
    progress.Start();
    progress.Start(L"once only");
    progress.SetPercent(0);
    progress.SetPosition(1, 3);
    progress.SetPosition(2, 3);
    progress.SetPosition(3, 3);
    progress.SetPosition(3, 0);
  }
  const std::vector<Message> expected = {
      {kMessage, 0, 0, L"Start converting..."},
      {kMessage, 1, 0, L""},
      {kMessage, 1, 33, L""},
      {kMessage, 1, 67, L""},
      {kMessage, 1, 100, L""},
      {kMessage, 1, -1, L""},  // no length, no percentage
      {kMessage, 2, 0, L""},
  };
  EXPECT_EQ(host.messages, expected);
}

TEST(Progress, ReachesNoWindowThatIsGone) {
  Host host;
  {
    CConvertProgress progress;
    progress.Start();
    host.procedure = nullptr;
    progress.SetPercent(50);
    progress.End();
    progress.End();
  }
  EXPECT_EQ(host.messages.size(), 1u);
  cZelSetupZelConvertDLLCallBack(nullptr);
  CConvertProgress progress;
  progress.Start();
  progress.SetPosition(1, 2);
}

#endif

}  // namespace
}  // namespace zelconvert
