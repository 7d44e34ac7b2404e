#include "aluframe/members/find_members.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "aluframe/members/straightness.h"
#include "aluframe/model/members.h"

namespace aluframe::members {

namespace {

using model::Element;
using model::ElementKind;
using model::MemberType;
using model::Number;

/// Releases of a bending moment among the six of an end.
constexpr std::size_t my = 4, mz = 5;

std::size_t end_at(const Element& element, Number node) {
  return element.nodes[0] == node ? 0 : 1;
}

bool is_released(const Element& element, std::size_t end) {
  const auto* first = element.released.data() + 6 * end;
  return std::any_of(first, first + 6, [](bool released) { return released; });
}

bool is_hinged(const Element& element, std::size_t end) {
  return element.released[6 * end + my] || element.released[6 * end + mz];
}

/// Follows chains of elements.
class ChainFinder {
 public:
  explicit ChainFinder(const model::Model& model)
      : model_(model), connectivity_(model), taken_(model.elements.size(), false) {
    geometry_.reserve(model.elements.size());
    types_.reserve(model.elements.size());
    for (std::size_t place = 0; place < model.elements.size(); ++place) {
      const Element& element = model.elements[place];
      geometry_.push_back(geometry_of(model, element));
      types_.push_back(model::member_type(model, element));
      taken_[place] = !may_chain(place);
    }
  }

  /// The chain through an element, from its start to its end; just the element when it stands
  /// alone. Empty when a chain or a member has it already.
  std::vector<Number> take_chain(std::size_t place) {
    if (taken_[place]) return {};
    taken_[place] = true;
    const Element& element = model_.elements[place];
    std::vector<Number> chain = follow(place, element.nodes[0]);
    std::ranges::reverse(chain);
    chain.push_back(element.number);
    const std::vector<Number> onward = follow(place, element.nodes[1]);
    chain.insert(chain.end(), onward.begin(), onward.end());
    return chain;
  }

 private:
  bool may_chain(std::size_t place) const {
    const Element& element = model_.elements[place];
    return element.kind == ElementKind::beam && types_[place] != MemberType::truss &&
           !element.design.length_factors && connectivity_.member_of(element.number) == nullptr;
  }

  /// Takes the elements behind `node`, as far as the chain goes.
  std::vector<Number> follow(std::size_t place, Number node) {
    std::vector<Number> passed;
    for (auto next = partner(place, node); next && !taken_[*next]; next = partner(place, node)) {
      place = *next;
      taken_[place] = true;
      const Element& element = model_.elements[place];
      passed.push_back(element.number);
      node = element.nodes[1 - end_at(element, node)];
    }
    return passed;
  }

  /// The element that an element goes on in at a node, when nothing there ends the chain.
  std::optional<std::size_t> partner(std::size_t place, Number node) const {
    if (connectivity_.support_of(node) != nullptr) return std::nullopt;
    const auto next = only_continuation(place, node);
    if (!next || only_continuation(*next, node) != place) return std::nullopt;
    for (const std::size_t one : {place, *next}) {
      const Element& element = model_.elements[one];
      if (is_released(element, end_at(element, node))) return std::nullopt;
    }
    return is_restrained(place, *next, node) ? std::nullopt : next;
  }

  /// The one element that continues another at a node; nothing when there is none or a choice.
  std::optional<std::size_t> only_continuation(std::size_t place, Number node) const {
    std::optional<std::size_t> found;
    for (const Number number : connectivity_.elements_at(node)) {
      const std::size_t other = model_.elements.position(number);
      if (other == place || !continues(place, other, node)) continue;
      if (found) return std::nullopt;
      found = other;
    }
    return found;
  }

  bool continues(std::size_t place, std::size_t other, Number node) const {
    const Element& a = model_.elements[place];
    const Element& b = model_.elements[other];
    return may_chain(other) && a.section == b.section && a.material == b.material &&
           types_[place] == types_[other] &&
           are_collinear(geometry_[place], end_at(a, node), geometry_[other], end_at(b, node)) &&
           have_same_orientation(geometry_[place], geometry_[other]);
  }

  /// Whether an element that frames in at the node ends the chain there.
  bool is_restrained(std::size_t place, std::size_t next, Number node) const {
    return std::ranges::any_of(connectivity_.elements_at(node), [&](Number number) {
      const std::size_t other = model_.elements.position(number);
      return other != place && other != next && restrains(types_[place], other, node);
    });
  }

  bool restrains(MemberType chain, std::size_t other, Number node) const {
    const Element& element = model_.elements[other];
    if (element.kind == ElementKind::truss) return false;
    if (chain != MemberType::column) return types_[other] == MemberType::column;
    return !is_hinged(element, end_at(element, node));
  }

  const model::Model& model_;
  model::Connectivity connectivity_;
  std::vector<analysis::Geometry> geometry_;
  std::vector<MemberType> types_;
  std::vector<bool> taken_;
};

}  // namespace

std::vector<model::Member> find_members(const model::Model& model) {
  std::vector<model::Member> found;
  ChainFinder finder(model);
  Number number = 1;
  for (std::size_t place = 0; place < model.elements.size(); ++place) {
    std::vector<Number> chain = finder.take_chain(place);
    if (chain.size() < 2) continue;
    while (model.members.find(number) != nullptr) ++number;
    found.push_back(
        {.number = number++, .name = {}, .elements = std::move(chain), .length_factors = {}});
  }
  return found;
}

std::size_t complete(model::Model& model) {
  if (!model.finds_members) return 0;
  std::vector<model::Member> found = find_members(model);
  for (model::Member& member : found) model.members.add(std::move(member));
  return found.size();
}

}  // namespace aluframe::members
