#include "front/DriverRun.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

#include "io/Paths.h"
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
    if (m_found && m_found->isReadOnly) platform::ClearReadOnly(m_path, *m_found);
  }
  ~WritableWhile() {
    if (m_found && m_found->isReadOnly) platform::RestoreAttributes(m_path, *m_found);
  }
  WritableWhile(const WritableWhile&) = delete;
  WritableWhile& operator=(const WritableWhile&) = delete;

 private:
  const std::wstring& m_path;
  std::optional<platform::Attributes> m_found;
};

// Deletes the output of a run, and what was made beside it, unless they are to be kept.
class OutputGuard {
 public:
  explicit OutputGuard(const DriverRun& run) : m_run(run) {}
  ~OutputGuard() {
    if (m_keep) return;
    platform::RemoveFile(m_run.output);
    if (m_run.beside != nullptr) RemoveFiles(*m_run.beside);
  }
  OutputGuard(const OutputGuard&) = delete;
  OutputGuard& operator=(const OutputGuard&) = delete;
  void Keep() { m_keep = true; }

 private:
  const DriverRun& m_run;
  bool m_keep = false;
};

bool Fail(const DriverRun& run, DriverText text, const std::wstring& path) {
  run.messages.push_back(FormatDriverText(text, path));
  return false;
}

// Conversions report what they expect to go wrong by a result. What their formats have no answer
// for (a header too short to hold its digits, a date that no calendar has) comes as an exception.
bool Convert(const DriverRun& run) {
  try {
    return run.convert();
  } catch (...) {
    return Fail(run, DriverText::CannotConvert, run.input);
  }
}

FileState CloseAll(const DriverRun& run) {
  FileState worst = FileState::Intact;
  for (const auto& close : run.closing) worst = std::max(worst, close());
  return worst;
}

// To a reader a broken drive looks like the end of the file, so only here it shows that the
// conversion isn't whole.
bool Finish(const DriverRun& run, bool converted) {
  switch (CloseAll(run)) {
    case FileState::WriteFailed:
      return Fail(run, DriverText::CannotWrite, run.output);
    case FileState::ReadFailed:
      return converted && Fail(run, DriverText::CannotConvert, run.input);
    default:
      return converted;
  }
}

// An output that is the input would be emptied before it is read.
bool CreateOutput(const DriverRun& run) {
  return !platform::IsSameFile(run.input, run.output) && run.createOutput();
}

}  // namespace

std::wstring FormatDriverText(DriverText text, const std::wstring& path) {
  return FormatText(kTexts[static_cast<std::size_t>(text)], path);
}

void RemoveOutput(const std::wstring& output) {
  const auto found = platform::GetAttributes(output);
  if (found && !found->isReadOnly) platform::RemoveFile(output);
}

bool Execute(const DriverRun& run) {
  if (!FileExists(run.input)) return Fail(run, run.missing, run.input);
  const WritableWhile writable(run.input);
  if (!run.openInput()) return Fail(run, DriverText::CannotOpen, run.input);
  if (!CreateOutput(run)) {
    CloseAll(run);
    return Fail(run, DriverText::CannotCreate, run.output);
  }

  OutputGuard output(run);
  if (!Finish(run, Convert(run))) return false;
  run.files.push_back(run.output);
  output.Keep();
  return true;
}

}  // namespace zelconvert
