// Commands that break down, each in its way, for the tests of what becomes of a call then. They
// take the places of the host's.
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

#include "cli/Commands.h"

namespace zelconvert::cli {
namespace {

// Deeper than any stack; the sum keeps the compiler from making a loop of it.
int Deepen(const volatile int* depth) {
  const volatile int here = *depth + 1;
  return here == 0 ? 0 : Deepen(&here) + here;
}

}  // namespace

ExitCode RunConvert(const Options& /*options*/) {
  __builtin_trap();
}

ExitCode RunDetect(const Options& /*options*/) {
  std::abort();
}

ExitCode RunInfo(const Options& /*options*/) {
  constexpr std::size_t kBlock = std::size_t{1} << 28;
  std::vector<std::unique_ptr<char[]>> blocks;
  for (;;) blocks.emplace_back(new char[kBlock]);
}

ExitCode RunPoints(const Options& /*options*/) {
  volatile int depth = 0;
  return static_cast<ExitCode>(Deepen(&depth));
}

ExitCode RunPlot(const Options& /*options*/) {
  volatile int* const nowhere = reinterpret_cast<int*>(0xFFFFFFF0);
  return static_cast<ExitCode>(*nowhere);
}

ExitCode RunDiff(const Options& /*options*/) {
  for (volatile int i = 0;; i = i + 1) {
  }
}

ExitCode RunImportCr5(const Options& /*options*/) {
  return kConverted;
}

ExitCode RunImportSdr(const Options& /*options*/) {
  return kConverted;
}

ExitCode RunMerge(const Options& /*options*/) {
  return kConverted;
}

ExitCode RunTypes(const Options& /*options*/) {
  PrintOut("{\"types\": []}");
  return kConverted;
}

}  // namespace zelconvert::cli
