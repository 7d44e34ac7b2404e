#include "aluframe/model/members.h"

#include <cmath>
#include <numbers>
#include <unordered_set>

#include "aluframe/elementary/functions.h"
#include "aluframe/texts/text.h"

namespace aluframe::model {

namespace {

constexpr double degrees_per_radian = 180.0 / std::numbers::pi;
constexpr double direction_limit = 10.0;
/// An axis at exactly 10° counts as within; coordinates of such an axis are off by rounding only.
constexpr double angle_tolerance = 1e-9;

/// Angle between the element's axis and the vertical, 0 to 90 degrees.
double angle_to_vertical(const Model& model, const Element& element) {
  const Node& start = *model.nodes.find(element.nodes[0]);
  const Node& end = *model.nodes.find(element.nodes[1]);
  const double run = elementary::hypotenuse(end.x - start.x, end.y - start.y);
  return elementary::angle_of(run, std::abs(end.z - start.z)) * degrees_per_radian;
}

bool has_node(const Element& element, Number node) {
  return element.nodes[0] == node || element.nodes[1] == node;
}

Number other_node(const Element& element, Number node) {
  return element.nodes[0] == node ? element.nodes[1] : element.nodes[0];
}

std::string passed_twice(Number node) {
  return texts::translated("node {} is passed twice", node);
}

std::string not_meeting(const Element& element, const Element& previous) {
  return texts::translated("element {} does not meet element {} at a node", element.number,
                           previous.number);
}

std::optional<std::string> find_repeated_element(const Member& member) {
  std::unordered_set<Number> seen;
  for (const Number element : member.elements) {
    if (!seen.insert(element).second) {
      return texts::translated("element {} is in the member twice", element);
    }
  }
  return std::nullopt;
}

/// Where the chain begins: the node of its first element that the second one does not share.
Number first_node(const Model& model, const Member& member) {
  const Element& first = *model.elements.find(member.elements.front());
  if (member.elements.size() == 1) return first.nodes[0];
  const Element& second = *model.elements.find(member.elements[1]);
  return has_node(second, first.nodes[1]) ? first.nodes[0] : first.nodes[1];
}

/// Walks along the chain from its beginning; every element must go on where the one before ended.
std::optional<std::string> find_break(const Model& model, const Member& member) {
  Number here = first_node(model, member);
  std::unordered_set<Number> passed{here};
  const Element* previous = nullptr;
  for (const Number number : member.elements) {
    const Element& element = *model.elements.find(number);
    if (!has_node(element, here)) {
      const Number branch = other_node(*previous, here);
      return has_node(element, branch) ? passed_twice(branch) : not_meeting(element, *previous);
    }
    here = other_node(element, here);
    if (!passed.insert(here).second) return passed_twice(here);
    previous = &element;
  }
  return std::nullopt;
}

template <class Value>
const Value* find_pointer(const std::unordered_map<Number, const Value*>& map, Number number) {
  const auto found = map.find(number);
  return found == map.end() ? nullptr : found->second;
}

}  // namespace

double element_length(const Model& model, const Element& element) {
  const Node& start = *model.nodes.find(element.nodes[0]);
  const Node& end = *model.nodes.find(element.nodes[1]);
  return std::hypot(end.x - start.x, end.y - start.y, end.z - start.z);
}

MemberType member_type(const Model& model, const Element& element) {
  if (element.member_type) return *element.member_type;
  if (element.kind == ElementKind::truss) return MemberType::truss;
  const double angle = angle_to_vertical(model, element);
  if (angle <= direction_limit + angle_tolerance) return MemberType::column;
  if (angle >= 90.0 - direction_limit - angle_tolerance) return MemberType::beam;
  return MemberType::brace;
}

std::optional<std::string> find_chain_problem(const Model& model, const Member& member) {
  if (member.elements.empty()) return std::nullopt;
  if (auto repeated = find_repeated_element(member)) return repeated;
  return find_break(model, member);
}

Connectivity::Connectivity(const Model& model) {
  for (const Member& member : model.members) {
    for (const Number element : member.elements) member_of_.emplace(element, &member);
  }
  for (const Element& element : model.elements) {
    for (const Number node : element.nodes) elements_at_[node].push_back(element.number);
  }
  for (const Support& support : model.supports) support_of_.emplace(support.node, &support);
}

const Member* Connectivity::member_of(Number element) const {
  return find_pointer(member_of_, element);
}

const std::vector<Number>& Connectivity::elements_at(Number node) const {
  static const std::vector<Number> none;
  const auto found = elements_at_.find(node);
  return found == elements_at_.end() ? none : found->second;
}

const Support* Connectivity::support_of(Number node) const {
  return find_pointer(support_of_, node);
}

}  // namespace aluframe::model
