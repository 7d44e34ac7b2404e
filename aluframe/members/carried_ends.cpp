#include "aluframe/members/carried_ends.h"

#include <algorithm>

namespace aluframe::members {

namespace {

/// Walks the frame in depth from the ground, and finds for every node the earliest met one that can
/// be reached from what lies behind it without the element that led there.
class Walk {
 public:
  Walk(const model::Model& model, const model::Connectivity& connectivity)
      : model_(model),
        connectivity_(connectivity),
        met_(model.nodes.size(), 0),
        earliest_(model.nodes.size(), 0),
        carried_(model.elements.size()) {}

  std::vector<std::array<bool, 2>> carried() && {
    for (const model::Support& support : model_.supports) {
      const std::size_t node = model_.nodes.position(support.node);
      if (met_[node] == 0) go_from(node);
    }
    return std::move(carried_);
  }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  static constexpr std::size_t ground = 1;

  /// A node on the way, the element that led there, and how many of its elements are done.
  struct Stop {
    std::size_t node = 0, by = none, done = 0;
  };

  void meet(std::size_t node, std::size_t by) {
    met_[node] = ++count_;
    const bool is_held = connectivity_.support_of(model_.nodes[node].number) != nullptr;
    earliest_[node] = is_held ? ground : met_[node];
    way_.push_back({node, by});
  }

  void go_from(std::size_t node) {
    meet(node, none);
    while (!way_.empty()) {
      Stop& stop = way_.back();
      const auto& around = connectivity_.elements_at(model_.nodes[stop.node].number);
      if (stop.done == around.size()) {
        leave();
        continue;
      }
      const std::size_t by = model_.elements.position(around[stop.done++]);
      if (by == stop.by) continue;
      const std::size_t other =
          model_.nodes.position(model_.elements[by].nodes[end_at(by, stop.node) == 0 ? 1 : 0]);
      if (met_[other] == 0) {
        meet(other, by);
      } else {
        earliest_[stop.node] = std::min(earliest_[stop.node], met_[other]);
      }
    }
  }

  /// Goes back over the element that led here.
  void leave() {
    const Stop stop = way_.back();
    way_.pop_back();
    if (stop.by == none) return;
    const std::size_t before = way_.back().node;
    earliest_[before] = std::min(earliest_[before], earliest_[stop.node]);
    if (earliest_[stop.node] > met_[before]) carried_[stop.by][end_at(stop.by, stop.node)] = true;
  }

  std::size_t end_at(std::size_t element, std::size_t node) const {
    return model_.elements[element].nodes[0] == model_.nodes[node].number ? 0 : 1;
  }

  const model::Model& model_;
  const model::Connectivity& connectivity_;
  std::vector<std::size_t> met_, earliest_;  // counted from `ground` + 1; 0: not met
  std::vector<std::array<bool, 2>> carried_;
  std::vector<Stop> way_;
  std::size_t count_ = ground;
};

}  // namespace

std::vector<std::array<bool, 2>> carried_ends(const model::Model& model,
                                              const model::Connectivity& connectivity) {
  return Walk(model, connectivity).carried();
}

}  // namespace aluframe::members
