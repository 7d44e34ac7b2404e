#pragma once

#include <span>

#include "aluframe/analysis/assembly.h"

namespace aluframe::analysis {

/// Stiffness of a mode relative to the stiffness of what it moves, below which a frame cannot be
/// analysed. Rounding of the factorisation, 1e-16 and more, over the softness is what is left of an
/// error in a step of refinement, so that above the limit the steps converge. A single cantilever
/// of 1300 elements comes near it; a mechanism lies at 1e-16, the rounding of its own stiffness.
inline constexpr double least_softness = 1e-13;

/// Load vector that excites every mode of a frame, the same on every run.
std::vector<double> probing_load(int size);

/// Softness of the solution for a probing load: energy over the sum of the squares. Close to
/// the smallest eigenvalue of the scaled equations when that is far below the others. 0 or less, or
/// not finite, means singular.
double softness(std::span<const double> load, std::span<const double> solution);

/// Names the mechanism of a frame whose equations are singular, or nearly: a part that the supports
/// do not restrain, a node that its elements do not restrain, or the nodes that move most in the
/// softest mode of the whole. Names the softest and the stiffest element too when a ratio of
/// 1/least_softness between them may be the reason.
Problem explain_mechanism(const Frame& frame, const Equations& equations,
                          const ScaledEquations& scaled);

}  // namespace aluframe::analysis
