#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "aluframe/model/members.h"
#include "aluframe/model/model.h"

namespace aluframe::members {

/// What leads from the nodes of a frame to its supports. Nodes are places in the model's table.
///
///     const WaysToGround ways(model, connectivity);
///     if (ways.lead_past(nodes_of_chain, node)) ...  // something else holds the node
class WaysToGround {
 public:
  WaysToGround(const model::Model& model, const model::Connectivity& connectivity);

  /// Whether elements lead from a node to a support without passing one of others. In a model
  /// without supports, whose forces come from elsewhere, they are taken to.
  bool lead_past(const std::unordered_set<std::size_t>& others, std::size_t node) const;

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  /// Whether the shortest way to a support passes none of the others.
  bool is_shortest_clear(const std::unordered_set<std::size_t>& others, std::size_t node) const;

  std::vector<std::vector<std::size_t>> neighbours_;
  std::vector<std::size_t> toward_ground_;  ///< the next node; itself at a support, or none
  bool has_supports_;
};

}  // namespace aluframe::members
