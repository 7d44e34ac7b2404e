#pragma once

#include "aluframe/members/end_support.h"

namespace aluframe::members {

/// Which other elements may meet at a node that a collinear run goes on past.
enum class Meeting {
  none,              ///< whatever meets there may restrain the node
  without_restraint  ///< those that do not bend about the axis: the frame is free to sway with them
};

/// A member segment together with those that continue it straight on past nodes that are no joints
/// for bending about one of its axes: without other elements (but those that `meeting` lets pass),
/// without a release of a bending moment, and without a support or a spring that acts in the plane
/// of bending (one that restrains the bar sideways only, as in a plane model, is none). Such
/// segments buckle as one.
///
/// @return the whole run; its `elements` are those of `segment` alone, its stiffness is the mean
MemberSegment collinear_run(const MemberSegments& segments, const MemberSegment& segment, Axis axis,
                            Meeting meeting);

}  // namespace aluframe::members
