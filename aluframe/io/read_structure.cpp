#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <utility>

#include "aluframe/analysis/frame.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/model/members.h"
#include "aluframe/model/orientation.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto node_fields = std::to_array<std::string_view>({"number", "name", "x", "y", "z"});
constexpr auto element_fields = std::to_array<std::string_view>(
    {"number", "name", "nodes", "section", "material", "orientation", "beta", "kind", "member_type",
     "releases", "design"});
constexpr auto orientation_fields = std::to_array<std::string_view>({"vector", "node"});
constexpr auto release_fields = std::to_array<std::string_view>({"start", "end"});
constexpr auto member_fields = std::to_array<std::string_view>(
    {"number", "name", "elements", "length_factors", "deflection_limit", "restraints"});

/// Nodes closer than this stand at the same point: no profile is that short, and the direction of
/// such an element would be noise.
constexpr double shortest_element = 1e-3;  // mm

std::array<model::Number, 2> read_end_nodes(const JsonValue& value, const model::Model& model) {
  if (const std::size_t count = value.list().size(); count != 2) {
    value.fail(texts::translated("found {} node numbers, must be 2: start and end", count));
  }
  std::array<model::Number, 2> nodes{};
  std::size_t i = 0;
  read_items(value, [&](const JsonValue& node) {
    nodes[i++] = read_reference(node, model.nodes, "node");
  });
  return nodes;
}

std::array<bool, 12> read_releases(const JsonValue& value) {
  const JsonObject object(value, release_fields);
  std::array<bool, 12> released{};
  const std::span<bool> all(released);
  if (const auto start = object.optional("start")) {
    read_flags(*start, force_components, all.first(6));
  }
  if (const auto end = object.optional("end")) read_flags(*end, force_components, all.last(6));
  return released;
}

std::array<double, 3> read_direction(const JsonValue& value) {
  if (const std::size_t count = value.list().size(); count != 3) {
    value.fail(texts::translated("found {} components, must be 3: X, Y and Z", count));
  }
  std::array<double, 3> direction{};
  std::size_t i = 0;
  for (const JsonValue component : value.list()) direction[i++] = component.number();
  return direction;
}

model::Orientation read_orientation(const JsonValue& value, const model::Model& model) {
  const JsonObject object(value, orientation_fields);
  const auto vector = object.optional("vector");
  const auto node = object.optional("node");
  if (vector.has_value() == node.has_value()) {
    value.fail(vector
                   ? texts::translated("one of \"vector\" and \"node\" is needed, found both")
                   : texts::translated("one of \"vector\" and \"node\" is needed, found neither"));
  }
  if (vector) return read_direction(*vector);
  return read_reference(*node, model.nodes, "node");
}

/// Fails at the orientation of an element whose reference direction does not turn its section.
void require_turning(const JsonValue& orientation, const model::Element& element,
                     const model::Model& model) {
  const auto direction = model::reference_direction(model, element);
  if (!direction) return;
  const double sine = model::sine_to_axis(model, element, *direction);
  if (sine >= analysis::parallel_limit) return;
  const auto [x, y, z] = *direction;
  const bool is_node = JsonObject(orientation, orientation_fields).optional("node").has_value();
  if (!is_node && x == 0.0 && y == 0.0 && z == 0.0) {
    orientation.fail(
        texts::translated("the vector (0, 0, 0) has no length, so it gives no direction"));
  }
  orientation.fail(texts::translated(
      "the direction ({:.6g}, {:.6g}, {:.6g}){} lies along the element's axis: the sine of the "
      "angle between them is {:.3g}, must be {:g} or more",
      x, y, z, is_node ? texts::translated(" mm to the node") : "", sine,
      analysis::parallel_limit));
}

/// Fails at the `nodes` of an element without length.
void require_length(const JsonObject& object, const model::Element& element,
                    const model::Model& model) {
  const auto [start, end] = element.nodes;
  const JsonValue nodes = object.required("nodes");
  if (start == end) nodes.fail(texts::translated("the element starts and ends at node {}", start));
  if (model::element_length(model, element) < shortest_element) {
    nodes.fail(texts::translated("nodes {} and {} are at the same point", start, end));
  }
}

void read_kinds(const JsonObject& object, model::Element& element) {
  object.part([&] {
    if (const auto kind = object.optional("kind"))
      element.kind = kind->one_of<model::ElementKind>(element_kinds);
  });
  object.part([&] {
    if (const auto type = object.optional("member_type"))
      element.member_type = type->one_of<model::MemberType>(member_types);
  });
}

