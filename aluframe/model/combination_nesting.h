#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "aluframe/model/combinations.h"

namespace aluframe::model {

/// How combinations contain each other. Places are those of the table.
struct CombinationNesting {
  /// All combinations, each behind the ones that it contains.
  std::vector<std::size_t> contained_first;
  /// Levels of nesting by place: 1 for a combination of load cases alone.
  std::vector<std::size_t> levels;
  /// A combination that contains itself; the other two fields are then incomplete.
  std::optional<CombinationProblem> cycle;
};

/// Walks through the terms of all combinations with a stack of its own, so any depth is handled.
CombinationNesting nesting_of(const Table<Combination>& combinations);

}  // namespace aluframe::model
