// zelconvert, the command-line host of the library.
#include <cstdio>

#include "cli/CommandLine.h"
#include "cli/platform/Host.h"

int main(int argc, char** argv) {
  using namespace zelconvert::cli;
  platform::PrepareProcess();
  const ExitCode exitCode = RunCommandLine(platform::GetArguments(argc, argv));
  const bool isFull = std::fflush(stdout) != 0;
  if (isFull && exitCode == kConverted) return Fail(kNoOutput, "standard output can't be written");
  return exitCode;
}
