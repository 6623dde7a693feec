/* Loaded before the C library: the clock stands at 2026-03-13 14:15:16.789 UTC, as in all golden
 * cases, for the library under test. All else, Mono's waits above all, has a clock that goes. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <string.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

int clock_gettime(clockid_t clock, struct timespec* time) {
  Dl_info caller;
  if (clock == CLOCK_REALTIME && dladdr(__builtin_return_address(0), &caller) &&
      strstr(caller.dli_fname, "libzelconvert")) {
    time->tv_sec = 1773411316;
    time->tv_nsec = 789000000;
    return 0;
  }
  return (int)syscall(SYS_clock_gettime, clock, time);
}
