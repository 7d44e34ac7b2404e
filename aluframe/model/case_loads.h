#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "aluframe/model/table.h"

/// Loads of one load case as the engineer describes them, on nodes and elements by their numbers.
/// N, mm, K and rad. All loads of a case act together: several on one node or element add up.
///
///     CaseLoads loads;
///     loads.self_weight = {0, 0, -1};
///     SpanLoad snow;
///     snow.elements.all = true;
///     snow.direction = {LoadAxes::projected, 2};
///     snow.from_value = snow.to_value = -1.2;   // N/mm downwards
///     loads.span.push_back(snow);
namespace aluframe::model {

/// What a load acts on: the listed nodes or elements, or all of the model.
struct Targets {
  bool all = false;
  std::vector<Number> numbers;  ///< each once; empty with `all`

  friend bool operator==(const Targets&, const Targets&) = default;
};

enum class LoadAxes {
  local,     ///< the element's own x, y, z
  global,    ///< X, Y, Z; a load on a span is per length of the element
  projected  ///< X, Y, Z; a load on a span is per length seen along its axis, as snow is
};

/// The axis that a load acts along, in its positive direction, or that a moment turns about,
/// right-handed.
struct LoadDirection {
  LoadAxes axes = LoadAxes::global;
  std::size_t axis = 2;  ///< 0 x, 1 y, 2 z

  friend bool operator==(const LoadDirection&, const LoadDirection&) = default;
};

/// Forces, N, along X, Y, Z, then moments, N·mm, about them.
struct NodalLoad {
  Targets nodes;
  std::array<double, 6> components{};

  friend bool operator==(const NodalLoad&, const NodalLoad&) = default;
};

/// Force per length, N/mm, that varies linearly between two places of the element. The places are
/// parts of the length from the start node, 0 <= from < to <= 1.
struct SpanLoad {
  Targets elements;
  LoadDirection direction;
  double from_value = 0.0, to_value = 0.0;  ///< equal when uniform
  double from = 0.0, to = 1.0;

  friend bool operator==(const SpanLoad&, const SpanLoad&) = default;
};

/// Force, N, or moment, N·mm, at one place of the element. Moments act on beams only.
struct PointLoad {
  enum class Kind { force, moment };
  Targets elements;
  LoadDirection direction;  ///< local or global
  Kind kind = Kind::force;
  double value = 0.0;
  double at = 0.5;  ///< part of the length from the start node, 0 to 1

  friend bool operator==(const PointLoad&, const PointLoad&) = default;
};

/// Temperature against that of the erection, K. Differences are those of the face at +y (+z)
/// against the face at -y (-z), linear over the section's width (height); beams only.
struct TemperatureLoad {
  Targets elements;
  double change = 0.0;  ///< of the centroid
  double difference_y = 0.0, difference_z = 0.0;

  friend bool operator==(const TemperatureLoad&, const TemperatureLoad&) = default;
};

/// Displacements, mm, along X, Y, Z and rotations, rad, about them that a support is given; other
/// than 0 only where it restrains the node. A node has at most one in a load case.
struct Settlement {
  Number node = 0;
  std::array<double, 6> displacements{};

  friend bool operator==(const Settlement&, const Settlement&) = default;
};

struct CaseLoads {
  /// Factors of the elements' weight along X, Y, Z; {0, 0, -1} is the weight itself.
  std::array<double, 3> self_weight{};
  std::vector<NodalLoad> nodal;
  std::vector<SpanLoad> span;
  std::vector<PointLoad> points;
  std::vector<TemperatureLoad> temperature;
  std::vector<Settlement> settlements;

  friend bool operator==(const CaseLoads&, const CaseLoads&) = default;
};

}  // namespace aluframe::model
