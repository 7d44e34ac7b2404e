#pragma once

#include <string>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/model/model.h"
#include "aluframe/run/check.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// The summary of a run for the user.
/// `forces` tells how they were computed; empty: they were given.
std::string summary_text(const model::Model& model, const run::CheckResult& result,
                         const std::string& forces = "");

/// The run as a table of one row, for JSON and CSV.
OutputTable summary_table(const model::Model& model, const run::CheckResult& result);

/// "linear analysis of 4 load cases, residual 2.1e-14, forces certain to 4.0e-14", for the user;
/// empty: nothing was analysed.
std::string forces_text(const forces::Summary& summary);

}  // namespace aluframe::tables
