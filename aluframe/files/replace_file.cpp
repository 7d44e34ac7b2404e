#include "aluframe/files/replace_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

#include "aluframe/files/new_file.h"

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

[[noreturn]] void fail_with(int error) {
  throw std::runtime_error(std::generic_category().message(error));
}

File open(const fs::path& path, const char* mode) {
  errno = 0;
  File file(std::fopen(path.c_str(), mode), std::fclose);
  if (file == nullptr) fail_with(errno);
  return file;
}

/// The file itself, whatever links lead to it.
fs::path resolved(const fs::path& path) {
  std::error_code error;
  fs::path file = fs::canonical(path, error);
  if (error) throw std::runtime_error(error.message());
  return file;
}

/// A rename asks the folder only: a file that is protected would be replaced all the same.
void require_writable(const fs::path& file) {
  const fs::file_status status = fs::status(file);
  if (!fs::is_regular_file(status)) throw std::runtime_error("is no ordinary file");
  constexpr fs::perms any_write =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  const bool writable = (status.permissions() & any_write) != fs::perms::none;
  if (!writable) throw std::runtime_error("is write-protected");  // also for the superuser
  open(file, "r+b");
}

/// Writes as far as the disk itself, so that a rename never comes before the content.
void write(const fs::path& path, std::string_view content) {
  File file = open(path, "wb");
  errno = 0;
  const bool written =
      std::fwrite(content.data(), 1, content.size(), file.get()) == content.size() &&
      std::fflush(file.get()) == 0 && fsync(fileno(file.get())) == 0;
  if (!written) fail_with(errno);
  if (std::fclose(file.release()) != 0) fail_with(errno);
}

}  // namespace

void replace_file(const fs::path& path, std::string_view content) {
  const fs::path file = resolved(path);
  require_writable(file);
  NewFile replacement(file);
  // Before the content, which may be for few eyes.
  fs::permissions(replacement.path(), fs::status(file).permissions());
  write(replacement.path(), content);
  replacement.replace();
}

}  // namespace aluframe::files
