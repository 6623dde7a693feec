// What a batch tells: of each file, in the order they were given, and at the end.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/BatchPlan.h"
#include "cli/Options.h"
#include "cli/Outcome.h"

namespace zelconvert::cli {

enum class BatchStatus { NotRun, Converted, Skipped, Failed };

class BatchLog {
 public:
  /// Both outlive this. Throws a HostFailure if the report can't be written.
  BatchLog(const Options& options, const std::vector<BatchFile>& files);

  /// What came of the file of this number; each at most once, in any order. Tells the user as soon
  /// as the files before it are told.
  void Add(std::size_t number, BatchStatus status, Outcome outcome);
  /// How many files at the beginning of the list are told.
  std::size_t GetTold() const { return m_told; }

  /// Tells what was not run, and the sums. Throws a HostFailure if the report couldn't be written.
  ExitCode Finish();

 private:
  struct Entry {
    bool isThere = false;
    BatchStatus status = BatchStatus::NotRun;
    Outcome outcome = {};
  };
  void Tell(const BatchFile& file, const Entry& entry);
  void TellAsText(const BatchFile& file, const Entry& entry);
  void ShowProgress();
  void HideProgress();
  std::size_t Count(BatchStatus status) const;
  std::string TellCounts() const;
  Json::Object ToJson(const BatchFile& file, const Entry& entry) const;
  void TellSums(ExitCode code);

  const Options& m_options;
  const std::vector<BatchFile>& m_files;
  std::vector<Entry> m_entries;  // emptied when told
  std::size_t m_told = 0;
  std::array<std::size_t, 4> m_counts = {};  // of each status
  Json::List m_objects;                      // of the files told, if JSON is printed at the end
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_pReport{nullptr, &std::fclose};
  const bool m_showsProgress = ShowsProgress();
  bool m_isShown = false;  // the line of progress
  std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point m_lastShown = {};
};

}  // namespace zelconvert::cli
