// The host's commands as functions of a WebAssembly module: a call hands over a command with its
// options, and gets the object that the host prints with --json. Files lie in the module's memory,
// where JavaScript puts them and fetches them. src/worker.js is the one caller.
#include <emscripten.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "bindings/native/Run.h"
#include "convert/GpsSecurity.h"
#include "io/Clock.h"

// clang-format off
EM_JS(void, TellPercent, (int percent), { Module.onPercent(percent); });
// clang-format on

namespace {

std::string g_answer;
std::optional<zelconvert::ScopedClock> g_clock;

}  // namespace

extern "C" {

/// words: what ParseCall takes, in UTF-8. The answer is a JSON object as the host prints it, which
/// stays until the next call.
EMSCRIPTEN_KEEPALIVE void zelRun(const char* words, std::size_t length) {
  g_answer = zelconvert::bindings::Run({words, length}, TellPercent).json;
}

EMSCRIPTEN_KEEPALIVE const char* zelAnswer() {
  return g_answer.data();
}
EMSCRIPTEN_KEEPALIVE std::size_t zelAnswerLength() {
  return g_answer.size();
}

/// Whether GPS records of a log need the signature of their equipment; they do without a call.
EMSCRIPTEN_KEEPALIVE void zelTestGpsSignatures(bool isTested) {
  zelconvert::SetGpsSecurity(isTested);
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
