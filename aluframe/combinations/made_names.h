#pragma once

#include <string>
#include <vector>

#include "aluframe/combinations/make_combinations.h"

namespace aluframe::combinations {

/// A factor as it is worked out: "1.5", "0.7·1.5", "0.7"; empty for 1.
std::string factor_text(const Factor& factor);

/// "1.3G+1.5W-0.7·1.5S"
std::string sum_text(const model::Model& model, const std::vector<MadeTerm>& terms);

}  // namespace aluframe::combinations
