#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/explain/explain.h"
#include "aluframe/run/explained_check.h"
#include "aluframe/run/input.h"
#include "aluframe/run/problem.h"

// How a stored ratio comes about.

namespace aluframe::run {

struct ExplanationOptions {
  InputOptions input;
  std::filesystem::path results;
  WantedCheck wanted;
};

/// A stored check with its steps.
struct ExplainedCheck {
  model::Number element = 0;
  int member_type = 0;
  CheckPlace place;
  model::Number combination = 0;      ///< of the model; of a state its envelope
  std::string combination_name = {};  ///< of the combination, or of the state
  bool has_sides = false;             ///< the combination has a maximum and a minimum side
  explain::Explanation explanation;
};

/// Explains a check of the results, which must be of the model as it is now, by the forces and the
/// design data that the checks take.
/// @throws std::runtime_error when the results cannot be read
Result<ExplainedCheck> explain_check(const ExplanationOptions& options);

}  // namespace aluframe::run
