#include "tests/property/io_any_model.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/catalogue/alloys.h"
#include "aluframe/model/members.h"
#include "tests/property/io_any_values.h"

namespace aluframe::io {

using namespace aluframe::model;

namespace {

std::string any_name() {
  return any_of<std::string>(
      {"", "A", "C1 \"top\"", "back\\slash", "\xE6\xA2\x81 \xF0\x9F\x8F\x97"});
}

Units any_units() {
  return {.force = any_of({ForceUnit::newton, ForceUnit::kilonewton, ForceUnit::kilogram_force,
                           ForceUnit::tonne_force, ForceUnit::pound_force, ForceUnit::kip}),
          .length = any_of({LengthUnit::metre, LengthUnit::centimetre, LengthUnit::millimetre,
                            LengthUnit::foot, LengthUnit::inch}),
          .section = any_of({LengthUnit::metre, LengthUnit::centimetre, LengthUnit::millimetre,
                             LengthUnit::foot, LengthUnit::inch})};
}

DesignSettings any_settings() {
  return {.rib = any_flag(),
          .rib_ratio = any_between(0.1, 2),
          .safety_class = *rc::gen::inRange(1, 4),
          .strength_ratio = any_of({0.85, 1.0}),
          .seismic = any_flag(),
          .gamma_re_strength = any_of({0.75, 0.7}),
          .gamma_re_stability = any_between(0.1, 1)};
}

Material any_material(Number number) {
  Material material;
  if (any_flag()) {
    const auto alloys = catalogue::alloys();
    material = catalogue::material_of(alloys[*rc::gen::inRange<std::size_t>(0, alloys.size())]);
  } else {
    material.standard = any_of<std::string>({"user", "EN 1999", "GB50429-07(A)"});
    material.grade = any_of<std::string>({"X", "6061-T6"});
    // The code's own standard knows only the grades of its table.
    if (material.standard == catalogue::alloy_standard) material.grade = "6061-T6";
    material.f02_thin = any_between(1, 500);
    material.f02_thick = any_flag() ? material.f02_thin : any_between(1, 500);
    material.fu = any_between(1, 500);
    material.e = any_of({70000.0, 69000.0});
    material.poisson = any_between(1e-9, 0.6);
    material.density = any_of({2.7e-6, 0.0});
    material.thermal_expansion = any_between(-1e-5, 1e-4);
  }
  material.number = number;
  material.name = any_name();
  return material;
}

std::array<double, 4> any_point_y() {
  return {any_between(-200, -1), any_between(-200, 200), any_between(-200, 200),
          any_between(-200, 200)};
}

std::array<double, 4> any_point_z() {
  return {any_between(1, 200), any_between(1, 200), any_between(-200, -1), any_between(-200, -1)};
}

/// Dimensions of plausible proportions: how shapes may be proportioned is not the file's concern.
std::array<double, 8> any_dimensions(Shape shape) {
  const double h = any_between(100, 400);
  const double b = any_between(60, 99);
  const double t = any_between(2, 8);
  const double other_b = any_flag() ? b : any_between(60, 99);
  const double other_t = any_flag() ? t : any_between(2, 8);
  switch (shape) {
    case Shape::channel:
    case Shape::h_section:
      return {h, b, t, t, other_b, other_t, 0, 0};
    case Shape::tee:
      return {h, b, t, t};
    case Shape::box:
      return {h, b, t, t, any_flag() ? b - t : any_between(20, 50), other_t};
    case Shape::pipe:
      return {h, t};
    case Shape::double_channel:
      return {h, b, t, t, any_of({0.0, 12.5})};
    case Shape::solid_round:
      return {h};
    case Shape::other:
      break;
  }
  return {};
}

/// Some of the properties; all that a section without dimensions needs.
GivenProperties any_given(Shape shape) {
  const auto needed = [shape] { return shape == Shape::other || any_flag(); };
  GivenProperties given;
  if (needed()) given.area = any_between(1, 1e4);
  if (needed()) given.iyy = any_between(1, 1e8);
  if (needed()) given.izz = any_between(1, 1e8);
  if (needed()) given.point_y = any_point_y();
  if (needed()) given.point_z = any_point_z();
  if (any_flag()) given.it = any_between(0, 1e8);
  if (any_flag()) given.qyb = any_between(0, 1e5);
  if (any_flag()) given.qzb = any_between(0, 1e5);
  if (any_flag()) given.iw = any_between(0, 1e13);
  if (any_flag()) given.shear_centre_z = any_between(-50, 50);
  return given;
}

Section any_section(Number number) {
  Section section;
  section.number = number;
  section.name = any_name();
  section.shape = any_of({Shape::channel, Shape::h_section, Shape::tee, Shape::box, Shape::pipe,
                          Shape::double_channel, Shape::solid_round, Shape::other});
  section.dimensions = any_dimensions(section.shape);
  section.welded = any_flag();
  section.given = any_given(section.shape);
  return section;
}

ElementDesign::AxisPair any_pair() {
  return {any_between(0.1, 3), any_between(0.1, 3)};
}

MomentFactor any_moment_factor() {
  if (any_flag()) return {.value = any_between(-1, 1)};
  return {.value = std::nullopt, .loading = *rc::gen::inRange(0, 4)};
}

ElementDesign any_design() {
  ElementDesign design;
  design.stability_coefficients = any_optional(any_pair);
  design.rib = any_optional([] { return ElementDesign::Rib{any_flag(), any_between(0.1, 2)}; });
  design.weld_coefficient = any_optional([] { return any_between(0.1, 1); });
  design.haz_width = any_optional([] { return any_between(0, 60); });
  design.moment_factors = any_optional(
      [] { return ElementDesign::MomentFactors{any_moment_factor(), any_moment_factor()}; });
  design.length_factors = any_optional(any_pair);
  design.slenderness_limits = any_optional([] {
    return ElementDesign::Slenderness{any_flag(), any_between(0, 400), any_between(0, 400)};
  });
  return design;
}

/// Springs in some of the directions that are not restrained.
Support any_support(Number node) {
  Support support{.node = node, .restrained = any_flags<6>()};
  for (std::size_t i = 0; i < support.springs.size(); ++i) {
    if (!support.restrained[i] && any_flag()) support.springs[i] = any_between(0.1, 1e6);
  }
  return support;
}

constexpr Number node_aside = 1;

/// Number of the node at a place of the chain of nodes.
Number node_number(Number place) {
  return 10 + 3 * place;
}

/// Across the chain, which runs along X and up: a vector, or the node that add_structure sets
/// aside.
Orientation any_orientation() {
  if (any_flag()) return node_aside;
  return std::array{any_between(-0.1, 0.1), any_between(-1, 1), any_of({5.0, -7.25})};
}

Element any_element(const Model& model, Number place) {
  return {
      .number = max_number - place,
      .name = any_name(),
      .nodes = {node_number(place), node_number(place + 1)},
      .section = model.sections[place % model.sections.size()].number,
      .material = model.materials[place % model.materials.size()].number,
      .orientation = any_optional(any_orientation),
      .beta = any_of({0.0, 90.0, -33.25}),
      .kind = any_of({ElementKind::beam, ElementKind::truss}),
      .member_type = any_optional([] {
        return any_of({MemberType::column, MemberType::beam, MemberType::brace, MemberType::truss});
      }),
      .released = any_flags<12>(),
      .design = any_design()};
}

Restraint any_restraint(Held held, double length) {
  Restraint restraint{.held = held, .at = {}, .spacing = std::nullopt};
  if (any_flag()) {
    restraint.spacing = any_between(0.01, 0.9) * length;
  } else {
    // A hundredth of the member apart at least, and the ends themselves.
    restraint.at = {any_of({0.0, 0.3, 0.37}) * length, any_between(0.4, 0.5) * length};
    if (any_flag()) restraint.at.push_back(length);
  }
  return restraint;
}

/// Restraints of which no two hold the same, and no flanges, so that the sections may change.
std::vector<Restraint> any_restraints(const Model& model, const Member& member) {
  double length = 0.0;
  for (const Number number : member.elements) {
    length += element_length(model, *model.elements.find(number));
  }
  std::vector<Restraint> restraints;
  for (const Held held : {Held::axis_y, Held::axis_z, Held::twist}) {
    if (any_flag()) restraints.push_back(any_restraint(held, length));
  }
  return restraints;
}

/// A chain of nodes with an element between each and the next, none along an axis, and perhaps a
/// member of them all.
void add_structure(Model& model) {
  const Number elements = *rc::gen::inRange<Number>(1, 6);
  for (Number place = 0; place <= elements; ++place) {
    model.nodes.add({.number = node_number(place),
                     .name = any_name(),
                     .x = 3e5 * place + any_between(-1e5, 1e5),
                     .y = any_between(-1e5, 1e5),
                     .z = 5000.0 * place});
    if (any_flag()) model.supports.push_back(any_support(node_number(place)));
  }
  model.nodes.add({.number = node_aside, .name = {}, .x = 0.0, .y = 0.0, .z = 9e6});
  Member member{.number = 1, .name = any_name(), .elements = {}, .length_factors = {}};
  for (Number place = 0; place < elements; ++place) {
    model.elements.add(any_element(model, place));
    member.elements.push_back(max_number - place);
  }
  member.length_factors = any_optional(any_pair);
  member.restraints = any_restraints(model, member);
  model.finds_members = any_flag();
  if (!model.finds_members && any_flag()) model.members.add(std::move(member));
}

CombinationTerm any_term(const Model& model) {
  CombinationTerm term;
  if (!model.combinations.empty() && any_flag()) {
    term.source = CombinationTerm::Source::combination;
    term.number = model.combinations[0].number;
  } else {
    term.number = model.load_cases[0].number;
  }
  term.factor = any_of({1.0, -1.35, 0.7, 0.0});
  return term;
}

/// What a case says of its action hangs on no other part of a model without a rule.
Action any_action() {
  Action action;
  action.kind = any_of({ActionKind::permanent, ActionKind::live, ActionKind::wind,
                        ActionKind::earthquake, ActionKind::none});
  action.category = any_name();
  action.exclusive = any_name();
  if (any_flag()) action.together_with = 1;
  action.favourable = any_of({Favourable::also, Favourable::never, Favourable::only});
  action.reversible = any_optional(any_flag);
  return action;
}

void add_loads(Model& model) {
  const Number cases = *rc::gen::inRange<Number>(0, 4);
  for (Number i = 1; i <= cases; ++i) {
    model.load_cases.add(
        {.number = i,
         .name = any_name(),
         .kind = any_of({LoadCaseKind::static_load, LoadCaseKind::seismic_static,
                         LoadCaseKind::response_spectrum, LoadCaseKind::eccentric_spectrum,
                         LoadCaseKind::time_history, LoadCaseKind::moving, LoadCaseKind::settlement,
                         LoadCaseKind::crane}),
         .loads = any_case_loads(model),
         .action = any_optional(any_action)});
  }
  const Number combinations = cases == 0 ? 0 : *rc::gen::inRange<Number>(0, 4);
  for (Number i = 1; i <= combinations; ++i) {
    Combination combination{.number = 7 * i, .name = any_name(), .kind = {}, .terms = {}};
    combination.kind = any_of({CombinationKind::linear, CombinationKind::envelope});
    combination.terms = {any_term(model), any_term(model)};
    combination.seismic = any_flag();
    combination.design = any_flag();
    combination.serviceability = any_flag();
    model.combinations.add(std::move(combination));
  }
}

DeflectionLimit any_deflection_limit() {
  return {any_optional([] { return any_between(10, 1e4); }),
          any_optional([] { return any_between(1e-3, 1e3); })};
}

/// Limits of all kinds, where a combination asks for them.
void add_limits(Model& model) {
  if (std::ranges::none_of(model.combinations, &Combination::serviceability)) return;
  ServiceabilityLimits& limits = model.serviceability;
  limits.deflection = any_optional(any_deflection_limit);
  if (limits.deflection == DeflectionLimit()) limits.deflection.reset();
  if (any_flag()) {
    limits.drifts.push_back({any_name(), node_number(0), node_number(1), any_between(10, 1e4)});
  }
  if (any_flag()) {
    limits.displacements.push_back(
        {{node_number(1), node_number(0)},
         any_of({DisplacementDirection::x, DisplacementDirection::y, DisplacementDirection::z,
                 DisplacementDirection::horizontal, DisplacementDirection::total}),
         any_between(1e-3, 1e3)});
  }
  for (const Member& member : std::vector(model.members.begin(), model.members.end())) {
    Member limited = member;
    limited.deflection_limit = any_optional(any_deflection_limit);
    model.members.replace(limited);
  }
}

/// Forces of some pairs; a model without any keeps its table empty, as reading does.
void add_forces(Model& model) {
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
      if (!any_flag()) continue;
      if (model.forces == ForceTable{}) {
        model.forces.resize(model.elements.size(), model.load_cases.size());
      }
      CaseForces forces{.at = {}, .inner = any_flag()};
      for (std::size_t i = 0; i < forces.at.size(); i += forces.inner ? 1 : 4) {
        for (float& force : forces.at[i]) force = static_cast<float>(any_between(-1e7, 1e7));
      }
      model.forces.set(element, load_case, forces);
    }
  }
}

