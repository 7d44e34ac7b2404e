#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/analysis/equations.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Values of the nodes from those of the scaled equations; 0 where there is no equation.
NodeValues node_values(const Eigen::VectorXd& scaled_values, const Equations& equations,
                       std::span<const double> scale, const Frame& frame);

/// What moves most in a motion of a frame.
struct DominantMotion {
  std::vector<std::size_t> nodes;  ///< that move at least half as much as the one that moves most
  Eigen::Vector3d direction = Eigen::Vector3d::Zero();  ///< of that one
  bool rotates = false;                                 ///< more than it translates
};

/// Nothing when the motion is too large or too small for numbers.
std::optional<DominantMotion> dominant_motion(const Frame& frame, const NodeValues& motion);

/// "nodes 2-3 move along X", "node 4 turns about Y".
std::string motion_text(const Frame& frame, const DominantMotion& motion);

}  // namespace aluframe::analysis
