#include "aluframe/platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace aluframe::platform {

namespace {

std::error_code code_of(int error) {
  return {error == EWOULDBLOCK ? EBUSY : error, std::generic_category()};
}

/// @return a descriptor of the lock file, which is made when it is missing; -1 when it cannot be
int open_lock_file(const std::filesystem::path& path) {
  constexpr mode_t for_all = 0666;  // less what the user masks
  return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, for_all);
}

/// @return 0, or the error number
int lock(int descriptor, Patience patience) {
  const int how = patience == Patience::endless ? LOCK_EX : LOCK_EX | LOCK_NB;
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

FileLock FileLock::take(const std::filesystem::path& path, Patience patience,
                        std::error_code& error) {
  for (;;) {
    const int descriptor = open_lock_file(path);
    const int failure = descriptor < 0 ? errno : lock(descriptor, patience);
    error = code_of(failure);
    if (failure == 0 && is_in_place(descriptor, path)) return {path, descriptor};
    if (descriptor >= 0) close(descriptor);
    if (failure != 0) return {};
  }
}

FileLock::FileLock(FileLock&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, none)) {}

FileLock::~FileLock() {
  if (handle_ == none) return;
  // Removed before it is let go, so that whoever waits on it finds that it is gone.
  unlink(path_.c_str());
  close(static_cast<int>(handle_));
}

}  // namespace aluframe::platform
