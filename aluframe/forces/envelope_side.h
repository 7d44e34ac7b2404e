#pragma once

#include <array>
#include <vector>

#include "aluframe/model/combination_plan.h"
#include "aluframe/model/combinations.h"

namespace aluframe::forces {

/// One side of a combination with two sides at one place of an element.
///
/// @param of_case forces at the place by the place of the load case; those that take part
std::array<double, 6> side_of(const model::CombinationPlan& plan,
                              const std::vector<model::CombinationPlan>& plans,
                              const std::vector<std::array<double, 6>>& of_case, model::Side side);

}  // namespace aluframe::forces
