#pragma once

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

/// End forces of a clamped element under its loads, local axes.
struct ClampedEnds {
  Vector12 condensed;   ///< with its releases
  Vector12 unreleased;  ///< as if nothing were released
};

/// Largest sizes among the twelve end forces of an element.
struct EndSizes {
  double axial = 0.0, shear = 0.0, moment = 0.0;  ///< N, Fy and Fz, all moments

  /// @param ends twelve values, of whichever sign
  template <class Ends>
  static EndSizes of(const Ends& ends) {
    const auto largest = [&](auto... places) { return std::max({std::abs(ends[places])...}); };
    return {largest(0, 6), largest(1, 2, 7, 8), largest(3, 4, 5, 9, 10, 11)};
  }
};

/// End forces, acting ON the element in local axes, that hold both its ends still under its loads.
/// Exact for every load, shear flexibility included: the shapes that the loads are weighed with are
/// those of the unloaded element (reciprocity). A truss passes its loads on to its ends as a simply
/// supported bar does (half each for a uniform load); its temperature acts on its axial force.
Vector12 clamped_forces(const Element& element, const ElementLoads& loads);

/// The same for one bending plane: `axis` is 1 (y) or 2 (z).
Vector4 clamped_plane(const BendingPlane& plane, const ElementLoads& loads, int axis);

/// What a truss passes on to its ends: part of clamped_forces that is no force in the bar.
Vector12 passed_to_ends(const ElementLoads& loads);

}  // namespace aluframe::analysis
