#pragma once

#include "aluframe/model/model.h"
#include "aluframe/run/buckling.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// A line a factor of a combination or load case, the smallest first; behind them one for its loads
/// the other way round, whose factor is negative. A subject without compression, or whose factor is
/// unknown, has a line that says so.
OutputTable buckling_table(const model::Model& model, const run::BucklingAnalysis& analysis);

/// A line a combination or load case: the largest factor that the frame carries, what happens
/// there, and the node that has moved most just before, in the model's units.
OutputTable limit_load_table(const model::Model& model, const run::LimitAnalysis& analysis);

/// The smallest factor of all combinations, or why there is none: "3.4121 times the loads of
/// combination 2, nodes 2-3 move along X".
std::string buckling_line(run::FrameBuckling asked, const std::vector<store::BucklingRow>& rows);

/// The stored factors, a line a combination.
OutputTable stored_buckling_table(const std::vector<store::BucklingRow>& rows);

}  // namespace aluframe::tables
