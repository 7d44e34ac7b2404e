#pragma once

#include <cstddef>
#include <set>
#include <utility>
#include <vector>

#include "aluframe/model/combination_plan.h"

namespace aluframe::model {

/// Load cases that act together, each times a factor, in the order of their first use.
using State = std::vector<CombinationPlan::CaseFactor>;

/// What two states have in common that are the same sum: cases in the order of their table, without
/// those of factor 0; factors to 12 digits, because products of the same factors differ by
/// rounding.
using StateKey = std::vector<std::pair<std::size_t, double>>;
StateKey key_of(const State& state);

/// States of a combination, each once.
struct States {
  std::vector<State> list;
  double count = 0.0;     ///< before equal ones are left out
  bool too_many = false;  ///< more than `max_envelope_states`; the list is then incomplete
};

/// The states of all combinations of the model, by place. Combinations must have no problem.
std::vector<States> states_of_combinations(const Model& model);

}  // namespace aluframe::model
