#pragma once

#include "aluframe/run/buckling.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct BucklingCommandOptions {
  run::InputOptions input;
  run::BucklingOptions subjects;
  bool limit_load = false;               ///< in place of factors of buckling
  std::optional<double> largest_factor;  ///< up to which limit loads are looked for
  tables::Format format = tables::Format::table;
  std::optional<std::filesystem::path> output;
};

/// Up to so many times their loads, limit loads are looked for unless told otherwise.
inline constexpr double usual_largest_factor = 10.0;

/// Shows the factors of the loads at which the frame buckles, and how; or its limit loads.
/// @return the exit status
int run_buckling_command(const BucklingCommandOptions& options);

}  // namespace aluframe::cli
