#include "aluframe/starting/builder.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "aluframe/catalogue/alloys.h"

namespace aluframe::starting {

namespace {

constexpr double metre = 1000.0;

}  // namespace

Builder::Builder(std::string title, std::string description, std::string_view rule,
                 std::string_view alloy) {
  model_.title = std::move(title);
  model_.description = std::move(description);
  model_.design.emplace();
  model_.design->rib = false;
  model_.finds_members = true;
  model_.combination_rule.emplace();
  model_.combination_rule->rule = rule;
  model::Material material = catalogue::material_of(*catalogue::find_alloy(alloy));
  material.number = 1;
  model_.materials.add(std::move(material));
}

model::Number Builder::node(std::string name, double x, double y, double z) {
  const auto number = static_cast<model::Number>(model_.nodes.size() + 1);
  model_.nodes.add({number, std::move(name), metre * x, metre * y, metre * z});
  return number;
}

void Builder::section(model::Number number, std::string name, model::Shape shape,
                      std::vector<double> dimensions) {
  model::Section section;
  section.number = number;
  section.name = std::move(name);
  section.shape = shape;
  std::ranges::copy(dimensions, section.dimensions.begin());
  for (std::size_t i = dimensions.size(); i < model::dimension_names(shape).size(); ++i) {
    section.dimensions[i] = model::default_dimension(shape, i, section.dimensions);
  }
  model_.sections.add(std::move(section));
}

model::Number Builder::element(std::string name, model::Number start, model::Number end,
                               model::Number section) {
  model::Element element;
  element.number = static_cast<model::Number>(elements_.size() + 1);
  element.name = std::move(name);
  element.nodes = {start, end};
  element.section = section;
  element.material = 1;
  elements_.push_back(std::move(element));
  return elements_.back().number;
}

void Builder::make_truss() {
  elements_.back().kind = model::ElementKind::truss;
}

void Builder::turn(double beta) {
  elements_.back().beta = beta;
}

void Builder::use_buckling_modes() {
  if (!model_.frame) model_.frame.emplace();
  model_.frame->length_factors = model::LengthFactors::buckling;
}

void Builder::support(model::Number node, std::array<bool, 6> restrained) {
  model_.supports.push_back({node, restrained});
}

model::CaseLoads& Builder::load_case(std::string name, model::Action action) {
  model::LoadCase load_case;
  load_case.number = static_cast<model::Number>(cases_.size() + 1);
  load_case.name = std::move(name);
  load_case.action = std::move(action);
  cases_.push_back(std::move(load_case));
  return cases_.back().loads;
}

model::Model Builder::finish() {
  for (model::Element& element : elements_) model_.elements.add(std::move(element));
  for (model::LoadCase& load_case : cases_) model_.load_cases.add(std::move(load_case));
  return std::move(model_);
}

std::string size_text(double size) {
  return fmt::format("{:.4g}", size);
}

model::AreaLoad by_spacing(std::vector<model::Number> elements, double spacing,
                           model::LoadDirection direction, double pressure) {
  model::AreaLoad load;
  load.elements = {false, std::move(elements)};
  load.spacing = metre * spacing;
  load.direction = direction;
  load.pressure = per_area * pressure;
  return load;
}

}  // namespace aluframe::starting
