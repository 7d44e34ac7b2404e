#include "aluframe/run/not_checked.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace aluframe::run {

namespace {

using Numbers = std::set<model::Number>;

/// Combinations of an element for which a reason holds; an item without one stands for itself, with
/// none.
using Combinations = std::map<std::pair<std::string, model::Number>, Numbers>;

void note_largest(const store::NotChecked& item, std::vector<UncheckedForce>& largest) {
  if (!item.largest) return;
  const store::LargestForce& force = *item.largest;
  const auto found = std::ranges::find_if(largest, [&force](const UncheckedForce& other) {
    return other.force.component == force.component;
  });
  if (found == largest.end()) {
    largest.push_back({item.element, force});
  } else if (force.magnitude > found->force.magnitude) {
    *found = {item.element, force};
  }
}

}  // namespace

std::vector<NotCheckedGroup> group_not_checked(const std::vector<store::NotChecked>& items) {
  Combinations combinations;
  for (const store::NotChecked& item : items) {
    if (item.combination) combinations[{item.reason, item.element}].insert(*item.combination);
  }
  std::map<std::pair<std::string, Numbers>, std::pair<Numbers, NotCheckedGroup>> groups;
  for (const store::NotChecked& item : items) {
    const Numbers of = item.combination ? combinations[{item.reason, item.element}] : Numbers();
    auto& [elements, group] = groups[{item.reason, of}];
    elements.insert(item.element);
    note_largest(item, group.largest);
  }
  std::vector<NotCheckedGroup> out;
  for (auto& [key, value] : groups) {
    auto& [elements, group] = value;
    group.reason = key.first;
    group.elements = {elements.begin(), elements.end()};
    group.combinations = {key.second.begin(), key.second.end()};
    out.push_back(std::move(group));
  }
  return out;
}

const store::RemarkRow* second_opinion_on(const NotCheckedGroup& group,
                                          const std::vector<store::RemarkRow>& remarks) {
  if (group.largest.empty()) return nullptr;
  const char* kind = is_moment(group.largest.front().force) ? "C6" : "C5";
  const store::RemarkRow* worst = nullptr;
  for (const store::RemarkRow& remark : remarks) {
    if (remark.kind != kind || !remark.ratio) continue;
    if (worst == nullptr || *remark.ratio > *worst->ratio) worst = &remark;
  }
  return worst;
}

}  // namespace aluframe::run
