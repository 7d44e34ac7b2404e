#pragma once

#include "aluframe/analysis/equilibrium.h"
#include "aluframe/analysis/linear_solver.h"

namespace aluframe::analysis {

/// Equations of a frame that are factorised, and what they were assembled from.
struct FactorisedFrame {
  const Frame& frame;
  std::span<const Geometry> geometry;
  const Equations& equations;
  std::span<const double> scale;  ///< of the equations
  StiffnessSource stiffness;
  LinearSolver& solver;
};

/// Loads of a case as the refinement takes them.
struct CaseLoads {
  NodeValues nodal;                        ///< given on nodes
  std::vector<Vector12> fixed_end_forces;  ///< per element: with its releases, local axes
  Norms norms;                             ///< of all of them
};

/// What is known of a case after its refinement.
struct RefinedCase {
  NodeValues displacements;
  std::vector<Vector12> end_forces;  ///< per element: acting ON it, local axes
  Norms largest;                     ///< of the end forces and the loads
  /// Estimated: by how much of the largest force the forces changed in the end.
  double force_error = 0.0;
};

/// Refines displacements that double precision does not suffice for, as in a chain of hundreds of
/// elements, whose tip is displaced a million times as far as an element deforms: solves again for
/// the residual, the part of the loads that the elements leave unbalanced, both in extended
/// precision, until the element forces change no more (iterative refinement: Higham, Accuracy and
/// Stability of Numerical Algorithms, chapter 12). Every step multiplies the error by the rounding
/// of the factorisation over the softness of the frame, so that it converges unless the frame is a
/// mechanism, or so nearly one that `force_error` stays large.
RefinedCase refine(const FactorisedFrame& factorised, const CaseLoads& loads,
                   const NodeValues& displacements);

}  // namespace aluframe::analysis
