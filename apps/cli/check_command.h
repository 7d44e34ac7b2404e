#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/services/check_run.h"
#include "apps/cli/common_options.h"
#include "apps/cli/progress_bar.h"

namespace aluframe::cli {

struct CheckOptions {
  std::filesystem::path model;
  CommonOptions common;
  std::optional<std::filesystem::path> forces;  ///< CSV in place of the model's forces
  std::optional<std::filesystem::path> output;  ///< result file; beside the model when not given
  ProgressMode progress = ProgressMode::automatic;
  services::Language language = services::Language::english;
  bool strict = false;
};

/// Checks a model, stores the results and prints what the run came to.
/// @return the exit status
int run_check_command(const CheckOptions& options);

/// The summary of a run for the user.
std::string summary_text(const model::Model& model, const services::CheckSummary& summary);

}  // namespace aluframe::cli
