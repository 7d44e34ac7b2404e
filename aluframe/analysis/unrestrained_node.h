#pragma once

#include <optional>

#include "aluframe/analysis/assembly.h"

namespace aluframe::analysis {

/// The first node that can move alone, no element resisting: "node 14 can rotate freely about X:
/// every element there is released". Nothing when each node is restrained by its elements.
std::optional<Problem> find_unrestrained_node(const Frame& frame, const Equations& equations,
                                              const ScaledEquations& scaled);

}  // namespace aluframe::analysis
