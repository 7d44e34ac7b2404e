#pragma once

#include "aluframe/model/model.h"
#include "aluframe/run/subject_forces.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// Forces of all elements under a load case or a combination, as the checks take them: a line an
/// element and position, of an envelope one of each side, in the model's units and local axes.
/// Elements without forces in it have no line.
/// @param model with forces (run::with_forces_of)
OutputTable element_forces_table(const model::Model& model, const run::Subject& subject);

}  // namespace aluframe::tables
