#pragma once

#include <span>

#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// Whether elements that meet at a node of the frame lie nearly, but not quite, in one line or in
/// one plane: such a frame may flatten, and snap through.
/// @param turn by which they are out of it at most, rad; beyond rounding they are in any case
bool has_shallow_nodes(const Frame& frame, std::span<const Geometry> geometry, double turn);

}  // namespace aluframe::analysis
