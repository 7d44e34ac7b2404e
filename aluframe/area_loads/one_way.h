#pragma once

#include <span>
#include <string>
#include <vector>

#include "aluframe/area_loads/carrier.h"

namespace aluframe::area_loads {

/// The carried widths of a surface that spans along y: strips of it are simple beams between the
/// carriers next to one another, each of which takes half of what lies between; what cantilevers
/// beyond an outer carrier is balanced over the next one. Force and moments of the surface are
/// those of what the carriers take, strip by strip where strips do not cantilever or do so by the
/// same length, else over each stretch between two corners or ends. Carriers along y take nothing.
///
/// @param near ends that are no further apart are joined
/// Throws Fault where strips have fewer than two carriers.
std::vector<WidthPiece> one_way_widths(const Polygon& polygon, std::span<const Carrier> carriers,
                                       double near, const Plane& plane);

/// "X 0, Y 1500, Z 3000 mm"
std::string place_text(const Plane& plane, Point2 point);

}  // namespace aluframe::area_loads
