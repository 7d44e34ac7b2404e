#pragma once

#include <filesystem>
#include <optional>

#include "aluframe/run/check.h"
#include "aluframe/run/strictness.h"
#include "apps/cli/common_options.h"
#include "apps/cli/progress_bar.h"

namespace aluframe::cli {

struct CheckOptions {
  run::InputOptions input;
  CommonOptions common;
  std::optional<std::filesystem::path> output;  ///< result file; beside the model when not given
  ProgressMode progress = ProgressMode::automatic;
  run::Strictness strict = run::Strictness::none;
  run::SecondOpinion second_opinion = run::SecondOpinion::on;
  /// Whether to wait for another run that is writing the result file.
  files::WhenBusy when_busy = files::WhenBusy::refuse;
  /// Whether to go on with what an earlier check has left.
  run::Beginning beginning = run::Beginning::anew;
};

/// Checks a model, stores the results and prints what the run came to.
/// @return the exit status
int run_check_command(const CheckOptions& options);

}  // namespace aluframe::cli
