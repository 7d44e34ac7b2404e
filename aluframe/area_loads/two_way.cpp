#include "aluframe/area_loads/two_way.h"

#include <algorithm>
#include <utility>

namespace aluframe::area_loads {

namespace {

/// A straight side of a panel, which may be several of its edges.
struct Side {
  Point2 start, along;  ///< unit vector
  double length = 0.0;

  double position(Point2 point) const { return dot(point - start, along); }
  /// Inwards.
  double depth(Point2 point) const { return cross(along, point - start); }
};

std::vector<Side> sides_of(const Polygon& polygon) {
  std::vector<Side> sides;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2 end = polygon[(i + 1) % polygon.size()];
    const double length = distance(polygon[i], end);
    sides.push_back({polygon[i], (1.0 / length) * (end - polygon[i]), length});
  }
  return sides;
}

bool is_convex(const std::vector<Side>& sides) {
  for (std::size_t i = 0; i < sides.size(); ++i) {
    if (cross(sides[i].along, sides[(i + 1) % sides.size()].along) <= 0.0) return false;
  }
  return true;
}

/// What lies nearer to a side than to the others, as depths along it.
std::vector<Point2> depths_of(const Polygon& polygon, const std::vector<Side>& sides,
                              std::size_t of) {
  Polygon cell = polygon;
  for (std::size_t other = 0; other < sides.size(); ++other) {
    if (other == of) continue;
    cell = part_below(
        cell, [&](Point2 point) { return sides[of].depth(point) - sides[other].depth(point); });
  }
  const Side& side = sides[of];
  std::vector<Point2> depths{{0.0, 0.0}, {side.length, 0.0}};
  for (const Point2 corner : cell) {
    const Point2 depth{side.position(corner), side.depth(corner)};
    // The ends of the side are there already.
    const double end = 1e-12 * side.length;
    if (depth.x > end && depth.x < side.length - end && depth.y > end) depths.push_back(depth);
  }
  std::ranges::sort(depths, {}, &Point2::x);
  return depths;
}

double between(Point2 a, Point2 b, double x) {
  return a.y + (x - a.x) / (b.x - a.x) * (b.y - a.y);
}

/// Gives the depths over an edge, which is a part of a side, to what runs along it.
void add_edge(const std::vector<Carrier>& carriers, double from, double to,
              const std::vector<Point2>& depths, std::vector<WidthPiece>& out) {
  for (std::size_t i = 0; i + 1 < depths.size(); ++i) {
    const double begin = std::max(from, depths[i].x);
    const double end = std::min(to, depths[i + 1].x);
    if (!(begin < end)) continue;
    const double share = 1.0 / static_cast<double>(carriers.size());
    const std::pair widths{share * between(depths[i], depths[i + 1], begin),
                           share * between(depths[i], depths[i + 1], end)};
    for (const Carrier& carrier : carriers) {
      add_width(carrier, {(begin - from) / (to - from), (end - from) / (to - from)}, widths, out);
    }
  }
}

}  // namespace

bool add_two_way_widths(const Panel& panel, double near, std::vector<WidthPiece>& out,
                        double& area) {
  const std::vector<std::size_t> corners = true_corners(panel.corners, near);
  Polygon polygon;
  for (const std::size_t corner : corners) polygon.push_back(panel.corners[corner]);
  if (polygon.size() < 3) return false;
  const std::vector<Side> sides = sides_of(polygon);
  if (!is_convex(sides)) return false;
  area += signed_area(polygon);
  const std::size_t count = panel.corners.size();
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const std::vector<Point2> depths = depths_of(polygon, sides, i);
    const std::size_t last = corners[(i + 1) % corners.size()];
    double from = 0.0;
    for (std::size_t edge = corners[i]; edge != last; edge = (edge + 1) % count) {
      const std::size_t next = (edge + 1) % count;
      const double to = next == last ? sides[i].length : sides[i].position(panel.corners[next]);
      add_edge(panel.edges[edge], from, to, depths, out);
      from = to;
    }
  }
  return true;
}

}  // namespace aluframe::area_loads
