#include "aluframe/files/link_target.h"

#include <system_error>

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;

/// More links in a row than systems follow.
constexpr int most_links = 64;

}  // namespace

fs::path link_target(fs::path path) {
  std::error_code error;
  for (int i = 0; i < most_links && fs::is_symlink(path, error); ++i) {
    const fs::path link = fs::read_symlink(path, error);
    if (error) break;
    path = link.is_absolute() ? link : path.parent_path() / link;
  }
  return path;
}

}  // namespace aluframe::files
