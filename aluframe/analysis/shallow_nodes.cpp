#include "aluframe/analysis/shallow_nodes.h"

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>
#include <vector>

namespace aluframe::analysis {

namespace {

/// Sines below which directions are in line: rounding of coordinates.
constexpr double in_line = 1e-6;

using Directions = std::vector<Eigen::Vector3d>;

/// By node, unit vectors along the elements that meet there.
std::vector<Directions> directions_at_nodes(const Frame& frame,
                                            std::span<const Geometry> geometry) {
  std::vector<Directions> at(frame.nodes.size());
  for (std::size_t i = 0; i < geometry.size(); ++i) {
    const Eigen::Vector3d along = geometry[i].axes.row(0).transpose();
    at[frame.elements[i].start].push_back(along);
    at[frame.elements[i].end].push_back(-along);
  }
  return at;
}

bool is_shallow(double sine, double turn) {
  return sine > in_line && sine < turn;
}

/// Whether one of them lies nearly in line with another, or in the plane of two others.
bool are_shallow(const Directions& all, double turn) {
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const Eigen::Vector3d normal = all[i].cross(all[j]);
      const double sine = normal.norm();
      if (is_shallow(sine, turn)) return true;
      if (sine <= in_line) continue;
      for (std::size_t k = 0; k < j; ++k) {
        if (is_shallow(std::abs(all[k].dot(normal)) / sine, turn)) return true;
      }
    }
  }
  return false;
}

}  // namespace

bool has_shallow_nodes(const Frame& frame, std::span<const Geometry> geometry, double turn) {
  const std::vector<Directions> at = directions_at_nodes(frame, geometry);
  return std::ranges::any_of(
      at, [turn](const Directions& directions) { return are_shallow(directions, turn); });
}

}  // namespace aluframe::analysis
