#include "aluframe/members/find_members.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_set>

#include "aluframe/members/straightness.h"
#include "aluframe/members/ways_to_ground.h"
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

/// Whether the program, not the file, says what type an element is of.
bool has_free_type(const Element& element) {
  return !element.member_type;
}

/// Follows chains of elements.
class ChainFinder {
 public:
  explicit ChainFinder(const model::Model& model)
      : model_(model),
        connectivity_(model),
        ways_(model, connectivity_),
        taken_(model.elements.size(), false) {
    geometry_.reserve(model.elements.size());
    types_.reserve(model.elements.size());
    for (std::size_t place = 0; place < model.elements.size(); ++place) {
      const Element& element = model.elements[place];
      geometry_.push_back(geometry_of(model, element));
      types_.push_back(model::member_type(model, element));
      taken_[place] = !may_chain(place);
    }
  }

  /// The chains of the line of elements through one, from its start to its end: parts between what
  /// holds the line. Those of one element stand alone. None when the line is taken already.
  std::vector<std::vector<Number>> take_chains(std::size_t place) {
    if (taken_[place]) return {};
    taken_[place] = true;
    const auto& [start, end] = model_.elements[place].nodes;
    Line line{.elements = {place}, .nodes = {start, end}};
    follow(line);
    std::ranges::reverse(line.elements);
    std::ranges::reverse(line.nodes);
    follow(line);
    // The way of the earliest element.
    if (!runs_along(line, place)) {
      std::ranges::reverse(line.elements);
      std::ranges::reverse(line.nodes);
    }
    return parts_of(line);
  }

 private:
  /// Elements one after the other, and the nodes before, between and after them.
  struct Line {
    std::vector<std::size_t> elements;
    std::vector<Number> nodes;
  };

  bool may_chain(std::size_t place) const {
    const Element& element = model_.elements[place];
    return element.kind == ElementKind::beam && types_[place] != MemberType::truss &&
           !element.design.length_factors && connectivity_.member_of(element.number) == nullptr;
  }

  bool runs_along(const Line& line, std::size_t place) const {
    const auto at = std::ranges::find(line.elements, place) - line.elements.begin();
    return line.nodes[static_cast<std::size_t>(at)] == model_.elements[place].nodes[0];
  }

  /// Lengthens a line at its end as far as it goes on; it does not come back to itself.
  void follow(Line& line) {
    for (auto next = partner(line.elements.back(), line.nodes.back()); next && !taken_[*next];
         next = partner(line.elements.back(), line.nodes.back())) {
      const Element& element = model_.elements[*next];
      const Number far = element.nodes[1 - end_at(element, line.nodes.back())];
      if (std::ranges::find(line.nodes, far) != line.nodes.end()) break;
      taken_[*next] = true;
      line.elements.push_back(*next);
      line.nodes.push_back(far);
    }
  }

  /// A line without the nodes at which something holds it.
  std::vector<std::vector<Number>> parts_of(const Line& line) const {
    std::unordered_set<std::size_t> nodes;
    for (const Number node : line.nodes) nodes.insert(model_.nodes.position(node));
    std::vector<std::vector<Number>> parts(1);
    for (std::size_t i = 0; i < line.elements.size(); ++i) {
      parts.back().push_back(model_.elements[line.elements[i]].number);
      if (i + 1 == line.elements.size()) break;
      if (is_held(line.elements[i], line.elements[i + 1], line.nodes[i + 1], nodes)) {
        parts.emplace_back();
      }
    }
    return parts;
  }

  /// The element that an element goes on in at a node, when nothing there ends the line.
  std::optional<std::size_t> partner(std::size_t place, Number node) const {
    if (connectivity_.support_of(node) != nullptr) return std::nullopt;
    const auto next = only_continuation(place, node);
    if (!next || only_continuation(*next, node) != place) return std::nullopt;
    for (const std::size_t one : {place, *next}) {
      const Element& element = model_.elements[one];
      if (is_released(element, end_at(element, node))) return std::nullopt;
    }
    return next;
  }

  /// The one element that continues another straight on at a node, or else through a gentle kink;
  /// nothing when there is none or a choice.
  std::optional<std::size_t> only_continuation(std::size_t place, Number node) const {
    std::vector<std::size_t> straight, kinked;
    for (const Number number : connectivity_.elements_at(node)) {
      const std::size_t other = model_.elements.position(number);
      if (other == place || !is_alike(place, other)) continue;
      if (is_straight_on(place, other, node)) {
        straight.push_back(other);
      } else if (is_gentle_kink(place, other, node)) {
        kinked.push_back(other);
      }
    }
    const std::vector<std::size_t>& found = straight.empty() ? kinked : straight;
    if (found.size() != 1) return std::nullopt;
    return found.front();
  }

  bool is_straight_on(std::size_t place, std::size_t other, Number node) const {
    return types_[place] == types_[other] &&
           are_collinear(geometry_[place], end_at(model_.elements[place], node), geometry_[other],
                         end_at(model_.elements[other], node));
  }

  bool is_gentle_kink(std::size_t place, std::size_t other, Number node) const {
    constexpr double cosine_of_15_degrees = 0.9659258;
    const Element& a = model_.elements[place];
    const Element& b = model_.elements[other];
    const bool is_same_type = types_[place] == types_[other];
    return (is_same_type || (has_free_type(a) && has_free_type(b))) &&
           -away_from(geometry_[place], end_at(a, node))
                   .dot(away_from(geometry_[other], end_at(b, node))) >= cosine_of_15_degrees;
  }

  bool is_alike(std::size_t place, std::size_t other) const {
    const Element& a = model_.elements[place];
    const Element& b = model_.elements[other];
    return may_chain(other) && a.section == b.section && a.material == b.material;
  }

  /// Whether something that leads to a support past the line holds it at a node.
  bool is_held(std::size_t before, std::size_t after, Number node,
               const std::unordered_set<std::size_t>& line) const {
    const bool is_kink = !is_straight_on(before, after, node);
    return std::ranges::any_of(connectivity_.elements_at(node), [&](Number number) {
      const std::size_t other = model_.elements.position(number);
      if (other == before || other == after) return false;
      if (!is_kink && !holds(types_[before], other, node)) return false;
      const Element& element = model_.elements[other];
      const Number far = element.nodes[1 - end_at(element, node)];
      return ways_.lead_past(line, model_.nodes.position(far));
    });
  }

  /// Whether an element can hold a straight line of a type where it frames in.
  bool holds(MemberType line, std::size_t other, Number node) const {
    const Element& element = model_.elements[other];
    if (element.kind == ElementKind::truss) return false;
    if (line != MemberType::column) return types_[other] == MemberType::column;
    return !is_hinged(element, end_at(element, node));
  }

  const model::Model& model_;
  model::Connectivity connectivity_;
  WaysToGround ways_;
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
    for (std::vector<Number>& chain : finder.take_chains(place)) {
      if (chain.size() < 2) continue;
      while (model.members.find(number) != nullptr) ++number;
      found.push_back(
          {.number = number++, .name = {}, .elements = std::move(chain), .length_factors = {}});
    }
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
