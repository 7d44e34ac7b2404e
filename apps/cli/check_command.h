#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/services/check_run.h"
#include "apps/cli/common_options.h"
#include "apps/cli/progress_bar.h"
#include "apps/cli/run_input.h"

namespace aluframe::cli {

struct CheckOptions {
  InputOptions input;
  CommonOptions common;
  std::optional<std::filesystem::path> output;  ///< result file; beside the model when not given
  ProgressMode progress = ProgressMode::automatic;
  services::Language language = services::Language::english;
  bool strict = false;
};

/// Checks a model, stores the results and prints what the run came to.
/// @return the exit status
int run_check_command(const CheckOptions& options);

/// The summary of a run for the user.
/// `forces` tells how they were computed; empty: they were given.
std::string summary_text(const model::Model& model, const services::CheckSummary& summary,
                         const std::string& forces = "");

}  // namespace aluframe::cli
