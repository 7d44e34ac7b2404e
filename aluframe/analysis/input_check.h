#pragma once

#include "aluframe/analysis/load_case.h"
#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// What makes a frame impossible to analyse whatever its loads are: a place that does not exist, a
/// number that is not finite, an element without length or without stiffness, one that its releases
/// leave a mechanism. Nothing when it can be tried.
std::optional<Problem> find_problem(const Frame& frame);

/// What makes a load case impossible on a frame that has no problem: a load on something that does
/// not exist, outside its element, or a settlement where nothing is supported.
std::optional<Problem> find_problem(const Frame& frame, const LoadCase& load_case);

}  // namespace aluframe::analysis
