#pragma once

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Finds the softest mode of the frame and names the nodes that it moves: "nodes 2-3 can move
/// freely along X: no element or support resists it". Works for singular equations too.
Problem describe_softest_mode(const Frame& frame, const Equations& equations,
                              const ScaledEquations& scaled);

/// The motion of the nodes that loses most of its stiffness from one state of a frame to another in
/// which it may be negative, of any size: what buckles or snaps through between the two, whatever
/// else is softer.
/// @param scaled positive definite
/// @param beyond the other matrix, of the same places and scales
std::optional<NodeValues> lost_motion(const Frame& frame, const Equations& equations,
                                      const ScaledEquations& scaled, const SymmetricMatrix& beyond);

/// What moves in it, as "nodes 2-3 move along X".
std::string describe_lost_motion(const Frame& frame, const Equations& equations,
                                 const ScaledEquations& scaled, const SymmetricMatrix& beyond);

}  // namespace aluframe::analysis
