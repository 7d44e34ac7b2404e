#include "aluframe/members/cantilever_ends.h"

#include <algorithm>

namespace aluframe::members {

namespace {

/// Depth-first search of the frame from the ground. The low-link of a node is the lowest discovery
/// order that can be reached from its subtree without the element that led there; where it lies
/// above the discovery order of the node before, that element is a bridge.
class DepthFirstSearch {
 public:
  DepthFirstSearch(const model::Model& model, const model::Connectivity& connectivity)
      : model_(model),
        connectivity_(connectivity),
        discovery_order_(model.nodes.size(), 0),
        low_link_(model.nodes.size(), 0),
        cantilever_ends_(model.elements.size()) {}

  std::vector<std::array<bool, 2>> cantilever_ends() && {
    for (const model::Support& support : model_.supports) {
      const std::size_t node = model_.nodes.position(support.node);
      if (discovery_order_[node] == 0) search_from(node);
    }
    return std::move(cantilever_ends_);
  }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  static constexpr std::size_t ground = 1;

  /// A node on the path, the element that led there, and how many of its elements are done.
  struct Visit {
    std::size_t node = 0, by = none, done = 0;
  };

  void discover(std::size_t node, std::size_t by) {
    discovery_order_[node] = ++count_;
    const bool is_supported = connectivity_.support_of(model_.nodes[node].number) != nullptr;
    low_link_[node] = is_supported ? ground : discovery_order_[node];
    path_.push_back({node, by});
  }

  void search_from(std::size_t node) {
    discover(node, none);
    while (!path_.empty()) {
      Visit& visit = path_.back();
      const auto& around = connectivity_.elements_at(model_.nodes[visit.node].number);
      if (visit.done == around.size()) {
        backtrack();
        continue;
      }
      const std::size_t by = model_.elements.position(around[visit.done++]);
      if (by == visit.by) continue;
      const std::size_t other =
          model_.nodes.position(model_.elements[by].nodes[end_at(by, visit.node) == 0 ? 1 : 0]);
      if (discovery_order_[other] == 0) {
        discover(other, by);
      } else {
        low_link_[visit.node] = std::min(low_link_[visit.node], discovery_order_[other]);
      }
    }
  }

  /// Goes back over the element that led here.
  void backtrack() {
    const Visit visit = path_.back();
    path_.pop_back();
    if (visit.by == none) return;
    const std::size_t before = path_.back().node;
    low_link_[before] = std::min(low_link_[before], low_link_[visit.node]);
    if (low_link_[visit.node] > discovery_order_[before])
      cantilever_ends_[visit.by][end_at(visit.by, visit.node)] = true;
  }

  std::size_t end_at(std::size_t element, std::size_t node) const {
    return model_.elements[element].nodes[0] == model_.nodes[node].number ? 0 : 1;
  }

  const model::Model& model_;
  const model::Connectivity& connectivity_;
  std::vector<std::size_t> discovery_order_,
      low_link_;  // counted from `ground` + 1; 0: not discovered
  std::vector<std::array<bool, 2>> cantilever_ends_;
  std::vector<Visit> path_;
  std::size_t count_ = ground;
};

}  // namespace

std::vector<std::array<bool, 2>> cantilever_ends(const model::Model& model,
                                                 const model::Connectivity& connectivity) {
  return DepthFirstSearch(model, connectivity).cantilever_ends();
}

}  // namespace aluframe::members
