#pragma once

#include <filesystem>

namespace aluframe::files {

/// True when both paths lead to one file: also through symbolic and hard links, and to a file that
/// does not exist yet.
bool is_same_file(const std::filesystem::path& a, const std::filesystem::path& b);

}  // namespace aluframe::files
