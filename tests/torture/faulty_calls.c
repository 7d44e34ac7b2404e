/* Preloaded before the program: lets one of its file calls fail, or kills the program there.
 *
 * Calls that concern files of FAULTS_FOLDER are numbered from 1 in the order made and written to the
 * descriptor FAULTS_LOG, "number call path" a line. Call FAULTS_AT meets the fault FAULTS_KIND:
 *
 *   EIO, ENOSPC, EINTR   the call does nothing and fails with that error
 *   full                 from then on every call that writes fails with ENOSPC
 *   short                half of the bytes are written (calls that write; others are made as they are)
 *   kill                 the program ends before the call, as by `kill -9`
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

enum Sort { OPENS, WRITES, OTHER };
enum Verdict { GO_ON, FAIL, HALVE };

static atomic_long calls;

static const char *setting(const char *name) {
  const char *value = getenv(name);
  return value == NULL ? "" : value;
}

static int kind_is(const char *kind) {
  return strcmp(setting("FAULTS_KIND"), kind) == 0;
}

static int is_in_folder(const char *path) {
  const char *folder = setting("FAULTS_FOLDER");
  return *folder != 0 && strncmp(path, folder, strlen(folder)) == 0;
}

static void note(long number, const char *call, const char *path) {
  char line[PATH_MAX + 64];
  const int length = snprintf(line, sizeof line, "%ld %s %s\n", number, call, path);
  syscall(SYS_write, atoi(setting("FAULTS_LOG")), line, (size_t)length);
}

static int error_of_kind(void) {
  if (kind_is("EIO")) return EIO;
  if (kind_is("EINTR")) return EINTR;
  return ENOSPC;
}

static enum Verdict meet(enum Sort sort) {
  if (kind_is("kill")) syscall(SYS_kill, getpid(), SIGKILL);
  if (kind_is("short")) return sort == WRITES ? HALVE : GO_ON;
  errno = error_of_kind();
  return FAIL;
}

static enum Verdict judge(const char *call, enum Sort sort, const char *path) {
  if (!is_in_folder(path)) return GO_ON;
  const long number = atomic_fetch_add(&calls, 1) + 1;
  const long at = atol(setting("FAULTS_AT"));
  note(number, call, path);
  if (kind_is("full")) return at > 0 && number >= at && sort == WRITES ? meet(sort) : GO_ON;
  return number == at ? meet(sort) : GO_ON;
}

static enum Verdict judge_path(const char *call, enum Sort sort, int folder, const char *path) {
  char whole[2 * PATH_MAX + 2] = "";
  char start[PATH_MAX] = "";
  if (path == NULL) return GO_ON;
  if (*path == '/') return judge(call, sort, path);
  if (folder == AT_FDCWD) {
    if (getcwd(start, sizeof start) == NULL) return GO_ON;
  } else {
    char link[64];
    snprintf(link, sizeof link, "/proc/self/fd/%d", folder);
    if (readlink(link, start, sizeof start - 1) < 0) return GO_ON;
  }
  snprintf(whole, sizeof whole, "%s/%s", start, path);
  return judge(call, sort, whole);
}

static enum Verdict judge_descriptor(const char *call, enum Sort sort, int descriptor) {
  char link[64];
  char path[PATH_MAX] = "";
  const int earlier = errno;
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  const ssize_t length = readlink(link, path, sizeof path - 1);
  errno = earlier;
  return length < 0 ? GO_ON : judge(call, sort, path);
}

/* The function of that name behind this library. */
#define REAL(name) ((__typeof__(&name))real_function(#name))

static void *real_function(const char *name) {
  void *found = dlsym(RTLD_NEXT, name);
  if (found == NULL) abort();
  return found;
}

static mode_t mode_of(int flags, va_list rest) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

#define OPEN(name)                                                             \
  int name(const char *path, int flags, ...) {                                 \
    va_list rest;                                                              \
    va_start(rest, flags);                                                     \
    const mode_t mode = mode_of(flags, rest);                                  \
    va_end(rest);                                                              \
    if (judge_path("open", OPENS, AT_FDCWD, path) == FAIL) return -1;          \
    return REAL(name)(path, flags, mode);                                      \
  }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                           \
  int name(int folder, const char *path, int flags, ...) {                     \
    va_list rest;                                                              \
    va_start(rest, flags);                                                     \
    const mode_t mode = mode_of(flags, rest);                                  \
    va_end(rest);                                                              \
    if (judge_path("openat", OPENS, folder, path) == FAIL) return -1;          \
    return REAL(name)(folder, path, flags, mode);                              \
  }
OPENAT(openat)
OPENAT(openat64)

#define FOPEN(name)                                                            \
  FILE *name(const char *path, const char *mode) {                             \
    if (judge_path("fopen", OPENS, AT_FDCWD, path) == FAIL) return NULL;       \
    return REAL(name)(path, mode);                                             \
  }
