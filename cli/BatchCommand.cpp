// zelconvert batch --to TYPE --out-dir DIR FILES...
#include <algorithm>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <system_error>
#include <thread>
#include <unordered_set>

#include "cli/BatchLog.h"
#include "cli/BatchPlan.h"
#include "cli/BatchWorker.h"
#include "cli/Commands.h"
#include "cli/FileTypes.h"
#include "cli/InputType.h"
#include "cli/TemporaryFolder.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

// Hands the files out to threads, each of which has a process that converts.
class Batch {
 public:
  explicit Batch(const Options& options)
      : m_options(options), m_files(PlanBatch(options)), m_log(options, m_files) {}

  ExitCode Run();

 private:
  void Work();
  std::optional<std::size_t> Next();
  BatchStatus Convert(std::size_t number, std::unique_ptr<BatchWorker>& worker, Outcome& outcome);
  void ConvertInto(std::size_t number, std::unique_ptr<BatchWorker>& worker, Outcome& outcome);
  bool IsUpToDate(const BatchFile& file) const;
  void PrepareFolder(const fs::path& folder);
  std::vector<std::string> Judge(std::size_t number, const std::vector<std::string>& targets);
  void Finish(std::size_t number, BatchStatus status, Outcome outcome);

  const Options& m_options;
  const std::vector<BatchFile> m_files;

  std::mutex m_guard;  // of all that follows
  BatchLog m_log;
  std::condition_variable m_isTold;
  std::size_t m_next = 0;
  bool m_isStopped = false;
  std::set<fs::path> m_folders;            // that are prepared
  std::unordered_set<std::string> m_made;  // by this run, as arguments give them
};

ExitCode Batch::Run() {
  const std::size_t asked = m_options.jobs > 0 ? static_cast<std::size_t>(m_options.jobs)
                                               : std::thread::hardware_concurrency();
  constexpr std::size_t kMostJobs = 256;
  const std::size_t jobs = std::min({asked, m_files.size(), kMostJobs});
  {
    std::vector<std::jthread> threads;
    while (threads.size() + 1 < jobs) threads.emplace_back([this] { Work(); });
    Work();
  }
  for (const fs::path& folder : m_folders) platform::FlushFolder(folder);
  return m_log.Finish();
}

void Batch::Work() {
  std::unique_ptr<BatchWorker> worker;
  while (const std::optional<std::size_t> number = Next()) {
    Outcome outcome;
    const BatchStatus status = Convert(*number, worker, outcome);
    Finish(*number, status, std::move(outcome));
  }
}

std::optional<std::size_t> Batch::Next() {
  const std::lock_guard held(m_guard);
  if (m_isStopped || m_next == m_files.size()) return {};
  return m_next++;
}

BatchStatus Batch::Convert(std::size_t number, std::unique_ptr<BatchWorker>& worker,
                           Outcome& outcome) {
  if (m_options.skipExisting && IsUpToDate(m_files[number])) {
    outcome.code = kConverted;
    return BatchStatus::Skipped;
  }
  try {
    ConvertInto(number, worker, outcome);
  } catch (const std::exception& error) {
    outcome.error = error.what();
  }
  return outcome.code == kConverted ? BatchStatus::Converted : BatchStatus::Failed;
}

void Batch::ConvertInto(std::size_t number, std::unique_ptr<BatchWorker>& worker,
                        Outcome& outcome) {
  const BatchFile& file = m_files[number];
  const fs::path folder = file.output.parent_path();
  Attempt(outcome, [&] { PrepareFolder(folder); });
  if (outcome.code != kConverted) return;
  const bool replace = m_options.force || (m_options.skipExisting && fs::exists(file.output));
  if (worker == nullptr) worker = std::make_unique<BatchWorker>(m_options);
  const auto judge = [&](const auto& targets) { return Judge(number, targets); };
  if (worker->Convert(file, replace, judge, outcome)) return;
  worker.reset();
}

// No older than what it is made of, as far as names tell.
bool Batch::IsUpToDate(const BatchFile& file) const {
  try {
    const fs::path read =
        m_options.from.empty() ? file.input : FileRead(FindType(m_options.from)->type, file.input);
    const auto made = fs::last_write_time(file.output);
    return fs::is_regular_file(file.output) && fs::last_write_time(file.input) <= made &&
           fs::last_write_time(read) <= made;
  } catch (const std::exception&) {  // what is wrong the conversion will tell
    return false;
  }
}

void Batch::PrepareFolder(const fs::path& folder) {
  const std::lock_guard held(m_guard);
  if (!m_folders.insert(folder).second) return;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    m_folders.erase(folder);
    throw HostFailure(kNoOutput,
                      "the folder " + ToText(folder) + " can't be made: " + error.message());
  }
  RemoveAbandonedFolders(folder);
}

// Files beside an output, as those of roads are, have names that nobody knows before. If two inputs
// make one of a name it is that of the first, however many run at a time: so each waits until the
// files before it are done.
std::vector<std::string> Batch::Judge(std::size_t number, const std::vector<std::string>& targets) {
  std::unique_lock held(m_guard);
  m_isTold.wait(held, [&] { return m_log.GetTold() == number; });
  std::vector<std::string> kept;
  std::ranges::copy_if(targets, std::back_inserter(kept), [this](const std::string& target) {
    return m_made.contains(platform::ToArgument(platform::ToPath(target)));
  });
  return kept;
}

void Batch::Finish(std::size_t number, BatchStatus status, Outcome outcome) {
  const std::lock_guard held(m_guard);
  for (const fs::path& file : outcome.files) m_made.insert(platform::ToArgument(file));
  m_log.Add(number, status, std::move(outcome));
  m_isStopped = m_isStopped || (status == BatchStatus::Failed && !m_options.keepGoing);
  m_isTold.notify_all();
}

}  // namespace

ExitCode RunBatch(const Options& options) {
  return Batch(options).Run();
}

}  // namespace zelconvert::cli
