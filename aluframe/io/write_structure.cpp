#include <algorithm>
#include <array>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

using model::ElementDesign;

/// The names whose flags are set, as a list.
std::string flags_text(std::span<const NamedValue<std::size_t>> names,
                       std::span<const bool> flags) {
  std::vector<std::string> set;
  for (const NamedValue<std::size_t>& name : names) {
    if (flags[name.value]) set.push_back(json_string(name.name));
  }
  return json_list(set);
}

bool any(std::span<const bool> flags) {
  return std::find(flags.begin(), flags.end(), true) != flags.end();
}

std::string releases_text(std::span<const bool> released) {
  JsonLine line;
  const auto start = released.first(6);
  const auto end = released.last(6);
  if (any(start)) line.json("start", flags_text(force_components, start));
  if (any(end)) line.json("end", flags_text(force_components, end));
  return line.str();
}

std::string orientation_text(const model::Orientation& orientation) {
  if (const auto* node = std::get_if<model::Number>(&orientation)) {
    return JsonLine().number("node", *node).str();
  }
  std::vector<std::string> components;
  for (const double component : std::get<std::array<double, 3>>(orientation)) {
    components.push_back(number_text(component));
  }
  return JsonLine().json("vector", json_list(components)).str();
}

std::string moment_factor_text(const model::MomentFactor& factor) {
  if (factor.value) return JsonLine().number("value", *factor.value).str();
  return JsonLine().number("loading", factor.loading).str();
}

}  // namespace

std::string numbers_text(std::span<const model::Number> numbers) {
  std::vector<std::string> texts;
  texts.reserve(numbers.size());
  for (const model::Number number : numbers) texts.push_back(std::to_string(number));
  return json_list(texts);
}

JsonLine begin_entity(model::Number number, const std::string& name) {
  return JsonLine().number("number", number).text_unless("name", name, "");
}

std::string node_line(const model::Node& node, const Scales& scales) {
  return begin_entity(node.number, node.name)
      .number("x", node.x, scales.length)
      .number("y", node.y, scales.length)
      .number("z", node.z, scales.length)
      .str();
}

std::string support_line(const model::Support& support, const Scales& scales) {
  JsonLine springs;
  for (const auto& [name, direction] : support_directions) {
    const double stiffness = support.springs[direction];
    if (stiffness != 0.0) springs.number(name, stiffness, scales.of_stiffness(direction));
  }
  JsonLine line = JsonLine().number("node", support.node);
  if (springs.empty() || any(support.restrained)) {
    line.json("restrained", flags_text(support_directions, support.restrained));
  }
  if (!springs.empty()) line.json("springs", springs.str());
  return line.str();
}

std::string element_line(const model::Element& element, const Scales& scales) {
  JsonLine line = begin_entity(element.number, element.name);
  line.json("nodes", numbers_text(element.nodes))
      .number("section", element.section)
      .number("material", element.material);
  if (element.orientation) line.json("orientation", orientation_text(*element.orientation));
  line.number_unless("beta", element.beta, 0.0);
  if (element.kind != model::ElementKind::beam) {
    line.text("kind", name_in(element_kinds, element.kind));
  }
  if (element.member_type) line.text("member_type", name_in(member_types, *element.member_type));
  if (any(element.released)) line.json("releases", releases_text(element.released));
  if (element.design != ElementDesign{}) line.json("design", design_line(element.design, scales));
  return line.str();
}

std::string member_line(const model::Member& member, const Scales& scales) {
  JsonLine line = begin_entity(member.number, member.name);
  line.json("elements", numbers_text(member.elements));
  if (member.length_factors) line.json("length_factors", axis_pair_line(*member.length_factors));
  if (member.deflection_limit) {
    line.json("deflection_limit", deflection_limit_line(*member.deflection_limit, scales));
  }
  if (!member.restraints.empty()) {
    std::vector<std::string> restraints;
    for (const model::Restraint& restraint : member.restraints) {
      restraints.push_back(restraint_line(restraint, scales));
    }
    line.json("restraints", json_list(restraints));
  }
  return line.str();
}

std::string axis_pair_line(const ElementDesign::AxisPair& pair) {
  return JsonLine().number("y", pair.y).number("z", pair.z).str();
}

std::string design_line(const ElementDesign& design, const Scales& scales) {
  JsonLine line;
  if (const auto& pair = design.stability_coefficients) {
    line.json("stability_coefficients", axis_pair_line(*pair));
  }
  if (const auto& rib = design.rib) {
    const JsonLine text = JsonLine().flag("stiffened", rib->stiffened).number("ratio", rib->ratio);
    line.json("rib", text.str());
  }
  if (design.weld_coefficient) line.number("weld_coefficient", *design.weld_coefficient);
  if (design.haz_width) line.number("haz_width", *design.haz_width, scales.section);
  if (const auto& factors = design.moment_factors) {
    const JsonLine text = JsonLine()
                              .json("y", moment_factor_text(factors->y))
                              .json("z", moment_factor_text(factors->z));
    line.json("moment_factors", text.str());
  }
  if (const auto& pair = design.length_factors) line.json("length_factors", axis_pair_line(*pair));
  if (const auto& limits = design.slenderness_limits) {
    const JsonLine text = JsonLine()
                              .flag("checked", limits->checked)
                              .number("compression", limits->compression)
                              .number("tension", limits->tension);
    line.json("slenderness_limits", text.str());
  }
  return line.str();
}

}  // namespace aluframe::io
