#pragma once

#include <map>
#include <optional>

#include "aluframe/model/structure.h"

namespace aluframe::services {

/// What the restraints of its member give an element, where it has no attribute of its own.
struct RestrainedValues {
  std::optional<double> phi_b;  ///< lateral-torsional coefficient about y; that about z is 1
  std::optional<model::ElementDesign::AxisPair> length_factors;

  friend bool operator==(const RestrainedValues&, const RestrainedValues&) = default;
};

using RestrainedElements = std::map<model::Number, RestrainedValues>;

}  // namespace aluframe::services
