#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "aluframe/explain/step.h"

namespace aluframe::explain {

/// The steps as an indented tree, each once where it is first needed:
///
///     ratio = σ / f = 20.4082 / 200 = 0.102041
///         utilisation
///       σ = k·|N| / (A·φ) = 1·|-50000| / (2500·0.98) = 20.4082 N/mm²
///           stress of axial compression; gross area (GB 50429-2007, 7.2)
///         k = 1: factor on the forces; γ0 of the safety class: the combination is not seismic
///
/// Quantities and reasons are in the language in use. A line that would be too long breaks before
/// its equals signs. Every line gives its result to the digits shown when it is worked out from its
/// own numbers.
std::string to_text(const StepPointer& root);

/// The same steps as a list, in English whatever language is in use, the ratio first: "symbol",
/// "quantity", "value", "unit", "clause", "why", "formula", "numbers", "result", "term" (the
/// formula as a tree) and "from" (symbols).
nlohmann::ordered_json to_json(const StepPointer& root);

}  // namespace aluframe::explain
