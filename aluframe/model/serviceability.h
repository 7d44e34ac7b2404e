#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/table.h"

/// What displacements are limited to in serviceability combinations. Lengths in mm.
namespace aluframe::model {

/// How far a member may bend from the line between its ends; both limits hold where both are given.
/// Without any, its deflection is stated and not judged.
struct DeflectionLimit {
  std::optional<double> span;  ///< n of L/n; a cantilever counts with twice its length
  std::optional<double> absolute;

  friend bool operator==(const DeflectionLimit&, const DeflectionLimit&) = default;
};

/// Horizontal displacement of a node against one below it, over their difference in height.
struct DriftLimit {
  std::string name;
  Number lower = 0, upper = 0;  ///< nodes
  double height = 0.0;          ///< n of h/n

  friend bool operator==(const DriftLimit&, const DriftLimit&) = default;
};

/// Along which a node's displacement is taken; horizontal: in the plane of X and Y.
enum class DisplacementDirection { x, y, z, horizontal, total };

struct DisplacementLimit {
  std::vector<Number> nodes;
  DisplacementDirection direction = DisplacementDirection::total;
  double absolute = 0.0;

  friend bool operator==(const DisplacementLimit&, const DisplacementLimit&) = default;
};

/// The limits of a model; those of members go before that of all.
struct ServiceabilityLimits {
  std::optional<DeflectionLimit> deflection;
  std::vector<DriftLimit> drifts;
  std::vector<DisplacementLimit> displacements;

  bool any() const { return deflection || !drifts.empty() || !displacements.empty(); }
  friend bool operator==(const ServiceabilityLimits&, const ServiceabilityLimits&) = default;
};

}  // namespace aluframe::model
