#pragma once

#include <span>
#include <string>

#include "aluframe/analysis/frame.h"
#include "aluframe/analysis/small_matrices.h"

namespace aluframe::analysis {

/// Names for the texts of diagnostics.

/// "X", "Y" or "Z" of one of the six directions of a node.
std::string axis_name(std::size_t direction);

/// "X", or "(0.707, 0.707, 0)" for a direction along none of the axes; either sense. A direction
/// that is zero or not finite is "an uncertain direction".
std::string axis_name(const Eigen::Vector3d& direction);

/// "node 14", "element 3".
std::string node_name(const Frame& frame, std::size_t place);
std::string element_name(const Frame& frame, std::size_t place);

/// "node 3", "nodes 1-20", "nodes 1, 4-6 and 9 more": runs of consecutive numbers, at most six
/// runs.
std::string node_names(const Frame& frame, std::span<const std::size_t> places);

/// "A", "A and B", "A, B and C".
std::string listed(std::span<const std::string> parts);

}  // namespace aluframe::analysis
