#include "aluframe/files/same_file.h"

#include <system_error>

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;

/// More links in a row than systems follow.
constexpr int most_links = 64;

/// Where writing to the path creates a file: behind links that lead nowhere yet.
fs::path target_of(fs::path path) {
  std::error_code error;
  for (int i = 0; i < most_links && fs::is_symlink(path, error); ++i) {
    const fs::path link = fs::read_symlink(path, error);
    if (error) break;
    path = link.is_absolute() ? link : path.parent_path() / link;
  }
  return path;
}

/// The path in full, however it is written. Its folder may be reached through links.
fs::path full(const fs::path& path) {
  std::error_code error;
  const fs::path target = fs::absolute(target_of(path), error);
  const fs::path known = fs::weakly_canonical(target, error);
  return error ? target.lexically_normal() : known;
}

}  // namespace

bool is_same_file(const fs::path& a, const fs::path& b) {
  if (a.empty() || b.empty()) return false;
  std::error_code error;
  return fs::equivalent(a, b, error) || full(a) == full(b);
}

}  // namespace aluframe::files
