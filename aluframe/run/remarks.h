#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/run/input.h"
#include "aluframe/store/result_file.h"

// What an engineer is owed a word about before trusting the ratios of a model, however it is run.

namespace aluframe::run {

/// Everything that follows from the prepared input alone, a row a kind: welds, length factors, ends
/// taken as free, elements that count as vertical, torsion constants, forces without inner
/// positions. Kinds are those of docs/warnings.md.
std::vector<store::RemarkRow> input_remarks(const Input& input);

/// Which combinations are checked by their extremes, and what that means; nothing without any.
/// @param combinations those with two sides
std::optional<std::string> extremes_remark(std::vector<model::Number> combinations);
/// Of the combinations that the input is limited to.
std::optional<std::string> extremes_remark(const Input& input);
/// Of stored results.
std::optional<std::string> extremes_remark(const store::RunInfo& info);

}  // namespace aluframe::run
