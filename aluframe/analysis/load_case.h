#pragma once

#include <span>
#include <vector>

#include "aluframe/analysis/frame.h"

namespace aluframe::analysis {

/// Standard gravity, m/s²: with kg/mm³ and mm² it gives a weight in N/mm.
inline constexpr double gravity = 9.80665;

/// Axes in which the components of a load on an element are given.
enum class LoadAxes {
  local,     ///< the element's own x, y, z
  global,    ///< X, Y, Z; a distributed load is per length of the element
  projected  ///< X, Y, Z; each component per length seen along its axis, as snow is; the same as
             ///< global for a force or a moment at a point
};

/// Forces and moments on a node, global axes, N and N·mm.
struct NodalLoad {
  std::size_t node = 0;
  Vector6 value{};
};

/// Force per length, N/mm, linear between two places of the element. Uniform: equal values.
/// The places are parts of the length, 0 <= from <= to <= 1.
struct DistributedLoad {
  std::size_t element = 0;
  LoadAxes axes = LoadAxes::local;
  Vector3 from_value{}, to_value{};
  double from = 0.0, to = 1.0;
};

/// Force, N, and moment, N·mm, at one place of the element, a part of its length from 0 to 1.
/// Moments are right-handed. A truss takes no moment.
struct PointLoad {
  std::size_t element = 0;
  LoadAxes axes = LoadAxes::local;
  Vector3 force{}, moment{};
  double at = 0.5;
};

/// Temperature of an element, K, against that of its erection. A gradient is the difference between
/// two faces over their distance: positive when the face at +y (or +z, the top) is the warmer one.
struct Temperature {
  std::size_t element = 0;
  double change = 0.0;                       ///< of the centroid
  double difference_y = 0.0, depth_y = 0.0;  ///< bends about z; a depth of 0: no gradient
  double difference_z = 0.0, depth_z = 0.0;  ///< bends about y; a depth of 0: no gradient
};

/// Displacement, mm, or rotation, rad, that a support is given in one of its directions (0 to 5).
struct Settlement {
  std::size_t node = 0;
  std::size_t direction = 0;
  double value = 0.0;
};

/// The loads that act together. All values add up; several loads may act on one node or element.
struct LoadCase {
  std::vector<NodalLoad> nodal;
  std::vector<DistributedLoad> distributed;
  std::vector<PointLoad> points;
  std::vector<Temperature> temperatures;
  std::vector<Settlement> settlements;
  Vector3 self_weight{};  ///< factors of gravity along X, Y, Z; {0, 0, -1} is the weight itself
};

/// A load case times a factor, as a part of a combination.
struct FactoredCase {
  const LoadCase* load_case = nullptr;
  double factor = 1.0;
};

/// The loads of all cases together, each times its factor.
LoadCase combine(std::span<const FactoredCase> cases);

}  // namespace aluframe::analysis
