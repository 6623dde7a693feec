// The processes of a batch that convert, one file after the other. A file that brings one down
// takes no other with it; and the library runs one conversion at a time in a process.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/BatchPlan.h"
#include "cli/Options.h"
#include "cli/Outcome.h"
#include "cli/platform/Process.h"

namespace zelconvert::cli {

/// The command that runs such a process; it is no business of the user.
inline constexpr const char* kBatchWorkerCommand = "batch-worker";

class BatchWorker {
 public:
  /// As Approve, with paths as arguments give them.
  using Judge = std::function<std::vector<std::string>(const std::vector<std::string>& targets)>;

  /// Throws std::system_error if no process starts.
  explicit BatchWorker(const Options& options);
  /// Waits for the process, and removes what one that was killed has left.
  ~BatchWorker();
  BatchWorker(const BatchWorker&) = delete;
  BatchWorker& operator=(const BatchWorker&) = delete;

  /// False if the process came to its end on the way: the outcome tells, and this can't be used any
  /// more.
  bool Convert(const BatchFile& file, bool replace, const Judge& judge, Outcome& outcome);

 private:
  bool Converse(const BatchFile& file, bool replace, const Judge& judge, Outcome& outcome);
  bool Read(char* bytes, std::size_t size);

  const Options& m_options;
  platform::WorkerProcess m_process;
  std::array<std::filesystem::path, 2> m_folders;  // of the two last outputs
  std::array<char, 4096> m_block = {};
  std::string_view m_received;  // of the block, not yet read
};

/// What the process does: converts what it is told on standard input until that ends.
ExitCode RunBatchWorker(const Options& options);

}  // namespace zelconvert::cli
