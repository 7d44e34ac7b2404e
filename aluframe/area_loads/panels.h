#pragma once

#include <optional>
#include <vector>

#include "aluframe/area_loads/carrier.h"

namespace aluframe::area_loads {

/// A part of a surface with elements along all of its edges.
struct Panel {
  Polygon corners;  ///< counterclockwise
  /// By edge, the pieces of elements that run from its corner to the next; several lie over one
  /// another.
  std::vector<std::vector<Carrier>> edges;
};

/// The panels that carriers enclose: where carriers meet, cross or touch, panels have corners.
/// Carriers with a free end enclose nothing.
/// @param region outside of which carriers do not count; nothing: all count
/// Throws Fault when some stand alone within a panel.
std::vector<Panel> panels_between(const std::vector<Carrier>& carriers,
                                  const std::optional<Polygon>& region, double near,
                                  const Plane& plane);

}  // namespace aluframe::area_loads
