#include "aluframe/files/new_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace aluframe::files {

namespace {

constexpr int attempts = 100;

std::filesystem::path random_sibling(const std::filesystem::path& destination) {
  constexpr const char* letters = "abcdefghijklmnopqrstuvwxyz012345";
  std::random_device random;
  std::string name = "." + destination.filename().string() + ".";
  for (int i = 0; i < 8; ++i) name += letters[random() % 32];
  return destination.parent_path() / name;
}

/// Creates `path`, which must not exist yet. @return 0 or the error number
int create_empty(const std::filesystem::path& path) {
  errno = 0;
  std::FILE* file = std::fopen(path.c_str(), "wbx");
  if (file == nullptr) return errno;
  return std::fclose(file) == 0 ? 0 : errno;
}

}  // namespace

NewFile::NewFile(std::filesystem::path destination) : destination_(std::move(destination)) {
  int error = EEXIST;
  for (int i = 0; i < attempts && error == EEXIST; ++i) {
    path_ = random_sibling(destination_);
    error = create_empty(path_);
  }
  if (error != 0) throw std::runtime_error(std::generic_category().message(error));
}

NewFile::~NewFile() {
  std::error_code ignored;
  if (!path_.empty()) std::filesystem::remove(path_, ignored);
}

void NewFile::replace() {
  std::error_code error;
  std::filesystem::rename(path_, destination_, error);
  if (error) throw std::runtime_error(error.message());
  path_.clear();
}

}  // namespace aluframe::files
