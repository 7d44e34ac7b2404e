#pragma once

#include <filesystem>

namespace aluframe::files {

/// The file that writing to a path makes or changes: behind symbolic links, also behind such that
/// lead nowhere yet.
std::filesystem::path link_target(std::filesystem::path path);

}  // namespace aluframe::files
