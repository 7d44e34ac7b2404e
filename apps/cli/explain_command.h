#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/run/explanation.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

enum class ExplanationFormat { table, json, html };

struct ExplainOptions {
  run::InputOptions input;
  std::optional<std::filesystem::path> results;  ///< beside the model when not given
  run::WantedCheck wanted;
  ExplanationFormat format = ExplanationFormat::table;
  std::optional<std::filesystem::path> output;
};

/// "table", "json" or "html".
std::optional<ExplanationFormat> parse_explanation_format(const std::string& name);
/// "maximum" and "minimum" side of an envelope by their names, "max" and "min".
std::optional<int> parse_side(const std::string& name);
/// Check positions by their names, "I" to "J".
std::optional<int> parse_position(const std::string& name);

/// Shows how a stored ratio comes about. @return the exit status
int run_explain_command(const ExplainOptions& options);

}  // namespace aluframe::cli
