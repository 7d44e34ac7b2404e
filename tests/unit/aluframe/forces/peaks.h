#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "aluframe/forces/inner_forces.h"
#include "tests/unit/aluframe/forces/models.h"

namespace aluframe::forces {

/// Adds a linear combination of load cases, each with its factor, numbered from 1.
inline void add_sum(model::Model& model, const std::vector<std::pair<model::Number, double>>& of) {
  model::Combination combination;
  combination.number = static_cast<model::Number>(model.combinations.size() + 1);
  for (const auto& [load_case, factor] : of) {
    combination.terms.push_back({model::CombinationTerm::Source::load_case, load_case, factor});
  }
  model.combinations.add(combination);
}

/// Peaks of the first element under the combination, from forces that the model has.
inline std::vector<PlaceForces> peaks_of(const model::Model& model, model::Number combination = 1,
                                         const std::vector<Weights>& weights = {},
                                         model::Side side = model::Side::maximum) {
  const auto five = model::CombinationEvaluator(model).evaluate(0, combination, side);
  if (!five) throw std::runtime_error("no forces");
  std::vector<PlaceForces> out;
  InnerForces(model).peaks(0, combination, side, *five, weights, out);
  return out;
}

/// The same with the forces computed, of one case with these loads.
inline std::vector<PlaceForces> peaks_under(model::Model model, const model::CaseLoads& loads,
                                            const std::vector<Weights>& weights = {}) {
  add_case(model, loads);
  add_sum(model, {{1, 1.0}});
  return peaks_of(with_forces(std::move(model)), 1, weights);
}

/// A load along a local axis of all elements, linear over a part of them.
inline model::SpanLoad partial(std::size_t axis, double from, double to, double from_value,
                               double to_value) {
  model::SpanLoad load;
  load.elements.all = true;
  load.direction = {model::LoadAxes::local, axis};
  load.from = from;
  load.to = to;
  load.from_value = from_value;
  load.to_value = to_value;
  return load;
}

inline model::CaseLoads only(const model::SpanLoad& load) {
  model::CaseLoads loads;
  loads.span.push_back(load);
  return loads;
}

/// A force or moment along a local axis at a part of the length of all elements.
inline model::CaseLoads point(model::PointLoad::Kind kind, std::size_t axis, double value,
                              double at) {
  model::CaseLoads loads;
  model::PointLoad load;
  load.elements.all = true;
  load.direction = {model::LoadAxes::local, axis};
  load.kind = kind;
  load.value = value;
  load.at = at;
  loads.points.push_back(load);
  return loads;
}

/// A beam clamped at its start and on a roller at its end.
inline model::Model propped_beam(double length) {
  model::Model out = straight_beam(length);
  add_support(out, 20, clamped);
  add_support(out, 10, {false, true, true, false, false, false});
  return out;
}

/// A place and one component there, as close as forces in single precision come.
inline void expect_place(const PlaceForces& found, double x, Component component, double value) {
  // An extreme of a cubic: the place depends on the shear force, which is rounded to 6e-8.
  EXPECT_NEAR(found.x, x, 1e-5 * x + 1e-9);
  EXPECT_NEAR(found.forces[component], value, 1e-6 * std::abs(value));
}

}  // namespace aluframe::forces
