#pragma once

#include "aluframe/analysis/case_recovery.h"

namespace aluframe::analysis {

/// Box around the nodes: its middle and its diagonal.
struct Extent {
  Eigen::Vector3d middle = Eigen::Vector3d::Zero();
  double size = 0.0;
};
Extent extent_of(const Frame& frame);

/// Lengths that forces and moments are compared through.
struct Lengths {
  double longest = 0.0;  ///< of the elements
  double extent = 0.0;   ///< of the whole frame
};
Lengths lengths_of(const Frame& frame, std::span<const Geometry> geometry);

/// The larger share of forces and moments. Moments of the whole count as the forces that they are
/// over the extent of the frame; its forces as the moments that they are over the longest element.
double share(const Norms& part, const Norms& whole, const Lengths& lengths);

/// Loads and reactions of a case, all on nodes and all known.
struct Balance {
  const Frame& frame;
  const Equations& equations;
  std::span<const Geometry> geometry;
  const NodeValues& nodal;     ///< loads given on nodes
  Norms scale;                 ///< of the largest load and element force of the case
  const NodeValues& internal;  ///< forces that the elements take from each node
  const NodeValues& displacements;
};

/// How well the balance holds, and what error of the forces the residuals mean: roundings of the
/// nodes are independent, so the root of their squares counts, with the extent of the frame as its
/// lever. Without any load everything must be 0 and so are the shares.
Equilibrium check_equilibrium(const Balance& balance, const LoadsByElement& loads,
                              std::span<const Reaction> reactions, Order order);

}  // namespace aluframe::analysis
