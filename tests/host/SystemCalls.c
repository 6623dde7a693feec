/* Loaded before the system's library, this stands between a program and the calls that put a file
 * in its place, and writes them into the file that CALLS names. What goes wrong stands in FAULTS:
 * "rename": the system can't move without replacing; "link": nor give a file a second name;
 * "replace": nor take the place of one; "late": in the last moment somebody makes a file where one
 * is moved to; "seize": or where a report is opened; "flush": the disk is broken. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static int HasFault(const char* name) {
  const char* faults = getenv("FAULTS");
  return faults != NULL && strstr(faults, name) != NULL;
}

static void Tell(const char* call, const char* path) {
  const char* calls = getenv("CALLS");
  const char* slash = strrchr(path, '/');
  FILE* file = calls == NULL ? NULL : fopen(calls, "a");
  if (file == NULL) return;
  fprintf(file, "%s %s\n", call, slash == NULL ? path : slash + 1);
  fclose(file);
}

static int Fail(int error) {
  errno = error;
  return -1;
}

/* The output alone, which is moved last, or the report. */
static void Make(const char* fault, const char* path) {
  FILE* file = HasFault(fault) && strstr(path, "/out.") != NULL ? fopen(path, "wx") : NULL;
  if (file == NULL) return;
  fputs("mine", file);
  fclose(file);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  int (*next)(int, const char*, int, const char*, unsigned);
  *(void**)&next = dlsym(RTLD_NEXT, "renameat2");
  Make("late", to);
  if (HasFault("rename")) return Fail(EINVAL);
  Tell("move", to);
  return next(fromFolder, from, toFolder, to, flags);
}

int rename(const char* from, const char* to) {
  int (*next)(const char*, const char*);
  *(void**)&next = dlsym(RTLD_NEXT, "rename");
  Make("late", to);
  if (HasFault("replace")) return Fail(EIO);
  Tell("replace", to);
  return next(from, to);
}

int link(const char* from, const char* to) {
  int (*next)(const char*, const char*);
  *(void**)&next = dlsym(RTLD_NEXT, "link");
  if (HasFault("link")) return Fail(EPERM);
  Tell("link", to);
  return next(from, to);
}

int open(const char* path, int flags, ...) {
  int (*next)(const char*, int, ...);
  va_list arguments;
  unsigned mode;
  va_start(arguments, flags);
  mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  *(void**)&next = dlsym(RTLD_NEXT, "open");
  Make("seize", path);
  return next(path, flags, mode);
}

int fsync(int file) {
  char name[64], path[4096] = "";
  int (*next)(int);
  *(void**)&next = dlsym(RTLD_NEXT, "fsync");
  snprintf(name, sizeof name, "/proc/self/fd/%d", file);
  if (readlink(name, path, sizeof path - 1) > 0) Tell("flush", path);
  return HasFault("flush") ? Fail(EIO) : next(file);
}
