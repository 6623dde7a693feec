#include "bindings/native/Run.h"

#include <exception>
#include <new>
#include <utility>

#include "bindings/native/Call.h"
#include "bindings/native/Output.h"
#include "cli/Json.h"
#include "cli/platform/Host.h"

namespace zelconvert::bindings {
namespace {

using cli::ExitCode;
using cli::Json;
using cli::platform::ProgressWindow;

ExitCode PrintFailure(ExitCode code, const std::string& text) {
  cli::PrintOut(ToLines(Json::Object{{"exitCode", static_cast<int>(code)}, {"error", text}}));
  return code;
}

ExitCode RunCommand(std::string_view words) {
  try {
    const Call call = ParseCall(words);
    return call.run(call.options);
  } catch (const cli::HostFailure& failure) {
    return PrintFailure(failure.GetCode(), failure.what());
  } catch (const std::bad_alloc&) {
    return PrintFailure(cli::kFailed, "there is not enough memory");
  } catch (const std::exception& error) {
    return PrintFailure(cli::kFailed, error.what());
  }
}

class Listener;
thread_local Listener* g_pListener = nullptr;

// Tells of every percent of this thread once, though a message comes for every record.
class Listener {
 public:
  explicit Listener(const std::function<void(int percent)>& onPercent) : m_onPercent(onPercent) {
    if (onPercent) Register();
  }
  ~Listener() { g_pListener = m_pOuter; }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

 private:
  // One window for all threads: a message comes on the thread whose conversion it tells of.
  static void Register() {
    static const ProgressWindow window([](int percent) {
      if (g_pListener != nullptr) g_pListener->Tell(percent);
    });
  }
  void Tell(int percent) {
    if (m_onPercent && percent >= 0 && percent != m_shown) m_onPercent(m_shown = percent);
  }

  const std::function<void(int percent)>& m_onPercent;
  int m_shown = -1;
  Listener* m_pOuter = std::exchange(g_pListener, this);  // of the call around this one
};

}  // namespace

Answer Run(std::string_view words, const std::function<void(int percent)>& onPercent) {
  Listener listener(onPercent);
  const ExitCode code = RunCommand(words);
  return {code, TakeOutput()};
}

}  // namespace zelconvert::bindings
