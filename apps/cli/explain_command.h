#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/run/explanation.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct ExplainOptions {
  run::InputOptions input;
  std::optional<std::filesystem::path> results;  ///< beside the model when not given
  run::WantedCheck wanted;
  tables::Format format = tables::Format::table;
  std::optional<std::filesystem::path> output;
};

/// "maximum" and "minimum" side of an envelope by their names, "max" and "min".
std::optional<int> parse_side(const std::string& name);
/// Check positions by their names, "I" to "J".
std::optional<int> parse_position(const std::string& name);

/// Shows how a stored ratio comes about. @return the exit status
int run_explain_command(const ExplainOptions& options);

}  // namespace aluframe::cli
