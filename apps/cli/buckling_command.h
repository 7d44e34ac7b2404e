#pragma once

#include "aluframe/run/buckling.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct BucklingCommandOptions {
  run::InputOptions input;
  run::BucklingOptions subjects;
  tables::Format format = tables::Format::table;
  std::optional<std::filesystem::path> output;
};

/// Shows the factors of the loads at which the frame buckles, and how.
/// @return the exit status
int run_buckling_command(const BucklingCommandOptions& options);

}  // namespace aluframe::cli
