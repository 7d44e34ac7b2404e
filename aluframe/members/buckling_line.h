#pragma once

#include "aluframe/members/end_support.h"

namespace aluframe::members {

/// Which other elements may meet at a node that a line goes on past.
enum class Meeting {
  none,         ///< whatever meets there may hold the node
  without_hold  ///< those that do not bend about the axis: the frame is free to sway with them
};

/// A stretch together with those that continue it straight on past nodes that are no joints for
/// bending about one of its axes: without other elements (but those that `meeting` lets pass),
/// without a release of a bending moment, and without a support or a spring that acts in the plane
/// of bending (one that holds the bar sideways only, as in a plane model, is none). Such stretches
/// buckle as one.
///
/// @return the whole line; its `elements` are those of `stretch` alone, its stiffness is the mean
Stretch line_of(const Stretches& stretches, const Stretch& stretch, Axis axis, Meeting meeting);

}  // namespace aluframe::members
