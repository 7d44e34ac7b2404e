#pragma once

#include <optional>
#include <string>

#include "aluframe/analysis/analyse.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// Load cases that carry loads: those that an analysis gives forces for.
bool has_loads(const model::Model& model);

/// Analyses the model under its load cases, all of them in their order; those without loads answer
/// with zeros. @return the analysis's answer, or what stands in its way
analysis::Result<analysis::Solution> analyse_model(const model::Model& model);

/// Gives the model the forces of its load cases with loads, at five positions. Forces that it has
/// already, of another program, stay.
/// @return what stands in the way of the analysis; the model is then unchanged
std::optional<std::string> compute_forces(model::Model& model);

}  // namespace aluframe::forces
