#pragma once

#include <span>
#include <vector>

#include "aluframe/analysis/second_order.h"
#include "aluframe/forces/load_sets.h"

namespace aluframe::forces {

enum class Order { first, second, large_displacements };

Order order_of(const model::AnalysisSettings& settings);

/// Displacements, reactions and element forces of the model under each of the sets of loads, in
/// their order. In first order, iterations and change are 0.
/// @return the answers, or what stands in the way; with the place of its set where it is of one
analysis::Result<std::vector<analysis::SecondOrderResult>> analyse_sets(
    const model::Model& model, std::span<const LoadSet> sets, Order order);

}  // namespace aluframe::forces
