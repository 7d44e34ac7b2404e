#include "aluframe/platform/file_moves.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace aluframe::platform {

namespace {

std::error_code last_error() {
  return {errno, std::generic_category()};
}

}  // namespace

std::error_code remove_file(const std::filesystem::path& path) {
  return unlink(path.c_str()) == 0 || errno == ENOENT ? std::error_code() : last_error();
}

std::error_code replace_file(const std::filesystem::path& from, const std::filesystem::path& to) {
  return rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : last_error();
}

bool open_files_are_replaced() {
  return true;
}

void sync_name(const std::filesystem::path& file) {
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace aluframe::platform
