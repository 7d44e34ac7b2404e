#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/forces/load_sets.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// A problem with the model as a whole.
Problem about(const Input& input, const std::string& text);

/// The numbers that the user named with an option, all that exist when none.
/// @param what a single one is called
Result<std::vector<model::Number>> chosen_numbers(const Input& input, const char* option,
                                                  const model::NumberRanges& ranges,
                                                  std::vector<model::Number> existing,
                                                  const std::string& what);

/// The same of load cases with loads. Not one is a problem.
Result<std::vector<model::Number>> chosen_load_cases(const Input& input,
                                                     const model::NumberRanges& ranges);

/// The first load case of the set that has no loads.
std::optional<model::Number> without_loads(const model::Model& model, const forces::LoadSet& set);

}  // namespace aluframe::run