FOPEN(fopen)
FOPEN(fopen64)

int fclose(FILE *file) {
  const enum Verdict verdict = judge_descriptor("fclose", OTHER, fileno(file));
  const int error = errno;
  const int closed = REAL(fclose)(file);
  if (verdict != FAIL) return closed;
  errno = error;
  return EOF;
}

int close(int descriptor) {
  const enum Verdict verdict = judge_descriptor("close", OTHER, descriptor);
  const int error = errno;
  const int closed = REAL(close)(descriptor);
  if (verdict != FAIL) return closed;
  errno = error;
  return -1;
}

ssize_t write(int descriptor, const void *bytes, size_t count) {
  const enum Verdict verdict = judge_descriptor("write", WRITES, descriptor);
  if (verdict == FAIL) return -1;
  return REAL(write)(descriptor, bytes, verdict == HALVE && count > 1 ? count / 2 : count);
}

#define PWRITE(name, offset_type)                                                         \
  ssize_t name(int descriptor, const void *bytes, size_t count, offset_type offset) {     \
    const enum Verdict verdict = judge_descriptor("pwrite", WRITES, descriptor);          \
    if (verdict == FAIL) return -1;                                                       \
    return REAL(name)(descriptor, bytes, verdict == HALVE && count > 1 ? count / 2 : count, \
                      offset);                                                            \
  }
PWRITE(pwrite, off_t)
PWRITE(pwrite64, off64_t)

ssize_t writev(int descriptor, const struct iovec *parts, int count) {
  const enum Verdict verdict = judge_descriptor("writev", WRITES, descriptor);
  if (verdict == FAIL) return -1;
  return REAL(writev)(descriptor, parts, verdict == HALVE && count > 1 ? count / 2 : count);
}

ssize_t sendfile(int to, int from, off_t *offset, size_t count) {
  const enum Verdict verdict = judge_descriptor("sendfile", WRITES, to);
  if (verdict == FAIL) return -1;
  return REAL(sendfile)(to, from, offset, verdict == HALVE && count > 1 ? count / 2 : count);
}

ssize_t sendfile64(int to, int from, off64_t *offset, size_t count) {
  const enum Verdict verdict = judge_descriptor("sendfile", WRITES, to);
  if (verdict == FAIL) return -1;
  return REAL(sendfile64)(to, from, offset, verdict == HALVE && count > 1 ? count / 2 : count);
}

ssize_t copy_file_range(int from, off64_t *from_offset, int to, off64_t *to_offset, size_t count,
                        unsigned flags) {
  const enum Verdict verdict = judge_descriptor("copy_file_range", WRITES, to);
  if (verdict == FAIL) return -1;
  return REAL(copy_file_range)(from, from_offset, to, to_offset,
                               verdict == HALVE && count > 1 ? count / 2 : count, flags);
}

ssize_t read(int descriptor, void *bytes, size_t count) {
  if (judge_descriptor("read", OTHER, descriptor) == FAIL) return -1;
  return REAL(read)(descriptor, bytes, count);
}

ssize_t pread64(int descriptor, void *bytes, size_t count, off64_t offset) {
  if (judge_descriptor("pread", OTHER, descriptor) == FAIL) return -1;
  return REAL(pread64)(descriptor, bytes, count, offset);
}

#define BY_DESCRIPTOR(name, sort, parameters, arguments)               \
  int name parameters {                                                \
    if (judge_descriptor(#name, sort, descriptor) == FAIL) return -1;  \
    return REAL(name) arguments;                                       \
  }
BY_DESCRIPTOR(fsync, WRITES, (int descriptor), (descriptor))
BY_DESCRIPTOR(fdatasync, WRITES, (int descriptor), (descriptor))
BY_DESCRIPTOR(ftruncate, OTHER, (int descriptor, off_t size), (descriptor, size))
BY_DESCRIPTOR(ftruncate64, OTHER, (int descriptor, off64_t size), (descriptor, size))
BY_DESCRIPTOR(fchmod, OTHER, (int descriptor, mode_t mode), (descriptor, mode))
BY_DESCRIPTOR(flock, OTHER, (int descriptor, int how), (descriptor, how))

#define BY_PATH(name, sort, path, parameters, arguments)                  \
  int name parameters {                                                   \
    if (judge_path(#name, sort, AT_FDCWD, path) == FAIL) return -1;       \
    return REAL(name) arguments;                                          \
  }
BY_PATH(rename, OTHER, to, (const char *from, const char *to), (from, to))
BY_PATH(unlink, OTHER, path, (const char *path), (path))
BY_PATH(remove, OTHER, path, (const char *path), (path))
BY_PATH(truncate, OTHER, path, (const char *path, off_t size), (path, size))
BY_PATH(truncate64, OTHER, path, (const char *path, off64_t size), (path, size))
BY_PATH(mkstemp, OPENS, path, (char *path), (path))
