#include "front/DriverRun.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <tuple>

#include "io/Strings.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kTexts[] = {
    L"The file %s does not exist.",
    L"File %s does not exist.",
    L"Unable to open the file %s.",
    L"Unable to create the destination file %s\n",  // with its line end
    L"Unable to convert the file %s.",
    L"Unable to write the file %s.",
    L"The conversion you specified is not supported.",
};
static_assert(std::size(kTexts) == static_cast<std::size_t>(DriverText::Count));

// Takes the read-only attribute off a file for as long as it lives.
class WritableWhile {
 public:
  explicit WritableWhile(const std::wstring& path)
      : m_path(path), m_found(platform::GetAttributes(path)) {
    if (IsReadOnlyFile()) std::ignore = platform::ClearReadOnly(m_path, *m_found);
  }
  ~WritableWhile() {
    if (IsReadOnlyFile()) std::ignore = platform::RestoreAttributes(m_path, *m_found);
  }
  WritableWhile(const WritableWhile&) = delete;
  WritableWhile& operator=(const WritableWhile&) = delete;
  [[nodiscard]] bool IsFile() const { return m_found && !m_found->isDirectory; }

 private:
  [[nodiscard]] bool IsReadOnlyFile() const { return IsFile() && m_found->isReadOnly; }

  const std::wstring& m_path;
  std::optional<platform::Attributes> m_found;
};

// Deletes the output of a run, and what was made beside it, unless they are to be kept.
class OutputGuard {
 public:
  OutputGuard(const std::wstring& output, Report& report) : m_output(output), m_report(report) {}
  ~OutputGuard() {
    if (m_keep) return;
    std::ignore = platform::RemoveFile(m_output);
    RemoveFiles(m_report.beside);
  }
  OutputGuard(const OutputGuard&) = delete;
  OutputGuard& operator=(const OutputGuard&) = delete;
  void Keep() { m_keep = true; }

 private:
  const std::wstring& m_output;
  Report& m_report;
  bool m_keep = false;
};

[[nodiscard]] bool Fail(Report& report, DriverText text, const std::wstring& path) {
  const std::wstring line = FormatDriverText(text, path);
  if (!report.messages.empty() && report.messages.back() == line) return false;
  return report.Refuse(line);
}

// Conversions report what they expect to go wrong by a result. What their formats have no answer
// for (a header too short to hold its digits, a date that no calendar has) comes as an exception.
[[nodiscard]] bool Convert(const ConvertRequest& request, Report& report, const DriverRun& run) {
  try {
    return run.convert();
  } catch (...) {
    return Fail(report, DriverText::CannotConvert, request.input);
  }
}

FileState CloseAll(const DriverRun& run) {
  FileState worst = FileState::Intact;
  for (const auto& close : run.closing) worst = std::max(worst, close());
  return worst;
}

// To a reader a broken drive looks like the end of the file, so only here it shows that the
// conversion isn't whole.
[[nodiscard]] bool Finish(const ConvertRequest& request, Report& report, const DriverRun& run,
                          bool converted) {
  const FileState state = CloseAll(run);
  if (state == FileState::WriteFailed) return Fail(report, DriverText::CannotWrite, request.output);
  if (state == FileState::Intact) return converted;
  return Fail(report, DriverText::CannotConvert, request.input);
}

[[nodiscard]] bool RunSteps(const ConvertRequest& request, Report& report, const DriverRun& run) {
  const WritableWhile input(request.input);
  if (!input.IsFile()) return Fail(report, run.missing, request.input);
  if (!run.openInput()) return Fail(report, DriverText::CannotOpen, request.input);
  OutputGuard output(request.output, report);
  if (!run.createOutput()) {
    output.Keep();
    CloseAll(run);
    return Fail(report, DriverText::CannotCreate, request.output);
  }

  if (!Finish(request, report, run, Convert(request, report, run))) return false;
  report.files.push_back(request.output);
  output.Keep();
  return true;
}

}  // namespace

std::wstring FormatDriverText(DriverText text, const std::wstring& path) {
  return FormatText(kTexts[static_cast<std::size_t>(text)], path);
}

void RemoveOutput(const std::wstring& output) {
  const auto found = platform::GetAttributes(output);
  if (found && !found->isReadOnly) std::ignore = platform::RemoveFile(output);
}

// Outside of the conversion, too, memory may be short.
bool Execute(const ConvertRequest& request, Report& report, const DriverRun& run) {
  try {
    return RunSteps(request, report, run);
  } catch (...) {
    return Fail(report, DriverText::CannotConvert, request.input);
  }
}

}  // namespace zelconvert