/// Imperfections have a place in second order only.
AnalysisSettings any_analysis() {
  AnalysisSettings analysis;
  analysis.second_order = any_flag();
  if (!analysis.second_order) return analysis;
  analysis.large_displacements = any_flag();
  if (analysis.large_displacements) return analysis;
  const auto any_size = [] { return any_flag() ? any_between(1e-6, 0.1) : 0.0; };
  analysis.imperfections = {any_size(), any_size(), any_size(), any_size(), any_size()};
  return analysis;
}

}  // namespace

Model any_model() {
  Model model;
  model.title = any_name();
  model.description = any_of<std::string>({"", "one line", "line\nbreak\t\\"});
  for (const ProjectField& field : project_fields) model.project.*field.text = any_name();
  model.units = any_units();
  model.moving_load_code = any_of({0, 1, 16, 18, 100});
  model.design = any_optional(any_settings);
  model.frame = any_optional([] {
    return FrameSettings{any_flag(), any_flag(),
                         any_of({LengthFactors::computed, LengthFactors::one}),
                         any_optional([] { return any_between(0.1, 20); })};
  });
  model.analysis = any_analysis();
  model.envelopes = any_flag() ? Envelopes::states : Envelopes::extremes;
  for (const Number number : {3U, 1U}) {
    model.materials.add(any_material(number));
    model.sections.add(any_section(number));
  }
  add_structure(model);
  add_loads(model);
  add_limits(model);
  add_forces(model);
  return model;
}

}  // namespace aluframe::io
