#pragma once

#include <array>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/extended.h"

namespace aluframe::analysis {

using Extended12 = std::array<Extended, 12>;

/// End forces that an element answers to displacements of its nodes, to 32 digits; both in local
/// axes. Only what the ends move against each other counts: moving the element as a whole costs
/// nothing, and turning it nothing but what its axial force exerts, whatever the rounding of its
/// stiffness is. So an element that moves by a million times its own deformation answers with the
/// forces of its deformation. Released forces are exactly 0.
/// @param moved global displacements of the two nodes
Extended12 extended_end_forces(const ElementStiffness& stiffness, const Geometry& geometry,
                               const Extended12& moved);

/// The twelve turned from local to global axes.
Extended12 to_global(const Axes& axes, const Extended12& local);

}  // namespace aluframe::analysis
