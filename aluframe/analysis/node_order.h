#pragma once

#include <vector>

#include "aluframe/analysis/frame.h"

namespace aluframe::analysis {

/// Places of the nodes in an order of elimination that fills few further entries: nested dissection
/// of the graph whose edges are the elements. Ordering nodes, not single equations, keeps the six
/// equations of a node together and takes a fraction of the time.
std::vector<std::size_t> elimination_order(const Frame& frame);

}  // namespace aluframe::analysis
