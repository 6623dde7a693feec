#include "cli/platform/Program.h"

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace zelconvert::cli::platform {
namespace {

// Neither is a failure if the program ends before: its exit code tells.
void Send(int stream, std::string_view input) {
  while (!input.empty()) {
    const ssize_t size = send(stream, input.data(), input.size(), MSG_NOSIGNAL);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) break;
    input.remove_prefix(static_cast<std::size_t>(size));
  }
  shutdown(stream, SHUT_WR);
}

void Receive(int stream, std::string& output) {
  char block[1 << 16];
  while (true) {
    const ssize_t size = read(stream, block, sizeof block);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return;
    output.append(block, static_cast<std::size_t>(size));
  }
}

int WaitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Returns what posix_spawnp does.
int Start(std::vector<std::string> words, int stream, pid_t& process) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, stream, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, stream, STDOUT_FILENO);
  const int error =
      posix_spawnp(&process, pointers.front(), &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

}  // namespace

std::optional<int> RunProgram(const std::vector<std::string>& words, std::string_view input,
                              std::string& output) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return std::nullopt;
  pid_t process = 0;
  const int error = Start(words, ends[1], process);
  close(ends[1]);
  if (error == 0) {
    Send(ends[0], input);
    Receive(ends[0], output);
  }
  close(ends[0]);
  if (error != 0) return std::nullopt;
  return WaitFor(process);
}

}  // namespace zelconvert::cli::platform
