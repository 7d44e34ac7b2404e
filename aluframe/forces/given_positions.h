#pragma once

#include <optional>
#include <vector>

#include "aluframe/analysis/results.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// An element and a load case, by their numbers.
struct ElementCase {
  model::Number element = 0;
  model::Number load_case = 0;

  friend bool operator==(const ElementCase&, const ElementCase&) = default;
};

/// Given forces at as many positions as the design combinations need.
struct GivenPositions {
  std::optional<model::ForceTable> forces;  ///< in place of the model's, when some change
  /// Pairs that have forces at the two ends only, take part in a design combination and are loaded
  /// between the ends: nothing is known there.
  std::vector<ElementCase> without_inner;
};

/// Forces that are given at the two ends, where a design combination adds them to forces at five
/// positions, get those between: they are constant and moments linear, as no load acts. That none
/// does is known when the model has none there and both ends are in equilibrium without. Load cases
/// with loads count as five positions where no forces are given: they are still to be computed.
/// @return the first pair that is so added though a load acts
analysis::Result<GivenPositions> complete_positions(const model::Model& model);

}  // namespace aluframe::forces
