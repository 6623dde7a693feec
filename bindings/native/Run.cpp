#include "bindings/native/Run.h"

#include <exception>
#include <new>
#include <optional>

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

}  // namespace

// A message comes for every record.
Answer Run(std::string_view words, const std::function<void(int percent)>& onPercent) {
  std::optional<ProgressWindow> window;
  int shown = -1;
  if (onPercent) {
    window.emplace([&onPercent, &shown](int percent) {
      if (percent >= 0 && percent != shown) onPercent(shown = percent);
    });
  }
  const ExitCode code = RunCommand(words);
  return {code, TakeOutput()};
}

}  // namespace zelconvert::bindings
