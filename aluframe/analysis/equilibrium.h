#pragma once

#include "aluframe/analysis/case_recovery.h"

namespace aluframe::analysis {

/// Box around the nodes: its middle and its diagonal.
struct Extent {
  Eigen::Vector3d middle = Eigen::Vector3d::Zero();
  double size = 0.0;
};
Extent extent_of(const Frame& frame);

/// Loads and reactions of a case, all on nodes and all known.
struct Balance {
  const Frame& frame;
  const Equations& equations;
  std::span<const Geometry> geometry;
  const NodeValues& nodal;  ///< loads given on nodes
  Norms size;               ///< of all loads of the case
  const NodeValues& held;   ///< what the elements take from each node
  const NodeValues& displacements;
};

/// How well the balance holds. Moments and forces are compared through the longest element and, for
/// the whole frame, its extent. Without any load everything must be 0 and so are the shares.
Equilibrium check_equilibrium(const Balance& balance, const LoadsByElement& loads,
                              std::span<const Reaction> reactions, Order order);

}  // namespace aluframe::analysis
