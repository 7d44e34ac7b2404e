#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "aluframe/model/area_load.h"
#include "aluframe/model/load_targets.h"
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
  /// Place of the area load of the case that this is a part of; nothing: a load of its own.
  std::optional<std::size_t> of_area = std::nullopt;

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
  /// Loads per area, as they are written. In a model that the reader returns, `span` holds the line
  /// loads that they become (area_loads::line_loads), so whoever takes those has them all.
  std::vector<AreaLoad> area;
  std::vector<SpanLoad> span;
  std::vector<PointLoad> points;
  std::vector<TemperatureLoad> temperature;
  std::vector<Settlement> settlements;

  friend bool operator==(const CaseLoads&, const CaseLoads&) = default;
};

}  // namespace aluframe::model
