#pragma once

#include <vector>

#include "aluframe/area_loads/panels.h"

namespace aluframe::area_loads {

/// The carried widths of a convex panel that spans two ways: every edge carries what lies nearer
/// to it than to the others. Corners are halved (45° in a rectangle), so edges carry triangles and
/// trapezoids. With d the distance from the nearest edge, the sum over the edges of the widths'
/// first moments, ∫∇(d²/2) dA over the panel, is 0, because d is 0 all round: what the edges take
/// has the force and the moments of the surface exactly.
///
/// Adds the area of the panel to `area`. Corners no further than `near` from the line between
/// others are none.
/// @return false when a corner points inwards: nothing is added
bool add_two_way_widths(const Panel& panel, double near, std::vector<WidthPiece>& out,
                        double& area);

}  // namespace aluframe::area_loads
