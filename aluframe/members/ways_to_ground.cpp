#include "aluframe/members/ways_to_ground.h"

#include <deque>

namespace aluframe::members {

WaysToGround::WaysToGround(const model::Model& model, const model::Connectivity& connectivity)
    : neighbours_(model.nodes.size()),
      toward_ground_(model.nodes.size(), none),
      has_supports_(!model.supports.empty()) {
  for (const model::Element& element : model.elements) {
    const std::size_t a = model.nodes.position(element.nodes[0]);
    const std::size_t b = model.nodes.position(element.nodes[1]);
    neighbours_[a].push_back(b);
    neighbours_[b].push_back(a);
  }
  std::deque<std::size_t> reached;
  for (std::size_t node = 0; node < neighbours_.size(); ++node) {
    if (connectivity.support_of(model.nodes[node].number) == nullptr) continue;
    toward_ground_[node] = node;
    reached.push_back(node);
  }
  for (; !reached.empty(); reached.pop_front()) {
    for (const std::size_t next : neighbours_[reached.front()]) {
      if (toward_ground_[next] != none) continue;
      toward_ground_[next] = reached.front();
      reached.push_back(next);
    }
  }
}

bool WaysToGround::is_shortest_clear(const std::unordered_set<std::size_t>& others,
                                     std::size_t node) const {
  while (!others.contains(node)) {
    const std::size_t next = toward_ground_[node];
    if (next == node) return true;
    if (next == none) return false;
    node = next;
  }
  return false;
}

bool WaysToGround::lead_past(const std::unordered_set<std::size_t>& others,
                             std::size_t node) const {
  if (others.contains(node)) return false;
  if (!has_supports_) return true;
  std::unordered_set<std::size_t> seen{node};
  std::deque<std::size_t> reached{node};
  for (; !reached.empty(); reached.pop_front()) {
    if (is_shortest_clear(others, reached.front())) return true;
    for (const std::size_t next : neighbours_[reached.front()]) {
      if (!others.contains(next) && seen.insert(next).second) reached.push_back(next);
    }
  }
  return false;
}

}  // namespace aluframe::members