model::Element read_element(const JsonObject& object, const Scales& scales,
                            const model::Model& model) {
  model::Element element;
  object.part([&] { element.number = object.required("number").entity_number(); });
  object.part([&] { element.name = object.plain_text_or("name", ""); });
  object.part([&] { element.nodes = read_end_nodes(object.required("nodes"), model); });
  object.part([&] {
    element.section = read_reference(object.required("section"), model.sections, "section");
  });
  object.part([&] {
    element.material = read_reference(object.required("material"), model.materials, "material");
  });
  const auto orientation = object.optional("orientation");
  object.part([&] {
    if (orientation) element.orientation = read_orientation(*orientation, model);
  });
  object.part([&] { element.beta = object.number_or("beta", 0.0); });
  read_kinds(object, element);
  object.part([&] {
    if (const auto releases = object.optional("releases"))
      element.released = read_releases(*releases);
  });
  object.part([&] {
    if (const auto design = object.optional("design"))
      element.design = read_element_design(*design, scales);
  });
  if (!object.is_sound()) return element;
  require_length(object, element, model);
  if (orientation) require_turning(*orientation, element, model);
  return element;
}

/// Elements that a member has taken, with its number.
using Owners = std::unordered_map<model::Number, model::Number>;

model::Member read_member(const JsonObject& object, const Scales& scales, const model::Model& model,
                          Owners& owners) {
  model::Member member;
  object.part([&] { member.number = object.required("number").entity_number(); });
  object.part([&] { member.name = object.plain_text_or("name", ""); });
  object.part([&] { member.length_factors = read_length_factors(object); });
  object.part([&] {
    if (const auto limit = object.optional("deflection_limit")) {
      member.deflection_limit = read_deflection_limit(*limit, scales);
    }
  });
  const JsonValue elements = object.required("elements");
  read_items(elements, [&](const JsonValue& value) {
    const model::Number element = read_reference(value, model.elements, "element");
    const auto [owner, is_new] = owners.try_emplace(element, member.number);
    if (!is_new) {
      value.fail(texts::translated("element {} is in member {} already", element, owner->second));
    }
    member.elements.push_back(element);
  });
  if (elements.list().empty())
    elements.fail_with(texts::translated("a member needs at least one element"));
  if (!object.is_sound()) return member;
  if (const auto problem = model::find_chain_problem(model, member)) elements.fail(*problem);
  if (const auto restraints = object.optional("restraints")) {
    member.restraints = read_restraints(*restraints, scales, model, member);
  }
  return member;
}

}  // namespace

void read_flags(const JsonValue& list, std::span<const NamedValue<std::size_t>> names,
                std::span<bool> flags) {
  for (const JsonValue value : list.list()) {
    const std::size_t place = value.one_of(names);
    if (flags[place]) value.fail_with(texts::translated("which is given before"));
    flags[place] = true;
  }
}

void read_nodes(const JsonObject& root, const Scales& scales, model::Model& model) {
  read_entities(root.required("nodes"), &model.nodes, [&](const JsonValue& value) {
    const JsonObject object(value, node_fields);
    model::Node node;
    object.part([&] { node.number = object.required("number").entity_number(); });
    object.part([&] { node.name = object.plain_text_or("name", ""); });
    object.part([&] { node.x = scales.length * object.required("x").number(); });
    object.part([&] { node.y = scales.length * object.required("y").number(); });
    object.part([&] { node.z = scales.length * object.required("z").number(); });
    add_entity(object, model.nodes, std::move(node), "nodes");
  });
}

void read_elements(const JsonObject& root, const Scales& scales, model::Model& model) {
  const JsonValue list = root.required("elements");
  read_entities(list, &model.elements, [&](const JsonValue& value) {
    const JsonObject object(value, element_fields);
    add_entity(object, model.elements, read_element(object, scales, model), "elements");
  });
  if (list.list().empty()) list.fail_with(texts::translated("a model needs at least one element"));
}

void read_members(const JsonObject& root, const Scales& scales, model::Model& model) {
  const std::optional<JsonValue> list = root.optional("members");
  model.finds_members = !list;
  if (!list) return;
  Owners owners;
  read_entities(*list, &model.members, [&](const JsonValue& value) {
    const JsonObject object(value, member_fields);
    add_entity(object, model.members, read_member(object, scales, model, owners), "members");
  });
}

}  // namespace aluframe::io
