#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "aluframe/area_loads/plane.h"

/// Polygons in a plane by their corners in order.
namespace aluframe::area_loads {

using Polygon = std::vector<Point2>;

/// Positive when the corners go round counterclockwise.
double signed_area(const Polygon& polygon);
/// Distance of a point from a straight piece.
double distance_from(Point2 point, Point2 start, Point2 end);
/// Inside, or no further from an edge than `near`.
bool contains(const Polygon& polygon, Point2 point, double near);
/// The first two edges, by the places of their first corners, that meet where they have no corner
/// in common or that run back over one another.
std::optional<std::pair<std::size_t, std::size_t>> find_crossing(const Polygon& polygon);
/// Where two straight pieces cross, as a part of the first; nothing when they do not or are
/// parallel. Ends count.
std::optional<double> crossing_part(Point2 a, Point2 b, Point2 c, Point2 d);

/// Places of the corners of a counterclockwise polygon with corners of 180° left out: those that
/// are no further than `near` from the straight line between the corners beside them.
std::vector<std::size_t> true_corners(const Polygon& polygon, double near);

/// The part of a convex polygon where `value`, linear, is not above 0.
template <class Value>
Polygon part_below(const Polygon& polygon, Value value) {
  Polygon out;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2 a = polygon[i];
    const Point2 b = polygon[(i + 1) % polygon.size()];
    const double at_a = value(a), at_b = value(b);
    if (at_a <= 0.0) out.push_back(a);
    if ((at_a < 0.0 && at_b > 0.0) || (at_a > 0.0 && at_b < 0.0)) {
      out.push_back(a + (at_a / (at_a - at_b)) * (b - a));
    }
  }
  return out;
}

}  // namespace aluframe::area_loads
