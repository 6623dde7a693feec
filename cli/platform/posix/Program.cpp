#include "cli/platform/Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace zelconvert::cli::platform {
namespace {

int WaitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

std::optional<int> RunProgram(const std::string& name,
                              const std::vector<std::filesystem::path>& arguments) {
  std::vector<std::string> words = {name};
  for (const std::filesystem::path& argument : arguments) words.push_back(argument.native());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, name.c_str(), &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return std::nullopt;
  return WaitFor(process);
}

}  // namespace zelconvert::cli::platform
