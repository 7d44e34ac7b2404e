#include "aluframe/analysis/local_axes.h"

#include <cmath>
#include <numbers>

#include "aluframe/elementary/functions.h"

namespace aluframe::analysis {

namespace {

Eigen::Vector3d span_of(const Node& start, const Node& end) {
  return {end.x - start.x, end.y - start.y, end.z - start.z};
}

Eigen::Vector3d default_y(const Eigen::Vector3d& x) {
  const double flat = elementary::hypotenuse(x.x(), x.y());
  if (flat >= parallel_limit) return {-x.y() / flat, x.x() / flat, 0.0};
  return (Eigen::Vector3d::UnitY() - x.y() * x).normalized();
}

/// Square to the plane of the axis and the direction that z leans to.
Eigen::Vector3d y_beside(const Vector3& reference, const Eigen::Vector3d& x) {
  return Eigen::Vector3d::Map(reference.data()).stableNormalized().cross(x).normalized();
}

}  // namespace

Geometry geometry_between(const Node& start, const Node& end, double beta,
                          const std::optional<Vector3>& reference) {
  const Eigen::Vector3d span = span_of(start, end);
  Geometry geometry;
  geometry.length = span.stableNorm();
  const Eigen::Vector3d x = span / geometry.length;
  const Eigen::Vector3d y = reference ? y_beside(*reference, x) : default_y(x);
  const Eigen::Vector3d z = x.cross(y);
  const double angle = beta * std::numbers::pi / 180.0;
  geometry.axes.row(0) = x;
  geometry.axes.row(1) = elementary::cosine(angle) * y + elementary::sine(angle) * z;
  geometry.axes.row(2) = elementary::cosine(angle) * z - elementary::sine(angle) * y;
  return geometry;
}

double reference_sine(const Node& start, const Node& end, const Vector3& reference) {
  const Eigen::Vector3d x = span_of(start, end).stableNormalized();
  return Eigen::Vector3d::Map(reference.data()).stableNormalized().cross(x).norm();
}

std::vector<Geometry> element_geometry(const Frame& frame) {
  std::vector<Geometry> geometry;
  geometry.reserve(frame.elements.size());
  for (const Element& element : frame.elements) {
    geometry.push_back(geometry_between(frame.nodes[element.start], frame.nodes[element.end],
                                        element.beta, element.reference));
  }
  return geometry;
}

Vector12 to_local(const Axes& axes, const Vector12& global) {
  Vector12 local;
  for (int i = 0; i < 12; i += 3) local.segment<3>(i).noalias() = axes * global.segment<3>(i);
  return local;
}

Vector12 to_global(const Axes& axes, const Vector12& local) {
  Vector12 global;
  for (int i = 0; i < 12; i += 3) {
    global.segment<3>(i).noalias() = axes.transpose() * local.segment<3>(i);
  }
  return global;
}

Matrix12 to_global(const Axes& axes, const Matrix12& local) {
  Matrix12 global;
  for (int i = 0; i < 12; i += 3) {
    for (int j = 0; j <= i; j += 3) {
      const Eigen::Matrix3d half = local.block<3, 3>(i, j) * axes;
      global.block<3, 3>(i, j).noalias() = axes.transpose() * half;
      if (j < i) global.block<3, 3>(j, i) = global.block<3, 3>(i, j).transpose();
    }
  }
  return global;
}

}  // namespace aluframe::analysis
