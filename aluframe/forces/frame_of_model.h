#pragma once

#include "aluframe/analysis/frame.h"
#include "aluframe/analysis/load_case.h"
#include "aluframe/model/model.h"

/// From the engineer's model to the analysis and back: what the elements resist with, what acts on
/// them, and the forces that follow.
namespace aluframe::forces {

/// The model's nodes and elements in its order, with section constants, releases, supports and
/// springs. G is E/(2·(1 + ν)). The model must be consistent, as its reader leaves it.
analysis::Frame frame_of(const model::Model& model);

/// The loads of a load case on that frame. A temperature difference between two faces acts over the
/// distance of the section's outermost stress points.
analysis::LoadCase loads_of(const model::Model& model, const model::LoadCase& load_case);

}  // namespace aluframe::forces
