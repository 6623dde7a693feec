#include "cli/BatchLog.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "cli/FileChecks.h"
#include "cli/GivenFiles.h"
#include "cli/StagingFolder.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

constexpr std::array<std::string_view, 4> kStatusNames = {"not run", "converted", "skipped",
                                                          "failed"};

std::string_view NameOf(BatchStatus status) {
  return kStatusNames[static_cast<std::size_t>(status)];
}

// Hours, minutes and seconds of which the first may be missing.
std::string Duration(std::chrono::seconds duration) {
  constexpr int kMinute = 60, kHour = 3600;
  const auto all = static_cast<int>(duration.count());
  char text[32];
  if (all < kHour) {
    std::snprintf(text, sizeof text, "%d:%02d", all / kMinute, all % kMinute);
  } else {
    std::snprintf(text, sizeof text, "%d:%02d:%02d", all / kHour, all % kHour / kMinute,
                  all % kMinute);
  }
  return text;
}

// The text, with the file that it is about.
std::string About(const BatchFile& file, const std::string& text) {
  const bool isNamed = text.find(platform::ToText(file.input)) != std::string::npos;
  return isNamed ? text : platform::ToText(platform::ToPath(file.given)) + ": " + text;
}

}  // namespace

BatchLog::BatchLog(const Options& options, const std::vector<BatchFile>& files)
    : m_options(options), m_files(files), m_entries(files.size()) {
  if (!options.report) return;
  if (IsStandardStream(*options.report)) {
    if (!options.json) return;
    throw HostFailure(kWrongUsage, "standard output can't take both the report and --json");
  }
  const fs::path path = Absolute(*options.report);
  const bool mayReplace = options.force || options.skipExisting;
  const OutputPlace place(path);
  for (const BatchFile& file : files) place.CheckDistinct(file.input);
  place.CheckNoFolder();
  CheckFolder(path.parent_path());
  place.CheckReplaceable(mayReplace);
  m_pReport.reset(platform::OpenForWriting(path, mayReplace));
  if (m_pReport == nullptr) {
    OutputPlace(path).CheckReplaceable(mayReplace);  // it may have come meanwhile
    throw HostFailure(kNoOutput, platform::ToText(path) + " can't be written");
  }
}

void BatchLog::Add(std::size_t number, BatchStatus status, Outcome outcome) {
  m_entries[number] = {true, status, std::move(outcome)};
  ++m_counts[static_cast<std::size_t>(status)];
  for (; m_told < m_entries.size() && m_entries[m_told].isThere; ++m_told) {
    Tell(m_files[m_told], m_entries[m_told]);
    m_entries[m_told].outcome = {};
  }
  ShowProgress();
}

ExitCode BatchLog::Finish() {
  for (std::size_t i = 0; i < m_entries.size(); ++i) {
    if (!m_entries[i].isThere) Add(i, BatchStatus::NotRun, {});
  }
  HideProgress();
  const std::size_t good = Count(BatchStatus::Converted) + Count(BatchStatus::Skipped);
  const ExitCode code = good == m_files.size() ? kConverted : kFailed;
  TellSums(code);
  if (m_pReport != nullptr) {
    const bool isWhole = std::fflush(m_pReport.get()) == 0 && std::ferror(m_pReport.get()) == 0;
    const bool isClosed = std::fclose(m_pReport.release()) == 0;
    if (!isWhole || !isClosed) throw HostFailure(kNoOutput, "the report can't be written");
  }
  return code;
}

void BatchLog::Tell(const BatchFile& file, const Entry& entry) {
  if (m_options.report || m_options.json) {
    Json::Object object = ToJson(file, entry);
    if (m_pReport != nullptr) {
      std::fputs(ToLine(object).c_str(), m_pReport.get());
      std::fflush(m_pReport.get());
    } else if (m_options.report) {
      PrintOut(ToLine(object));
    }
    if (m_options.json) m_objects.emplace_back(std::move(object));
  }
  if (!m_options.json) TellAsText(file, entry);
  std::fflush(stdout);
}

void BatchLog::TellAsText(const BatchFile& file, const Entry& entry) {
  const Outcome& outcome = entry.outcome;
  const bool hasFailed = entry.status == BatchStatus::Failed;
  HideProgress();
  for (const std::string& text : outcome.warnings) PrintWarning(About(file, text));
  if (hasFailed || !IsQuiet()) {
    for (const std::string& text : outcome.messages) PrintMessages({About(file, text)});
  }
  if (hasFailed) PrintNote(About(file, outcome.error));
  const bool isReportOnOutput = m_options.report && m_pReport == nullptr;
  if (IsQuiet() || isReportOnOutput) return;
  for (const fs::path& made : outcome.files) PrintLine(platform::ToText(made));
}

Json::Object BatchLog::ToJson(const BatchFile& file, const Entry& entry) const {
  Json::Object fields = {{"status", std::string(NameOf(entry.status))},
                         {"input", platform::ToText(file.input)},
                         {"output", platform::ToText(file.output)},
                         {"to", m_options.to}};
  const Json::Object rest = cli::ToJson(entry.outcome);
  fields.insert(fields.end(), rest.begin() + 1, rest.end());  // the first is said by the status
  return fields;
}

std::size_t BatchLog::Count(BatchStatus status) const {
  return m_counts[static_cast<std::size_t>(status)];
}

std::string BatchLog::TellCounts() const {
  std::string text;
  for (const auto status :
       {BatchStatus::Converted, BatchStatus::Skipped, BatchStatus::Failed, BatchStatus::NotRun}) {
    if (Count(status) == 0 && status != BatchStatus::Converted) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(Count(status)) + " ";
    text += NameOf(status);
  }
  return text;
}

// What is left takes as long a file as those that were converted took; what is skipped takes none.
void BatchLog::ShowProgress() {
  using namespace std::chrono_literals;
  const auto now = steady_clock::now();
  if (!m_showsProgress || (m_isShown && now - m_lastShown < 100ms)) return;
  const std::size_t run = Count(BatchStatus::Converted) + Count(BatchStatus::Failed);
  const std::size_t done = run + Count(BatchStatus::Skipped);
  if (run == 0) return;
  const auto left = (now - m_start) / run * (m_files.size() - done);
  HideProgress();
  PrintError("\r" + std::to_string(done) + " of " + std::to_string(m_files.size()) + ": " +
             TellCounts() + ", " +
             Duration(std::chrono::duration_cast<std::chrono::seconds>(left)) + " left");
  m_isShown = true;
  m_lastShown = now;
}

void BatchLog::HideProgress() {
  constexpr int kWidth = 79;
  if (m_isShown) PrintError("\r" + std::string(kWidth, ' ') + "\r");
  m_isShown = false;
}

void BatchLog::TellSums(ExitCode code) {
  if (!m_options.json) {
    if (IsQuiet()) return;
    PrintError(std::to_string(m_files.size()) + (m_files.size() == 1 ? " file: " : " files: ") +
               TellCounts() + "\n");
    return;
  }
  const auto count = [this](BatchStatus status) { return static_cast<int>(Count(status)); };
  PrintOut(ToLines(Json::Object{{"exitCode", static_cast<int>(code)},
                                {"converted", count(BatchStatus::Converted)},
                                {"skipped", count(BatchStatus::Skipped)},
                                {"failed", count(BatchStatus::Failed)},
                                {"notRun", count(BatchStatus::NotRun)},
                                {"files", std::move(m_objects)}}));
}

}  // namespace zelconvert::cli
