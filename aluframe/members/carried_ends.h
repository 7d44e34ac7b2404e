#pragma once

#include <array>
#include <vector>

#include "aluframe/model/members.h"

namespace aluframe::members {

/// Per element (by its place in the table), for its start and its end: whether what is connected
/// there hangs on this element alone, so that without it no support would hold it. The tip of a
/// cantilever is such an end, with or without arms or a sign on it. Supports count whatever they
/// restrain. What no support holds at all has no such ends.
///
/// Source: R. E. Tarjan, "A note on finding the bridges of a graph", Inf. Process. Lett. 2 (1974).
std::vector<std::array<bool, 2>> carried_ends(const model::Model& model,
                                              const model::Connectivity& connectivity);

}  // namespace aluframe::members
