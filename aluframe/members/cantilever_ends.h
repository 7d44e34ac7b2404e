#pragma once

#include <array>
#include <vector>

#include "aluframe/model/members.h"

namespace aluframe::members {

/// Per element (by its place in the table), for its start and its end: whether this element alone
/// (a bridge of the graph) connects what lies there to the supports, so that nothing would restrain
/// it without the element. The tip of a cantilever is such an end, with or without arms or a sign
/// on it. Supports count whatever they restrain. What has no support at all has no such ends.
///
/// Source: R. E. Tarjan, "A note on finding the bridges of a graph", Inf. Process. Lett. 2 (1974).
std::vector<std::array<bool, 2>> cantilever_ends(const model::Model& model,
                                                 const model::Connectivity& connectivity);

}  // namespace aluframe::members
