#pragma once

#include "aluframe/members/end_support.h"

namespace aluframe::members {

/// A stretch together with those that continue it straight on past nodes that are no joints for
/// bending about one of its axes: without any third element, without a release of a bending moment,
/// and without a support or a spring that acts in the plane of bending (one that holds the bar
/// sideways only, as in a plane model, is none). Such stretches buckle as one.
///
/// @return the whole line; its `elements` are those of `stretch` alone, its stiffness is the mean
Stretch line_of(const Stretches& stretches, const Stretch& stretch, Axis axis);

}  // namespace aluframe::members
