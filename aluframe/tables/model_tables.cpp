#include "aluframe/tables/model_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "aluframe/elementary/functions.h"
#include "aluframe/io/scales.h"
#include "aluframe/model/members.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/tables/names.h"
#include "aluframe/tables/structure_texts.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

using texts::translatable;

/// Digits behind the point of coordinates and lengths in any unit.
constexpr int length_decimals = 3;

Cell whole(std::size_t value) {
  return static_cast<std::int64_t>(value);
}

Cell text_or_nothing(const std::string& text) {
  return text.empty() ? Cell() : Cell(text);
}

Cell phrase_or_nothing(std::string text) {
  return text.empty() ? Cell() : Cell(Phrase{std::move(text)});
}

Cell phrase(std::string_view text) {
  return Phrase{std::string(text)};
}

/// A column whose heading is its key.
Column named(const char* name) {
  return {.key = name, .heading = name};
}

/// "x_m" and "X m".
Column in_unit(std::string_view key, std::string heading, std::string_view unit, int decimals) {
  return {
      .key = fmt::format("{}_{}", key, unit), .heading = std::move(heading), .decimals = decimals};
}

/// Digits behind the point that leave a property in a power of a unit as fine as in mm.
int decimals_in(model::LengthUnit unit, int power) {
  double size = 1.0;
  for (int i = 0; i < power; ++i) size *= model::millimetres_per(unit);
  const int exponent = elementary::exponent_of_ten(size);
  return elementary::power_of_ten(exponent) < size ? exponent + 1 : exponent;
}

Column property(const char* name, model::LengthUnit unit, int power) {
  constexpr const char* powers[] = {"", "", "²", "", "⁴", "", "⁶"};
  const std::string_view length = model::name_of(unit);
  return {.key = fmt::format("{}_{}{}", name, length, power),
          .heading = fmt::format("{} {}{}", name, length, powers[power]),
          .decimals = decimals_in(unit, power) + (power == 2 ? 1 : 0)};
}

/// How many elements name each number.
using Uses = std::unordered_map<model::Number, std::size_t>;

Uses uses_of(const model::Model& model, model::Number model::Element::* what) {
  Uses uses;
  for (const model::Element& element : model.elements) ++uses[element.*what];
  return uses;
}

Cell use_of(const Uses& uses, model::Number number) {
  const auto found = uses.find(number);
  return whole(found == uses.end() ? 0 : found->second);
}

/// Whether an element has forces in a load case that do not follow from loads.
bool has_given_forces(const model::Model& model, model::Number load_case) {
  const std::size_t place = model.load_cases.position(load_case);
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    if (model.forces.find(element, place) != nullptr) return true;
  }
  return false;
}

double member_length(const model::Model& model, const model::Member& member) {
  double length = 0.0;
  for (const model::Number number : member.elements) {
    length += model::element_length(model, *model.elements.find(number));
  }
  return length;
}

}  // namespace

OutputTable nodes_table(const model::Model& model) {
  const std::string_view unit = model::name_of(model.units.length);
  const double length = model::millimetres_per(model.units.length);
  const model::Connectivity connectivity(model);
  OutputTable table;
  table.columns = {named(translatable("node")),
                   named(translatable("name")),
                   in_unit("x", fmt::format("X {}", unit), unit, length_decimals),
                   in_unit("y", fmt::format("Y {}", unit), unit, length_decimals),
                   in_unit("z", fmt::format("Z {}", unit), unit, length_decimals),
                   named(translatable("restrained")),
                   named(translatable("springs"))};
  for (const model::Node& node : model.nodes) {
    const model::Support* support = connectivity.support_of(node.number);
    table.rows.push_back(
        {whole(node.number), text_or_nothing(node.name), node.x / length, node.y / length,
         node.z / length, support != nullptr ? text_or_nothing(restraints_text(*support)) : Cell(),
         support != nullptr ? text_or_nothing(springs_text(*support, model.units)) : Cell()});
  }
  return table;
}

OutputTable elements_table(const model::Model& model) {
  const std::string_view unit = model::name_of(model.units.length);
  const model::Connectivity connectivity(model);
  OutputTable table;
  table.columns = {
      named(translatable("element")),
      named(translatable("name")),
      named(translatable("start")),
      named(translatable("end")),
      named(translatable("section")),
      {.key = "section_name", .heading = translatable("name of section")},
      named(translatable("material")),
      named(translatable("member")),
      named(translatable("type")),
      in_unit("length", fmt::format(translatable("length {}"), unit), unit, length_decimals),
      named(translatable("orientation")),
      named(translatable("releases"))};
  for (const model::Element& element : model.elements) {
    const model::Member* member = connectivity.member_of(element.number);
    table.rows.push_back(
        {whole(element.number), text_or_nothing(element.name), whole(element.nodes[0]),
         whole(element.nodes[1]), whole(element.section),
         text_or_nothing(model.sections.find(element.section)->name), whole(element.material),
         member != nullptr ? whole(member->number) : Cell(),
         phrase(member_type_name(model::member_type(model, element))),
         model::element_length(model, element) / model::millimetres_per(model.units.length),
         phrase_or_nothing(orientation_text(element)), phrase_or_nothing(releases_text(element))});
  }
  return table;
}

