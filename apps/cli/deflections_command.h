#pragma once

#include <filesystem>
#include <optional>

#include "aluframe/run/deflections.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct DeflectionsOptions {
  run::InputOptions input;
  model::NumberRanges combinations;  ///< for serviceability; empty: all
  tables::Format format = tables::Format::table;
  std::optional<std::filesystem::path> output;
};

/// Shows how far members bend and nodes are displaced under the combinations for serviceability,
/// and what they are limited to. @return the exit status
int run_deflections_command(const DeflectionsOptions& options);

}  // namespace aluframe::cli
