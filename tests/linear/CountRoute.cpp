// For linear_test.py, one route at a time, by its number in the table of bench/RouteInputs.h:
//   names                      the names of all
//   make NUMBER RECORDS PATH   makes an input of this path and the extension of its type
//   convert NUMBER PATH        converts it and prints how many instructions that took, 0 if the
//                              system doesn't count them
#include <linux/perf_event.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "bench/RouteInputs.h"

namespace zelconvert::bench {
namespace {

class InstructionCounter {
 public:
  InstructionCounter() {
    perf_event_attr event = {};
    event.size = sizeof event;
    event.type = PERF_TYPE_HARDWARE;
    event.config = PERF_COUNT_HW_INSTRUCTIONS;
    event.exclude_kernel = event.exclude_hv = 1;
    m_counter = static_cast<int>(syscall(SYS_perf_event_open, &event, 0, -1, -1, 0));
  }
  ~InstructionCounter() { close(m_counter); }
  InstructionCounter(const InstructionCounter&) = delete;
  InstructionCounter& operator=(const InstructionCounter&) = delete;

  /// Since it was made.
  std::uint64_t Count() const {
    std::uint64_t count = 0;
    return read(m_counter, &count, sizeof count) == sizeof count ? count : 0;
  }

 private:
  int m_counter = -1;
};

bool Run(int count, char** words) {
  const std::string_view command = count > 1 ? words[1] : "";
  if (command == "names") {
    for (const RouteInput& route : kRouteInputs) std::puts(route.name);
    return true;
  }
  if (count < 4) return false;
  const RouteInput& route = kRouteInputs[std::stoul(words[2])];
  if (command == "make") {
    route.make(std::string(words[4]) + route.inputExtension, std::stoul(words[3]));
    return true;
  }
  const InstructionCounter counter;
  const std::string path = words[3];
  const bool converted =
      ConvertRoute(route, path + route.inputExtension, path + "-out" + route.outputExtension);
  std::printf("%llu\n", static_cast<unsigned long long>(counter.Count()));
  return converted;
}

}  // namespace
}  // namespace zelconvert::bench

int main(int count, char** words) {
  return zelconvert::bench::Run(count, words) ? 0 : 1;
}
