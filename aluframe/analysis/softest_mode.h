#pragma once

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Finds the softest mode of the frame and names the nodes that it moves: "nodes 2-3 can move
/// freely along X: no element or support resists it". Works for singular equations too.
Problem describe_softest_mode(const Frame& frame, const Equations& equations,
                              const ScaledEquations& scaled);

/// The motion of the nodes whose stiffness is nearest to zero, of equations that axial forces may
/// have made indefinite; of any size.
std::optional<NodeValues> softest_motion(const Frame& frame, const Equations& equations,
                                         const ScaledEquations& scaled);

/// What moves in it, as "nodes 2-3 move along X".
std::string describe_buckling_mode(const Frame& frame, const Equations& equations,
                                   const ScaledEquations& scaled);

}  // namespace aluframe::analysis
