#pragma once

#include <cmath>

#include "aluframe/elementary/functions.h"

namespace aluframe::picture {

/// A point or a direction of the model, mm, Z up.
struct Point3 {
  double x = 0.0, y = 0.0, z = 0.0;

  friend Point3 operator+(const Point3& a, const Point3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
  }
  friend Point3 operator-(const Point3& a, const Point3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
  }
  friend Point3 operator*(double factor, const Point3& a) {
    return {factor * a.x, factor * a.y, factor * a.z};
  }
  friend bool operator==(const Point3&, const Point3&) = default;
};

inline double dot(const Point3& a, const Point3& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Point3 cross(const Point3& a, const Point3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length_of(const Point3& a) {
  return std::sqrt(dot(a, a));
}
inline Point3 between(const Point3& start, const Point3& end, double fraction) {
  return start + fraction * (end - start);
}

/// A point or a direction on paper, x to the right, y up.
struct Point2 {
  double x = 0.0, y = 0.0;

  friend Point2 operator+(const Point2& a, const Point2& b) { return {a.x + b.x, a.y + b.y}; }
  friend Point2 operator-(const Point2& a, const Point2& b) { return {a.x - b.x, a.y - b.y}; }
  friend Point2 operator*(double factor, const Point2& a) { return {factor * a.x, factor * a.y}; }
  friend bool operator==(const Point2&, const Point2&) = default;
};

inline double length_of(const Point2& a) {
  return elementary::hypotenuse(a.x, a.y);
}
inline double dot(const Point2& a, const Point2& b) {
  return a.x * b.x + a.y * b.y;
}
/// Turned by a quarter to the left.
inline Point2 left_of(const Point2& a) {
  return {-a.y, a.x};
}
/// The direction at length 1; `otherwise` for one without length.
inline Point2 unit_of(const Point2& a, const Point2& otherwise = {1.0, 0.0}) {
  const double length = length_of(a);
  return length > 0.0 ? (1.0 / length) * a : otherwise;
}

}  // namespace aluframe::picture
