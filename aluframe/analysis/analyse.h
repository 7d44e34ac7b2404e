#pragma once

#include <span>

#include "aluframe/analysis/linear_solver.h"
#include "aluframe/analysis/load_case.h"
#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

struct Options {
  /// Share of the largest force that may stay unbalanced at a node, and of all loads and reactions
  /// in the whole frame; a case above it has no result.
  double residual_limit = 1e-8;
  /// Estimated error of the forces, as a share of the largest; a case above it has no result.
  double error_limit = 1e-6;
};

/// What the solution of the equations took.
struct Effort {
  int equations = 0;
  std::int64_t factor_entries = 0;
  std::int64_t solver_memory_bytes = 0;
};

struct Solution {
  std::vector<CaseResult> cases;  ///< one for each load case, in their order
  Effort effort;
};

/// Linear analysis of a frame under any number of load cases with one factorisation. A frame that
/// can move without resistance, a load that cannot be meant so, or a result that does not balance
/// its loads is a problem with a diagnostic text; a result never holds a number that is not finite.
///
///     const auto solved = analyse(frame, cases);
///     if (const auto* problem = std::get_if<Problem>(&solved)) return problem->text;
///     const float n = std::get<Solution>(solved).cases[0].forces[0][2][0];  // N in mid-length
Result<Solution> analyse(const Frame& frame, std::span<const LoadCase> cases,
                         const Options& options = {});

}  // namespace aluframe::analysis
