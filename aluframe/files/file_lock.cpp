#include "aluframe/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "aluframe/files/sibling.h"
#include "aluframe/files/system_failure.h"

namespace aluframe::files {

namespace {

/// @return a descriptor of the lock file, which is made when it is missing
int open_lock_file(const std::filesystem::path& path) {
  constexpr mode_t for_all = 0666;  // less what the user masks
  const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, for_all);
  if (descriptor < 0) fail_with(errno);
  return descriptor;
}

/// @return 0, or the error number
int take(int descriptor, WhenBusy when_busy) {
  const int how = when_busy == WhenBusy::wait ? LOCK_EX : LOCK_EX | LOCK_NB;
  while (flock(descriptor, how) != 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

/// Whether the lock file still is the one at its path: who held it before may have removed it.
bool is_in_place(int descriptor, const std::filesystem::path& path) {
  struct stat opened;
  struct stat placed;
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &placed) == 0 &&
         opened.st_dev == placed.st_dev && opened.st_ino == placed.st_ino;
}

}  // namespace

FileLock::FileLock(const std::filesystem::path& file, WhenBusy when_busy)
    : path_(sibling(file, "lock")) {
  for (;;) {
    descriptor_ = open_lock_file(path_);
    const int error = take(descriptor_, when_busy);
    if (error == 0 && is_in_place(descriptor_, path_)) return;
    close(descriptor_);
    if (error == EWOULDBLOCK) throw FileBusy();
    if (error != 0) fail_with(error);
  }
}

FileLock::~FileLock() {
  // Removed before it is let go, so that whoever waits on it finds that it is gone.
  unlink(path_.c_str());
  close(descriptor_);
}

}  // namespace aluframe::files
