// Further runs of this program, that work for it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace zelconvert::cli::platform {

/// A process whose standard input and output belong to this one. If the user breaks this one off by
/// a signal, all of them get it, and it waits for them.
class WorkerProcess {
 public:
  /// Runs this program with one argument, which holds no blank. Throws std::system_error if that
  /// can't be.
  explicit WorkerProcess(const std::string& argument);
  /// Closes its input, which tells it to end, and waits for that.
  ~WorkerProcess();
  WorkerProcess(const WorkerProcess&) = delete;
  WorkerProcess& operator=(const WorkerProcess&) = delete;

  /// False if the process is no longer there to take it.
  bool Write(std::string_view bytes);
  /// Waits for bytes, and returns how many of them there were, at most `size`; 0 if the process is
  /// no longer there.
  std::size_t Read(char* bytes, std::size_t size);
  /// Closes its input, waits, and returns how it ended, "ended by signal 11". Nothing the next
  /// time.
  std::string Wait();

 private:
  struct Handles;
  std::unique_ptr<Handles> m_pHandles;
};

}  // namespace zelconvert::cli::platform
