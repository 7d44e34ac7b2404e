#pragma once

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

/// Fixed-end forces of an element: its end forces under its loads with both ends fixed, local axes.
struct FixedEndForces {
  Vector12 condensed;   ///< with its releases
  Vector12 unreleased;  ///< as if nothing were released
};

/// Largest magnitudes among the twelve end forces of an element.
struct EndForceNorms {
  double axial = 0.0, shear = 0.0, moment = 0.0;  ///< N, Fy and Fz, all moments

  /// @param ends twelve values, of whichever sign
  template <class Ends>
  static EndForceNorms of(const Ends& ends) {
    const auto largest = [&](auto... dofs) { return std::max({std::abs(ends[dofs])...}); };
    return {largest(0, 6), largest(1, 2, 7, 8), largest(3, 4, 5, 9, 10, 11)};
  }
};

/// Fixed-end forces of an element under its loads: acting ON the element, local axes, no releases.
/// Exact for every load, shear flexibility included: the shapes that the loads are weighed with are
/// those of the unloaded element (reciprocity). A truss passes its loads on to its ends as a simply
/// supported bar does (half each for a uniform load); its temperature acts on its axial force.
Vector12 fixed_end_forces(const Element& element, const ElementLoads& loads);

/// The same for one bending plane: `axis` is 1 (y) or 2 (z).
Vector4 plane_fixed_end_forces(const BendingPlane& plane, const ElementLoads& loads, int axis);

/// Reactions of a simply supported bar under the loads: the part of a truss's fixed-end forces that
/// is no force in the bar.
Vector12 simply_supported_reactions(const ElementLoads& loads);

}  // namespace aluframe::analysis
