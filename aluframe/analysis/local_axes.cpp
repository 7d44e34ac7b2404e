#include "aluframe/analysis/local_axes.h"

#include <cmath>
#include <numbers>

namespace aluframe::analysis {

namespace {

/// An axis that leaves the vertical by less than this part of its length is vertical.
constexpr double vertical_limit = 1e-6;

Eigen::Vector3d horizontal_normal(const Eigen::Vector3d& x) {
  const double flat = std::hypot(x.x(), x.y());
  if (flat >= vertical_limit) return {-x.y() / flat, x.x() / flat, 0.0};
  // Global Y made perpendicular to an axis that is vertical but for the tolerance.
  return (Eigen::Vector3d::UnitY() - x.y() * x).normalized();
}

}  // namespace

Geometry geometry_between(const Node& start, const Node& end, double beta) {
  const Eigen::Vector3d span(end.x - start.x, end.y - start.y, end.z - start.z);
  Geometry geometry;
  geometry.length = span.stableNorm();
  const Eigen::Vector3d x = span / geometry.length;
  const Eigen::Vector3d y = horizontal_normal(x);
  const Eigen::Vector3d z = x.cross(y);
  const double angle = beta * std::numbers::pi / 180.0;
  geometry.axes.row(0) = x;
  geometry.axes.row(1) = std::cos(angle) * y + std::sin(angle) * z;
  geometry.axes.row(2) = std::cos(angle) * z - std::sin(angle) * y;
  return geometry;
}

std::vector<Geometry> element_geometry(const Frame& frame) {
  std::vector<Geometry> geometry;
  geometry.reserve(frame.elements.size());
  for (const Element& element : frame.elements) {
    geometry.push_back(
        geometry_between(frame.nodes[element.start], frame.nodes[element.end], element.beta));
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
