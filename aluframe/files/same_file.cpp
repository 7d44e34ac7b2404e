#include "aluframe/files/same_file.h"

#include <system_error>

#include "aluframe/files/link_target.h"

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;

/// The path in full, however it is written. Its folder may be reached through links.
fs::path full(const fs::path& path) {
  std::error_code error;
  const fs::path target = fs::absolute(link_target(path), error);
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
