#pragma once

#include <optional>

#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// The first part of the frame, connected by elements, that its supports and springs leave free to
/// move as one body: "nothing supports the part of the structure with nodes 1-20", or which way the
/// supports do not hold it. Nothing when every part is held.
std::optional<Problem> find_loose_part(const Frame& frame);

}  // namespace aluframe::analysis
