#pragma once

#include "aluframe/analysis/large_displacement.h"
#include "aluframe/forces/load_sets.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// The largest factor of a set of loads that the frame carries, all of them growing together, with
/// displacements of any size; looked for up to `largest_factor`.
analysis::Result<analysis::LimitLoad> limit_load(const model::Model& model, const LoadSet& set,
                                                 double largest_factor);

}  // namespace aluframe::forces
