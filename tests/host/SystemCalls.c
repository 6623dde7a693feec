/* Loaded before the system's library, this stands between a program and the calls that put a file
 * in its place, and writes them into the file that CALLS names. What goes wrong stands in FAULTS:
 * "rename": the system can't move without replacing; "link": nor give a file a second name;
 * "replace": nor take the place of one; "late": in the last moment somebody makes a file where one
 * is moved to; "seize": or where a report is opened; "flush": the disk is broken; "clear", "swept",
 * "held": another run takes the first folder for abandoned and deletes it when it has just been
 * made, before it is locked, or holds the lock itself. KILL_AT ends the program, as a loss of power
 * would, before the call that writes, moves, links or deletes a file and has this number, from 1.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

static void Count(void) {
  static int count = 0;
  const char* limit = getenv("KILL_AT");
  if (limit != NULL && ++count == atoi(limit)) kill(getpid(), SIGKILL);
}

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

ssize_t write(int file, const void* bytes, size_t size) {
  if (file > STDERR_FILENO) Count();
  return REAL(write)(file, bytes, size);
}

ssize_t writev(int file, const struct iovec* parts, int count) {
  if (file > STDERR_FILENO) Count();
  return REAL(writev)(file, parts, count);
}

int unlink(const char* path) {
  Count();
  return REAL(unlink)(path);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  Count();
  Make("late", to);
  if (HasFault("rename")) return Fail(EINVAL);
  Tell("move", to);
  return REAL(renameat2)(fromFolder, from, toFolder, to, flags);
}

int rename(const char* from, const char* to) {
  Count();
  Make("late", to);
  if (HasFault("replace")) return Fail(EIO);
  Tell("replace", to);
  return REAL(rename)(from, to);
}

int link(const char* from, const char* to) {
  Count();
  if (HasFault("link")) return Fail(EPERM);
  Tell("link", to);
  return REAL(link)(from, to);
}

int open(const char* path, int flags, ...) {
  va_list arguments;
  unsigned mode;
  va_start(arguments, flags);
  mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  Make("seize", path);
  return REAL(open)(path, flags, mode);
}

static int IsFirst(const char* fault) {
  static int count = 0;
  return HasFault(fault) && count++ == 0;
}

int mkdir(const char* path, mode_t mode) {
  const int made = REAL(mkdir)(path, mode);
  if (IsFirst("clear")) rmdir(path);
  return made;
}

int flock(int file, int operation) {
  char name[64], path[4096] = "";
  const int isHeld = IsFirst("held");
  snprintf(name, sizeof name, "/proc/self/fd/%d", file);
  if ((isHeld || IsFirst("swept")) && readlink(name, path, sizeof path - 1) > 0) rmdir(path);
  return isHeld ? Fail(EWOULDBLOCK) : REAL(flock)(file, operation);
}

int fsync(int file) {
  char name[64], path[4096] = "";
  snprintf(name, sizeof name, "/proc/self/fd/%d", file);
  if (readlink(name, path, sizeof path - 1) > 0) Tell("flush", path);
  return HasFault("flush") ? Fail(EIO) : REAL(fsync)(file);
}
