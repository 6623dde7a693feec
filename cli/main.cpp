// zelconvert, the command-line host of the library.
#include <cstdio>

#include "cli/CommandLine.h"
#include "cli/platform/Host.h"

int main(int argc, char** argv) {
  using namespace zelconvert::cli;
  platform::PrepareProcess();
  const ExitCode exitCode = RunCommandLine(platform::GetArguments(argc, argv));
  // A difference that nobody could read isn't told either.
  const bool isFull = std::fflush(stdout) != 0 || std::ferror(stdout) != 0;
  if (isFull && exitCode <= kFailed) return Fail(kNoOutput, "standard output can't be written");
  return exitCode;
}