OutputTable members_table(const model::Model& model) {
  const std::string_view unit = model::name_of(model.units.length);
  OutputTable table;
  table.columns = {
      named(translatable("member")),
      named(translatable("name")),
      named(translatable("elements")),
      named(translatable("origin")),
      in_unit("length", fmt::format(translatable("length {}"), unit), unit, length_decimals),
      {.key = "ky", .heading = translatable("given Ky")},
      {.key = "kz", .heading = translatable("given Kz")}};
  const char* origin = model.finds_members ? translatable("found") : translatable("file");
  for (const model::Member& member : model.members) {
    const auto& factors = member.length_factors;
    table.rows.push_back(
        {whole(member.number), text_or_nothing(member.name), in_order_text(member.elements),
         phrase(origin), member_length(model, member) / model::millimetres_per(model.units.length),
         factors ? Cell(factors->y) : Cell(), factors ? Cell(factors->z) : Cell()});
  }
  return table;
}

OutputTable sections_table(const model::Model& model) {
  const model::LengthUnit unit = model.units.section;
  const io::Scales scales(model.units);
  const Uses uses = uses_of(model, &model::Element::section);
  OutputTable table;
  table.columns = {named(translatable("section")),
                   named(translatable("name")),
                   named(translatable("shape")),
                   {.key = fmt::format("dimensions_{}", model::name_of(unit)),
                    .heading = fmt::format(translatable("dimensions {}"), model::name_of(unit))},
                   named(translatable("welded")),
                   property("A", unit, 2),
                   property("Iyy", unit, 4),
                   property("Izz", unit, 4),
                   property("It", unit, 4),
                   property("Iw", unit, 6),
                   {.key = "elements", .heading = translatable("used by elements")}};
  for (const model::Section& section : model.sections) {
    const model::SectionProperties p = section::properties_of(section);
    table.rows.push_back(
        {whole(section.number), text_or_nothing(section.name), phrase(shape_name(section.shape)),
         text_or_nothing(dimensions_text(section, unit)), section.welded, p.area / scales.section_2,
         p.iyy / scales.section_4, p.izz / scales.section_4, p.it / scales.section_4,
         p.iw / scales.section_6, use_of(uses, section.number)});
  }
  return table;
}

OutputTable materials_table(const model::Model& model) {
  constexpr double cubic_millimetres = 1e9;  // in a m³
  const Uses uses = uses_of(model, &model::Element::material);
  OutputTable table;
  table.columns = {named(translatable("material")),
                   named(translatable("name")),
                   named(translatable("standard")),
                   named(translatable("grade")),
                   {.key = "e_n_mm2", .heading = "E N/mm²", .decimals = 0},
                   {.key = "poisson", .heading = "ν", .decimals = 2},
                   {.key = "f02_thin_n_mm2", .heading = "f0.2 N/mm², t ≤ 10 mm", .decimals = 1},
                   {.key = "f02_thick_n_mm2", .heading = "f0.2 N/mm², t > 10 mm", .decimals = 1},
                   {.key = "fu_n_mm2", .heading = "fu N/mm²", .decimals = 1},
                   {.key = "density_kg_m3", .heading = "ρ kg/m³", .decimals = 0},
                   {.key = "thermal_expansion_1_k", .heading = "α 1/K", .is_scientific = true},
                   {.key = "elements", .heading = translatable("used by elements")}};
  for (const model::Material& material : model.materials) {
    table.rows.push_back({whole(material.number), text_or_nothing(material.name),
                          text_or_nothing(material.standard), text_or_nothing(material.grade),
                          material.e, material.poisson, material.f02_thin, material.f02_thick,
                          material.fu, material.density * cubic_millimetres,
                          material.thermal_expansion, use_of(uses, material.number)});
  }
  return table;
}

OutputTable load_cases_table(const model::Model& model) {
  OutputTable table;
  table.columns = {{.key = "load_case", .heading = translatable("load case")},
                   named(translatable("name")),
                   named(translatable("kind")),
                   {.key = "self_weight", .heading = translatable("self-weight")},
                   {.key = "nodal_loads", .heading = translatable("nodal loads")},
                   {.key = "area_loads", .heading = translatable("area loads")},
                   {.key = "line_loads", .heading = translatable("line loads")},
                   {.key = "point_loads", .heading = translatable("point loads")},
                   {.key = "temperature_loads", .heading = translatable("temperature loads")},
                   named(translatable("settlements")),
                   {.key = "given_forces", .heading = translatable("given forces")}};
  for (const model::LoadCase& load_case : model.load_cases) {
    const model::CaseLoads& loads = load_case.loads;
    const auto own_line_loads = static_cast<std::size_t>(std::ranges::count_if(
        loads.span, [](const model::SpanLoad& load) { return !load.of_area; }));
    const bool has_weight = loads.self_weight != std::array<double, 3>{};
    table.rows.push_back({whole(load_case.number), text_or_nothing(load_case.name),
                          phrase(load_case_kind_name(load_case.kind)), has_weight,
                          whole(loads.nodal.size()), whole(loads.area.size()),
                          whole(own_line_loads), whole(loads.points.size()),
                          whole(loads.temperature.size()), whole(loads.settlements.size()),
                          has_given_forces(model, load_case.number)});
  }
  return table;
}

OutputTable combinations_table(const model::Model& model) {
  OutputTable table;
  table.columns = {named(translatable("combination")), named(translatable("name")),
                   named(translatable("kind")),        named(translatable("terms")),
                   named(translatable("seismic")),     named(translatable("design"))};
  for (const model::Combination& combination : model.combinations) {
    if (combination.state_of) continue;
    const bool is_sum = combination.kind == model::CombinationKind::linear;
    table.rows.push_back({whole(combination.number), text_or_nothing(combination.name),
                          phrase(is_sum ? translatable("sum") : translatable("envelope")),
                          text_or_nothing(terms_text(combination)), combination.seismic,
                          combination.design});
  }
  return table;
}

}  // namespace aluframe::tables
