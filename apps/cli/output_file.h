#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace aluframe::cli {

/// Writes what a command prints: to the file when one is named, else to standard output.
/// @return the exit status; a file that cannot be written is a failure
int write_output(const std::string& text, const std::optional<std::filesystem::path>& path);

}  // namespace aluframe::cli
