#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/run/check_explainer.h"
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

/// Explains a check of the results, which must be of the model as it is now, by the forces and the
/// design data that the checks take.
/// @throws std::runtime_error when the results cannot be read
Result<ExplainedCheck> explain_check(const ExplanationOptions& options);

}  // namespace aluframe::run
