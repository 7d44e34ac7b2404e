#include "aluframe/area_loads/plane.h"

#include <algorithm>
#include <cmath>

#include "aluframe/elementary/functions.h"

namespace aluframe::area_loads {

namespace {

/// Components of a unit vector that are rounding beside the others.
constexpr double rounding = 1e-12;

Point3 scaled(double factor, const Point3& a) {
  return {factor * a[0], factor * a[1], factor * a[2]};
}

/// Of a vector of any length above 0.
Point3 unit_of(const Point3& a) {
  const double largest = std::max({std::abs(a[0]), std::abs(a[1]), std::abs(a[2])});
  const Point3 near_one{a[0] / largest, a[1] / largest, a[2] / largest};
  Point3 unit = scaled(1.0 / norm(near_one), near_one);
  for (double& component : unit) {
    if (std::abs(component) < rounding) component = 0.0;
  }
  return scaled(1.0 / norm(unit), unit);
}

Point3 part_in_plane(const Point3& direction, const Point3& normal) {
  return difference(direction, scaled(dot(direction, normal), normal));
}

}  // namespace

Point3 difference(const Point3& a, const Point3& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double dot(const Point3& a, const Point3& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Point3 cross(const Point3& a, const Point3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double norm(const Point3& a) {
  return elementary::hypotenuse(elementary::hypotenuse(a[0], a[1]), a[2]);
}

double dot(Point2 a, Point2 b) {
  return a.x * b.x + a.y * b.y;
}

double cross(Point2 a, Point2 b) {
  return a.x * b.y - a.y * b.x;
}

double distance(Point2 a, Point2 b) {
  return elementary::hypotenuse(a.x - b.x, a.y - b.y);
}

Plane::Plane(const Point3& origin, const Point3& normal, const Point3& along)
    : origin_(origin),
      normal_(unit_of(normal)),
      x_(),
      y_(unit_of(part_in_plane(unit_of(along), normal_))) {
  x_ = unit_of(cross(y_, normal_));
}

Point2 Plane::local(const Point3& point) const {
  const Point3 from_origin = difference(point, origin_);
  return {dot(from_origin, x_), dot(from_origin, y_)};
}

Point3 Plane::global(Point2 point) const {
  Point3 out = origin_;
  for (std::size_t i = 0; i < out.size(); ++i) out[i] += point.x * x_[i] + point.y * y_[i];
  return out;
}

double Plane::height(const Point3& point) const {
  return dot(difference(point, origin_), normal_);
}

Plane Plane::turned_over() const {
  return {origin_, scaled(-1.0, normal_), y_};
}

std::optional<Plane> plane_through(std::span<const Point3> points) {
  const Point3& first = points.front();
  const auto from_first = [&](const Point3& point) { return norm(difference(point, first)); };
  const Point3& far = *std::ranges::max_element(points, {}, from_first);
  const double length = from_first(far);
  if (!(length > 0.0)) return std::nullopt;
  const Point3 side = difference(far, first);
  const auto twice_area = [&](const Point3& point) {
    return norm(cross(side, difference(point, first)));
  };
  const Point3& apex = *std::ranges::max_element(points, {}, twice_area);
  // Beside a line by less than its thousand millionth part: rounding.
  if (!(twice_area(apex) > 1e-9 * length * length)) return std::nullopt;
  return Plane(first, cross(side, difference(apex, first)), side);
}

std::optional<Plane> plane_of_first(std::span<const Point3> points) {
  // A third point nearer to the line through two others tells little of a plane.
  constexpr double least_slope = 0.05;
  const Point3& first = points.front();
  const auto second = std::ranges::find_if(points, [&](const Point3& p) { return p != first; });
  if (second == points.end()) return std::nullopt;
  const Point3 side = difference(*second, first);
  const auto third = std::ranges::find_if(points, [&](const Point3& point) {
    const Point3 to_point = difference(point, first);
    return norm(cross(side, to_point)) > least_slope * norm(side) * norm(to_point);
  });
  if (third == points.end()) return std::nullopt;
  return Plane(first, cross(side, difference(*third, first)), side);
}

double extent_of(std::span<const Point3> points) {
  double extent = 0.0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const auto [low, high] =
        std::ranges::minmax(points, {}, [axis](const Point3& point) { return point[axis]; });
    extent = std::max(extent, high[axis] - low[axis]);
  }
  return extent;
}

double allowed_height(double extent) {
  return std::max(1.0, 1e-3 * extent);
}

double joining_distance(double extent) {
  return std::min(1.0, 1e-3 * extent);
}

}  // namespace aluframe::area_loads
