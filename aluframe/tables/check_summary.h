#pragma once

#include <string>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/run/check.h"
#include "aluframe/run/told.h"
#include "aluframe/tables/short_lists.h"

namespace aluframe::tables {

/// The summary of a run for the user, with the settings that it went by.
std::string summary_text(const run::Input& input, const run::CheckResult& result);

/// The worst ratio of the checks, where it stands, and how many elements fail.
/// @param on_failing follows their number, where it is not 0
std::string ratios_text(const model::Model& model, const run::Told& told,
                        const std::string& on_failing = "");

/// What is told beside the ratios of the checks, as lines for the user: the worst safe ratio and
/// how many fail, or that there is no second opinion; remarks; what was not checked.
std::string told_text(const model::Model& model, const run::Told& told,
                      Lists lists = Lists::shortened);

/// The run as one row of CSV, settings and what was not checked in columns of their own, or as a
/// list of one JSON object, with both as lists in it.
std::string summary_csv(const run::Input& input, const run::CheckResult& result);
std::string summary_json(const run::Input& input, const run::CheckResult& result);

/// "linear analysis of 4 load cases, residual 2.1e-14, forces certain to 4.0e-14", for the user;
/// empty: nothing was analysed.
std::string forces_text(const forces::Summary& summary);

}  // namespace aluframe::tables
