#pragma once

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Why the equations could not be factorised. Nothing when they were.
std::optional<Problem> find_problem(const Factorisation& factorisation, const Frame& frame,
                                    const Equations& equations, const ScaledEquations& scaled);

/// Load vectors of several cases one after the other, and a probing load behind them; their
/// solutions once solved.
class LoadVectors {
 public:
  LoadVectors(const Equations& equations, const ScaledEquations& scaled)
      : equations_(equations), scaled_(scaled) {}

  void add(const NodeValues& loads);
  /// Solves all. @return softness of the solution for the probing load
  double solve(LinearSolver& solver);
  /// Displacements of the case on top of the prescribed ones.
  void add_displacements(std::size_t load_case, NodeValues& displacements) const;

 private:
  std::size_t size() const { return scaled_.scale.size(); }

  const Equations& equations_;
  const ScaledEquations& scaled_;
  std::vector<double> columns_;
};

/// Whether double precision does not suffice for a case: its residual is more than the
/// rounding of an ordinary frame, by which the forces stay far from `Options::error_limit`.
bool needs_refinement(const Equilibrium& equilibrium);

/// The problem of a case whose result does not balance its loads.
std::optional<Problem> find_residual_problem(const CaseResult& result, std::size_t load_case,
                                             const Options& options);

}  // namespace aluframe::analysis
