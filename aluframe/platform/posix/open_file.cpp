#include "aluframe/platform/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>
#include <utility>

namespace aluframe::platform {

namespace {

constexpr mode_t for_all = 0666;  // less what the user masks

std::error_code last_error() {
  return {errno, std::generic_category()};
}

int flags_of(Purpose purpose) {
  switch (purpose) {
    case Purpose::reading:
      return O_RDONLY | O_NONBLOCK;
    case Purpose::writing:
      return O_WRONLY;
    case Purpose::rewriting:
      return O_WRONLY | O_TRUNC;
    case Purpose::appending:
      return O_WRONLY | O_APPEND | O_CREAT;
  }
  return O_RDONLY;
}

/// Gives a new file the permissions of another, if that exists.
std::error_code take_permissions(int descriptor, const std::filesystem::path& like) {
  struct stat earlier;
  if (stat(like.c_str(), &earlier) != 0) return {};
  return fchmod(descriptor, earlier.st_mode & 07777) == 0 ? std::error_code() : last_error();
}

}  // namespace

bool is_stream(const std::filesystem::path& path) {
  std::error_code unknown;  // what cannot be looked at cannot be written either
  const std::filesystem::file_status status = std::filesystem::status(path, unknown);
  return exists(status) && !is_regular_file(status) && !is_directory(status);
}

std::filesystem::path standard_output() {
  return "/dev/stdout";
}

std::filesystem::path nowhere() {
  return "/dev/null";
}

OpenFile OpenFile::open(const std::filesystem::path& path, Purpose purpose,
                        std::error_code& error) {
  const int descriptor = ::open(path.c_str(), flags_of(purpose) | O_CLOEXEC, for_all);
  error = descriptor < 0 ? last_error() : std::error_code();
  if (descriptor >= 0 && purpose == Purpose::reading) {
    // Somebody who writes is waited for.
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
  }
  return OpenFile(descriptor);
}

OpenFile OpenFile::create(const std::filesystem::path& path, const std::filesystem::path& like,
                          std::error_code& error) {
  const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  OpenFile file(::open(path.c_str(), flags, for_all));
  error = file.is_open() ? std::error_code() : last_error();
  if (!file.is_open()) return file;
  error = take_permissions(static_cast<int>(file.handle_), like);
  if (!error) return file;
  unlink(path.c_str());
  return {};
}

OpenFile OpenFile::standard_stream_at(const std::filesystem::path& path) {
  struct stat there;
  if (stat(path.c_str(), &there) != 0) return {};
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    struct stat here;
    if (fstat(stream, &here) != 0) continue;
    if (here.st_dev == there.st_dev && here.st_ino == there.st_ino) {
      return OpenFile(fcntl(stream, F_DUPFD_CLOEXEC, 0));
    }
  }
  return {};
}

OpenFile::OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, none)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

OpenFile::~OpenFile() {
  if (is_open()) ::close(static_cast<int>(handle_));
}

bool OpenFile::has_end() const {
  struct stat of, empty;
  if (fstat(static_cast<int>(handle_), &of) != 0) return true;  // reading tells why it fails
  if (S_ISBLK(of.st_mode)) return false;
  if (!S_ISCHR(of.st_mode) || isatty(static_cast<int>(handle_)) != 0) return true;
  return stat(nowhere().c_str(), &empty) == 0 && of.st_rdev == empty.st_rdev;
}

std::size_t OpenFile::read(std::span<char> bytes, std::error_code& error) const {
  for (;;) {
    const ssize_t count = ::read(static_cast<int>(handle_), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    error = count < 0 ? last_error() : std::error_code();
    return count < 0 ? 0 : static_cast<std::size_t>(count);
  }
}

std::error_code OpenFile::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::write(static_cast<int>(handle_), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return last_error();
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

std::error_code OpenFile::sync() const {
  return fsync(static_cast<int>(handle_)) == 0 ? std::error_code() : last_error();
}

std::error_code OpenFile::close() {
  const int descriptor = static_cast<int>(std::exchange(handle_, none));
  return ::close(descriptor) == 0 ? std::error_code() : last_error();
}

}  // namespace aluframe::platform
