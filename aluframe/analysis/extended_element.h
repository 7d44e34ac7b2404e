#pragma once

#include <array>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/extended.h"

namespace aluframe::analysis {

using Extended12 = std::array<Extended, 12>;

/// End forces of an element under displacements of its nodes, to 32 digits, local axes. Only the
/// relative displacements of the ends count: rigid-body translation needs no force, and rigid-body
/// rotation none but what the axial force exerts, whatever the rounding of the stiffness is. So an
/// element displaced by a million times its own deformation has the forces of its deformation.
/// Released forces are exactly 0.
/// @param displacements global ones of the two nodes
Extended12 extended_end_forces(const ElementStiffness& stiffness, const Geometry& geometry,
                               const Extended12& displacements);

/// The twelve rotated from local to global axes.
Extended12 to_global(const Axes& axes, const Extended12& local);

}  // namespace aluframe::analysis
