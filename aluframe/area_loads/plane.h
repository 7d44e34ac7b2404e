#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

/// Points in space and in the plane of a surface, mm.
namespace aluframe::area_loads {

using Point3 = std::array<double, 3>;

Point3 difference(const Point3& a, const Point3& b);
double dot(const Point3& a, const Point3& b);
Point3 cross(const Point3& a, const Point3& b);
double norm(const Point3& a);

struct Point2 {
  double x = 0.0, y = 0.0;

  friend Point2 operator+(Point2 a, Point2 b) { return {a.x + b.x, a.y + b.y}; }
  friend Point2 operator-(Point2 a, Point2 b) { return {a.x - b.x, a.y - b.y}; }
  friend Point2 operator*(double factor, Point2 a) { return {factor * a.x, factor * a.y}; }
};

double dot(Point2 a, Point2 b);
/// Positive when b lies to the left of a.
double cross(Point2 a, Point2 b);
double distance(Point2 a, Point2 b);

/// A plane with a point in it, its normal and its axes: y along a direction, x such that x, y and
/// the normal are right-handed.
class Plane {
 public:
  /// `along` is projected into the plane, to which it must not be square.
  Plane(const Point3& origin, const Point3& normal, const Point3& along);

  Point2 local(const Point3& point) const;
  Point3 global(Point2 point) const;
  /// Distance from the plane, positive on the side of the normal.
  double height(const Point3& point) const;
  const Point3& normal() const { return normal_; }
  const Point3& origin() const { return origin_; }

  Plane turned_over() const;
  Plane with_y_along(const Point3& along) const { return {origin_, normal_, along}; }

 private:
  Point3 origin_, normal_, x_, y_;
};

/// The plane through the first point and those that span the largest triangle with it, its y axis
/// along the longest side; nothing when all points stand on a line. At least one point.
std::optional<Plane> plane_through(std::span<const Point3> points);

/// The plane through the first points that span one: what leaves it is what a person would name as
/// the one that does not fit. Less exact than `plane_through`; nothing when there are none.
std::optional<Plane> plane_of_first(std::span<const Point3> points);

/// The largest distance of two points from one another along an axis.
double extent_of(std::span<const Point3> points);

/// How far a point may be from a plane in which it is meant to lie: 1 mm, or a thousandth of the
/// extent of what lies there.
double allowed_height(double extent);
/// How far from one another points may be that are meant to be the same: 1 mm, but no more than a
/// thousandth of the extent.
double joining_distance(double extent);

}  // namespace aluframe::area_loads
