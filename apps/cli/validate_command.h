#pragma once

#include <filesystem>
#include <optional>

namespace aluframe::cli {

struct ValidateOptions {
  std::filesystem::path model;
  std::optional<std::filesystem::path> forces;
};

/// Reads a model, and forces from CSV when given, and says what it holds or what is wrong with it.
/// @return the exit status
int run_validate_command(const ValidateOptions& options);

}  // namespace aluframe::cli
