#pragma once

#include <optional>

#include "aluframe/analysis/frame.h"
#include "aluframe/analysis/small_matrices.h"

namespace aluframe::analysis {

/// Releases of an element's ends by static condensation: the displacement of a released end is its
/// own, such that its force vanishes. Works on local axes, for any load between the ends.
///
///     if (auto released = Releases::condense(element.released, k)) {
///       released->condense_forces(fixed_end);  // end forces = k·u + fixed_end, u of the nodes
///     }
class Releases {
 public:
  /// Condenses `k`: rows and columns of released components become exactly 0. Components without
  /// stiffness (all but N of a truss) count as not released.
  /// @param negative counts the pivots below zero, which a compressed element may have
  /// @return nothing when the releases leave the element a mechanism, such as Mx at both ends
  static std::optional<Releases> condense(const std::array<bool, 12>& released, Matrix12& k,
                                          int* negative = nullptr);

  bool any() const { return count_ > 0; }

  /// Condenses the fixed-end forces of the element; released components become exactly 0.
  void condense_forces(Vector12& fixed_end) const;

  /// Replaces the nodes' displacements at released components by those of the element's ends.
  /// @param fixed_end forces of the element before condensation
  void restore(const Vector12& fixed_end, Vector12& displacements) const;

 private:
  struct Step {
    int dof = 0;
    double pivot = 0.0;
    Vector12 share;  // row of the stiffness over the pivot, when its turn came
  };
  std::array<Step, 12> steps_;
  std::size_t count_ = 0;
};

}  // namespace aluframe::analysis
