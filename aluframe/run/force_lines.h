#pragma once

#include <array>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// A force along all elements under one load case or one combination, as curves that pass through
/// the forces of the five positions and through what peaks between them.
struct ForceLines {
  std::vector<picture::ForceLine> lines;
  std::vector<model::Number> without_forces;  ///< elements
  std::vector<model::Number> ends_only;       ///< elements whose forces are known at their ends
  bool has_given = false;     ///< some forces are those that the model or a table gives
  bool has_computed = false;  ///< some follow from its loads
};

/// Computes the forces that follow from the loads, besides given ones. A load case is always in
/// first order; a combination is as the model says.
/// @param input a copy, which gets the forces
Result<ForceLines> force_lines_of_case(Input input, model::Number load_case,
                                       picture::ForceComponent component);
Result<ForceLines> force_lines_of_combination(Input input, model::Number combination,
                                              picture::ForceComponent component);

/// All six forces along some elements under a combination, or a state of an envelope, of an input
/// that `prepare` has given its forces; nothing of elements without.
std::array<std::vector<picture::ForceLine>, 6> force_lines_along(
    const Input& input, model::Number combination, const std::vector<model::Number>& elements);

}  // namespace aluframe::run
