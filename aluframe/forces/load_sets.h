#pragma once

#include <span>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/model/combination_plan.h"

namespace aluframe::forces {

/// Load cases, each times a factor, that act together in one analysis. Without any nothing acts.
using LoadSet = std::vector<model::CombinationPlan::CaseFactor>;

/// What has to be analysed for the combination at `place` where results cannot be added up: one set
/// for a linear combination; for an envelope one for each of its terms, nested envelopes resolved,
/// each set once. A term with factor 0 is the empty set.
/// @return a text when a linear combination has an envelope among its terms: its sides are sums of
///         forces that do not act together
std::variant<std::vector<LoadSet>, std::string> load_sets_of(
    const model::Model& model, std::span<const model::CombinationPlan> plans, std::size_t place);

}  // namespace aluframe::forces
