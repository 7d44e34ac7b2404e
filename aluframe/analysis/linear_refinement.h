#pragma once

#include <memory>
#include <optional>

#include "aluframe/analysis/equations.h"
#include "aluframe/analysis/linear_solver.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Makes better results for those cases of a linear analysis that double precision did not suffice
/// for. The equations are assembled and factorised again when the first such case comes, so that
/// ordinary frames need not keep them in memory.
class LinearRefinement {
 public:
  LinearRefinement(const Frame& frame, std::span<const Geometry> geometry,
                   const Equations& equations)
      : frame_(frame), geometry_(geometry), equations_(equations) {}

  /// @param first result of the case, in double precision
  /// @param load_norms of its loads
  Result<CaseResult> refine(const CaseResult& first, const LoadCase& load_case,
                            const LoadsByElement& loads, const Norms& load_norms);

 private:
  std::optional<Problem> factorise();

  const Frame& frame_;
  std::span<const Geometry> geometry_;
  const Equations& equations_;
  std::unique_ptr<LinearSolver> solver_;
  std::vector<double> scale_;
};

}  // namespace aluframe::analysis
