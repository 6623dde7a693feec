// The host's commands as functions of a WebAssembly module: a call hands over a command with its
// options, and gets the object that the host prints with --json. Files lie in the module's memory,
// where JavaScript puts them and fetches them. src/worker.js is the one caller.
#include <emscripten.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "bindings/js/native/Call.h"
#include "bindings/js/native/Output.h"
#include "cli/Json.h"
#include "convert/CConvertProgress.h"
#include "convert/GpsSecurity.h"
#include "io/Clock.h"

// clang-format off
EM_JS(void, TellPercent, (int percent), { Module.onPercent(percent); });
// clang-format on

namespace zelconvert::module {
namespace {

using cli::ExitCode;
using cli::Json;

// JavaScript is told of every percent once, though a message comes for every record.
class Window : public ZelWindow {
 public:
  Window() : ZelWindow{&Window::Receive} { CZelConvertApp::Get().SetWindow(this); }
  ~Window() { CZelConvertApp::Get().SetWindow(nullptr); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

 private:
  static std::intptr_t Receive(ZelWindow* window, std::uint32_t, std::uintptr_t kind,
                               std::intptr_t argument) {
    constexpr std::uintptr_t kPercent = 1;
    auto& shown = static_cast<Window*>(window)->m_shown;
    const int percent = static_cast<int>(argument);
    if (kind == kPercent && percent != shown) TellPercent(shown = percent);
    return 0;
  }

  int m_shown = -1;
};

void PrintFailure(ExitCode code, const std::string& text) {
  cli::PrintOut(ToLines(Json::Object{{"exitCode", static_cast<int>(code)}, {"error", text}}));
}

void Run(std::string_view words) {
  const Window window;
  try {
    const Call call = ParseCall(words);
    call.run(call.options);
  } catch (const cli::HostFailure& failure) {
    PrintFailure(failure.GetCode(), failure.what());
  } catch (const std::bad_alloc&) {
    PrintFailure(cli::kFailed, "there is not enough memory");
  } catch (const std::exception& error) {
    PrintFailure(cli::kFailed, error.what());
  }
}

std::optional<ScopedClock> g_clock;

}  // namespace
}  // namespace zelconvert::module

using namespace zelconvert::module;

extern "C" {

/// words: what ParseCall takes, in UTF-8. The answer is a JSON object as the host prints it, which
/// stays until the next call.
EMSCRIPTEN_KEEPALIVE void zelRun(const char* words, std::size_t length) {
  ClearOutput();
  Run({words, length});
}

EMSCRIPTEN_KEEPALIVE const char* zelAnswer() {
  return GetOutput().data();
}
EMSCRIPTEN_KEEPALIVE std::size_t zelAnswerLength() {
  return GetOutput().size();
}

/// Whether GPS records of a log need the signature of their equipment; they do without a call.
EMSCRIPTEN_KEEPALIVE void zelTestGpsSignatures(bool isTested) {
  zelconvert::ExchangeGpsSecurity(isTested);
}

/// From now on it is `milliseconds` of the day on this date, of the given day of the week.
EMSCRIPTEN_KEEPALIVE void zelFixClock(int year, int month, int dayOfWeek, int day, int milliseconds,
                                      std::uint32_t ticks) {
  const auto word = [](int value) { return static_cast<std::uint16_t>(value); };
  zelconvert::platform::LocalTime time;
  time.year = word(year);
  time.month = word(month);
  time.dayOfWeek = word(dayOfWeek);
  time.day = word(day);
  time.hour = word(milliseconds / 3600000);
  time.minute = word(milliseconds / 60000 % 60);
  time.second = word(milliseconds / 1000 % 60);
  time.millisecond = word(milliseconds % 1000);
  g_clock.emplace(time, ticks);
}
}
