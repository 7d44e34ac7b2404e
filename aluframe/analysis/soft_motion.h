#pragma once

#include "aluframe/analysis/assembly.h"

namespace aluframe::analysis {

/// Finds the softest motion of the frame and tells which nodes it moves: "nodes 2-3 can move freely
/// along X: no element or support resists it". Works for singular equations too.
Problem tell_softest_motion(const Frame& frame, const Equations& equations,
                            const ScaledEquations& scaled);

/// The same for equations that axial forces have made indefinite: the motion whose stiffness is
/// nearest to zero, told as "nodes 2-3 move along X".
std::string tell_motion_near_zero(const Frame& frame, const Equations& equations,
                                  const ScaledEquations& scaled);

}  // namespace aluframe::analysis
