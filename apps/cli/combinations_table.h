#pragma once

#include <vector>

#include "aluframe/combinations/make_combinations.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

enum class Detail { brief, explained };

/// Combinations that the model has of its own, and behind them those that its rule makes: number,
/// type, the sum, whether it is seismic and for design; explained: the actions by their roles.
tables::OutputTable combinations_table(const model::Model& model,
                                       const std::vector<model::Combination>& own,
                                       const std::vector<combinations::MadeCombination>& made,
                                       Detail detail);

}  // namespace aluframe::cli
