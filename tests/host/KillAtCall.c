/* Preloaded into the host: ends the process, as a loss of power would, before the call of the
 * system that writes, moves, links or deletes a file and has the number of ZEL_KILL_AT, from 1. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

static void Count(void) {
  static int count = 0;
  const char* limit = getenv("ZEL_KILL_AT");
  if (limit != NULL && ++count == atoi(limit)) kill(getpid(), SIGKILL);
}

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

ssize_t write(int file, const void* bytes, size_t size) {
  if (file > STDERR_FILENO) Count();
  return REAL(write)(file, bytes, size);
}
ssize_t writev(int file, const struct iovec* parts, int count) {
  if (file > STDERR_FILENO) Count();
  return REAL(writev)(file, parts, count);
}
int rename(const char* from, const char* to) {
  Count();
  return REAL(rename)(from, to);
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  Count();
  return REAL(renameat2)(fromFolder, from, toFolder, to, flags);
}
int link(const char* from, const char* to) {
  Count();
  return REAL(link)(from, to);
}
int unlink(const char* path) {
  Count();
  return REAL(unlink)(path);
}
