#pragma once

#include <vector>

namespace aluframe::combinations {

/// Factors of the load cases in one combination, and effects of the cases under which it is likely
/// to give more than any other.
struct FactorPoint {
  std::vector<double> factors;
  std::vector<double> likely_effects;
};

/// Which points govern for some effects of the load cases: those that are no weighted mean of the
/// others. The sum of factor × effect is linear, so a mean never exceeds the larger of what it lies
/// between, nor falls below the smaller, whatever the effects are. Points must differ.
///
/// A point that gives the most under its likely effects, by more than rounding, governs; the others
/// are decided by linear programming (phase one of the simplex method, Bland's rule).
std::vector<bool> are_extreme(const std::vector<FactorPoint>& points);

}  // namespace aluframe::combinations
