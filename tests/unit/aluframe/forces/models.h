#pragma once

#include <gmock/gmock.h>

#include <cmath>
#include <stdexcept>
#include <string>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// Places of the forces of a section.
enum Component { n, fy, fz, mx, my, mz };

inline constexpr std::array<bool, 6> clamped{true, true, true, true, true, true};
inline constexpr std::array<bool, 6> pinned{true, true, true, false, false, false};

/// E·Iyy and E·Izz of `plain_section` in the usual alloy, N·mm².
inline constexpr double ei_y = 70000.0 * 1.2e7, ei_z = 70000.0 * 3.0e6;

/// Given by its properties, so rigid in shear; 100 mm wide and 240 mm high.
inline model::Section plain_section(model::Number number = 1) {
  model::Section section;
  section.number = number;
  section.given.area = 2000.0;
  section.given.it = 4.0e5;
  section.given.iyy = 1.2e7;
  section.given.izz = 3.0e6;
  section.given.point_y = {-50.0, 50.0, 50.0, -50.0};
  section.given.point_z = {120.0, 120.0, -120.0, -120.0};
  return section;
}

/// One material and one section, both number 1; nothing else.
inline model::Model bare_model() {
  model::Model out;
  model::Material material;
  material.number = 1;
  out.materials.add(material);
  out.sections.add(plain_section());
  return out;
}

inline void add_node(model::Model& model, model::Number number, double x, double y, double z) {
  model.nodes.add({number, "", x, y, z});
}

inline model::Element beam(model::Number number, model::Number start, model::Number end) {
  model::Element out;
  out.number = number;
  out.nodes = {start, end};
  out.section = out.material = 1;
  return out;
}

inline model::Element truss(model::Number number, model::Number start, model::Number end) {
  model::Element out = beam(number, start, end);
  out.kind = model::ElementKind::truss;
  return out;
}

inline void add_support(model::Model& model, model::Number node, const std::array<bool, 6>& held) {
  model.supports.push_back({node, held, {}});
}

/// Adds a case, numbered from 1.
inline void add_case(model::Model& model, const model::CaseLoads& loads) {
  model::LoadCase load_case;
  load_case.number = static_cast<model::Number>(model.load_cases.size() + 1);
  load_case.loads = loads;
  model.load_cases.add(load_case);
}

/// A beam along X, element 5 from node 20 to node 10, without supports.
inline model::Model straight_beam(double length) {
  model::Model out = bare_model();
  add_node(out, 20, 0, 0, 0);
  add_node(out, 10, length, 0, 0);
  out.elements.add(beam(5, 20, 10));
  return out;
}

/// The same on a fork at its start and a roller at its end.
inline model::Model simple_beam(double length) {
  model::Model out = straight_beam(length);
  add_support(out, 20, {true, true, true, true, false, false});
  add_support(out, 10, {false, true, true, false, false, false});
  return out;
}

/// The same clamped at both ends.
inline model::Model clamped_beam(double length) {
  model::Model out = straight_beam(length);
  add_support(out, 20, clamped);
  add_support(out, 10, clamped);
  return out;
}

/// A load along an axis, uniform over the whole of the listed elements; none listed: all.
inline model::SpanLoad uniform(model::LoadDirection direction, double value,
                               std::vector<model::Number> elements = {}) {
  model::SpanLoad load;
  load.elements = {elements.empty(), std::move(elements)};
  load.direction = direction;
  load.from_value = load.to_value = value;
  return load;
}

inline constexpr model::LoadDirection downwards{model::LoadAxes::global, 2};

/// What stands in the way of the model's forces; empty: nothing, and the model has them now.
inline std::string problem_of(model::Model& model) {
  const auto computed = compute_forces(model);
  const auto* problem = std::get_if<analysis::Problem>(&computed);
  return problem == nullptr ? "" : problem->text;
}

/// Computes the forces of the model's cases; a problem ends the test.
inline model::Model with_forces(model::Model model) {
  const std::string problem = problem_of(model);
  if (!problem.empty()) throw std::runtime_error(problem);
  return model;
}

/// Forces of an element in a case at a position, both by number; none end the test.
inline model::SectionForces forces_at(const model::Model& model, model::Number element,
                                      std::size_t position, model::Number load_case = 1) {
  const model::CaseForces* forces =
      model.forces.find(model.elements.position(element), model.load_cases.position(load_case));
  if (forces == nullptr) throw std::runtime_error("no forces");
  return forces->at[position];
}

/// As close as forces in single precision come to a number of this size.
inline auto about(double expected) {
  return testing::FloatNear(static_cast<float>(expected),
                            static_cast<float>(1e-6 * std::abs(expected)));
}

}  // namespace aluframe::forces
