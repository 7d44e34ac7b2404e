#include "aluframe/area_loads/polygon.h"

#include <algorithm>
#include <cmath>

namespace aluframe::area_loads {

namespace {

bool are_neighbours(std::size_t i, std::size_t j, std::size_t count) {
  return (i + 1) % count == j || (j + 1) % count == i;
}

/// Whether the edge that begins at corner `next` runs back over the one that ends there.
bool turns_back(const Polygon& polygon, std::size_t i, std::size_t next) {
  const Point2 in = polygon[next] - polygon[i];
  const Point2 out = polygon[(next + 1) % polygon.size()] - polygon[next];
  const double scale = std::sqrt(dot(in, in) * dot(out, out));
  return dot(in, out) < 0.0 && std::abs(cross(in, out)) < 1e-9 * scale;
}

/// Whether a point to the right of this one is met by the edge.
bool is_passed(Point2 point, Point2 a, Point2 b) {
  if ((a.y > point.y) == (b.y > point.y)) return false;
  return point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x);
}

/// Whether the corners between two others stand on the line between these.
bool is_straight(const Polygon& polygon, std::size_t from, std::size_t to, double near) {
  for (std::size_t i = from + 1; i < to; ++i) {
    const std::size_t count = polygon.size();
    if (distance_from(polygon[i % count], polygon[from % count], polygon[to % count]) > near) {
      return false;
    }
  }
  return true;
}

}  // namespace

double signed_area(const Polygon& polygon) {
  double twice = 0.0;
  for (std::size_t i = 2; i < polygon.size(); ++i) {
    twice += cross(polygon[i - 1] - polygon[0], polygon[i] - polygon[0]);
  }
  return 0.5 * twice;
}

double distance_from(Point2 point, Point2 start, Point2 end) {
  const Point2 along = end - start;
  const double square = dot(along, along);
  if (!(square > 0.0)) return distance(point, start);
  const double part = std::clamp(dot(point - start, along) / square, 0.0, 1.0);
  return distance(point, start + part * along);
}

bool contains(const Polygon& polygon, Point2 point, double near) {
  bool is_inside = false;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2 a = polygon[i];
    const Point2 b = polygon[(i + 1) % polygon.size()];
    if (distance_from(point, a, b) <= near) return true;
    if (is_passed(point, a, b)) is_inside = !is_inside;
  }
  return is_inside;
}

std::optional<double> crossing_part(Point2 a, Point2 b, Point2 c, Point2 d) {
  const Point2 along = b - a;
  const Point2 other = d - c;
  const double determinant = cross(along, other);
  const double scale = std::sqrt(dot(along, along) * dot(other, other));
  if (!(std::abs(determinant) > 1e-12 * scale)) return std::nullopt;
  const double part = cross(c - a, other) / determinant;
  const double part_of_other = cross(c - a, along) / determinant;
  if (part < 0.0 || part > 1.0 || part_of_other < 0.0 || part_of_other > 1.0) return std::nullopt;
  return part;
}

std::optional<std::pair<std::size_t, std::size_t>> find_crossing(const Polygon& polygon) {
  const std::size_t count = polygon.size();
  const auto end = [&](std::size_t i) { return polygon[(i + 1) % count]; };
  for (std::size_t i = 0; i < count; ++i) {
    if (turns_back(polygon, i, (i + 1) % count)) return std::pair{i, (i + 1) % count};
    for (std::size_t j = i + 1; j < count; ++j) {
      if (are_neighbours(i, j, count)) continue;
      const bool touches = distance_from(polygon[j], polygon[i], end(i)) == 0.0 ||
                           distance_from(polygon[i], polygon[j], end(j)) == 0.0;
      if (touches || crossing_part(polygon[i], end(i), polygon[j], end(j))) return std::pair{i, j};
    }
  }
  return std::nullopt;
}

std::vector<std::size_t> true_corners(const Polygon& polygon, double near) {
  const std::size_t count = polygon.size();
  // The corner that is furthest from another one is no corner of 180°.
  const auto from_first = [&](Point2 point) { return distance(point, polygon.front()); };
  const auto first =
      static_cast<std::size_t>(std::ranges::max_element(polygon, {}, from_first) - polygon.begin());
  std::vector<std::size_t> corners{first};
  std::size_t from = first;
  for (std::size_t to = first + 2; to <= first + count; ++to) {
    if (is_straight(polygon, from, to, near)) continue;
    from = to - 1;
    corners.push_back(from % count);
  }
  return corners;
}

}  // namespace aluframe::area_loads
