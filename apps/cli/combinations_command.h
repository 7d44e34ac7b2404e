#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

struct CombinationsOptions {
  std::filesystem::path model;
  bool allow_outside = false;       ///< catalogues that lie outside of the model's folder
  std::optional<std::string> rule;  ///< in place of the model's
  bool explain = false;             ///< which action leads, which accompany, and their factors
  bool write = false;               ///< puts the combinations into the file
  tables::Format format = tables::Format::table;
};

/// Shows the combinations of a model: its own, and those that the rule makes; or writes them into
/// its file in place of the rule.
/// @return the exit status
int run_combinations_command(const CombinationsOptions& options);

}  // namespace aluframe::cli
