#pragma once

#include <filesystem>

namespace aluframe::cli {

struct PointsOptions {
  std::filesystem::path input = "-";  ///< "-": standard input
  bool second_opinion = false;        ///< safe ratios beside the results
};

/// Runs the design check engine on bare check points, JSON Lines in, JSON Lines on standard output.
/// @return the exit status; an input error when any line was no check point
int run_points_command(const PointsOptions& options);

}  // namespace aluframe::cli
