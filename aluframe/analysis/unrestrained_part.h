#pragma once

#include <optional>

#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// The first part of the frame, connected by elements, that its supports and springs leave free to
/// move as a rigid body: "nothing supports the part of the structure with nodes 1-20", or the
/// rigid-body mode that the supports do not restrain. Nothing when every part is restrained.
std::optional<Problem> find_unrestrained_part(const Frame& frame);

}  // namespace aluframe::analysis
