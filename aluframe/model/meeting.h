#pragma once

#include <vector>

#include "aluframe/model/members.h"

namespace aluframe::model {

/// Which elements count where they meet a chain of others: all, or those that also hold its end
/// against turning.
enum class Meeting { any, beams };

/// Whether elements that are not of the chain end at a node.
bool meets_others(const Model& model, const Connectivity& connectivity, Number node,
                  const std::vector<Number>& chain, Meeting counted);

}  // namespace aluframe::model
