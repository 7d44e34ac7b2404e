#include "aluframe/analysis/motion_text.h"

#include <fmt/format.h>

#include <cmath>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// Displacement (first = 0) or rotation (first = 3) of a node.
Eigen::Vector3d part_of(const NodeValues& motion, std::size_t node, std::size_t first) {
  return {motion[6 * node + first], motion[6 * node + first + 1], motion[6 * node + first + 2]};
}

DominantMotion moving_most(const NodeValues& motion, std::size_t first) {
  DominantMotion result;
  const std::size_t nodes = motion.size() / 6;
  for (std::size_t i = 0; i < nodes; ++i) {
    const Eigen::Vector3d m = part_of(motion, i, first);
    // A hair's more is needed, so that of nodes moving alike the first one counts.
    if (m.stableNorm() > result.direction.stableNorm() * (1.0 + 1e-6)) result.direction = m;
  }
  const double least = 0.5 * result.direction.stableNorm();
  for (std::size_t i = 0; i < nodes; ++i) {
    if (part_of(motion, i, first).stableNorm() >= least) result.nodes.push_back(i);
  }
  return result;
}

double mean_length(const Frame& frame) {
  double sum = 0.0;
  for (const Element& e : frame.elements) {
    const Node &a = frame.nodes[e.start], &b = frame.nodes[e.end];
    sum += std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
  }
  return sum / static_cast<double>(frame.elements.size());
}

}  // namespace

NodeValues node_values(const Eigen::VectorXd& scaled_values, const Equations& equations,
                       std::span<const double> scale, const Frame& frame) {
  NodeValues values(6 * frame.nodes.size(), 0.0);
  for (std::size_t i = 0; i < scale.size(); ++i) {
    const auto equation = static_cast<int>(i);
    values[equations.dof(equation)] = scaled_values[equation] * scale[i];
  }
  return values;
}

std::optional<DominantMotion> dominant_motion(const Frame& frame, const NodeValues& motion) {
  DominantMotion translated = moving_most(motion, 0);
  DominantMotion rotated = moving_most(motion, 3);
  rotated.rotates = true;
  const bool rotates = translated.direction.stableNorm() <
                       1e-3 * rotated.direction.stableNorm() * mean_length(frame);
  DominantMotion& most = rotates ? rotated : translated;
  const double size = most.direction.stableNorm();
  if (!std::isfinite(size) || size == 0.0) return std::nullopt;
  return std::move(most);
}

std::string motion_text(const Frame& frame, const DominantMotion& motion) {
  const auto& [nodes, direction, rotates] = motion;
  const std::string names = node_names(frame, nodes), axis = axis_name(direction);
  if (nodes.size() == 1) {
    return rotates ? fmt::format(texts::translatable("{} turns about {}"), names, axis)
                   : fmt::format(texts::translatable("{} moves along {}"), names, axis);
  }
  return rotates ? fmt::format(texts::translatable("{} turn about {}"), names, axis)
                 : fmt::format(texts::translatable("{} move along {}"), names, axis);
}

}  // namespace aluframe::analysis
