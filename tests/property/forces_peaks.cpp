// Forces between the five positions of a beam under any loads, and the peaks that are found there.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/unit/aluframe/forces/peaks.h"

namespace aluframe::forces {
namespace {

double number_between(double low, double high) {
  return low + (high - low) * *rc::gen::inRange(0, 10001) / 10000.0;
}

bool by_chance(int percent) {
  return *rc::gen::inRange(0, 100) < percent;
}

/// Any direction; a force at a point is not projected.
model::LoadDirection any_direction(bool may_be_projected) {
  const auto axes = *rc::gen::element(model::LoadAxes::local, model::LoadAxes::global,
                                      model::LoadAxes::projected);
  const bool is_projected = axes == model::LoadAxes::projected;
  return {is_projected && !may_be_projected ? model::LoadAxes::global : axes,
          *rc::gen::inRange<std::size_t>(0, 3)};
}

model::CaseLoads any_loads() {
  model::CaseLoads loads;
  if (by_chance(30)) loads.self_weight = {0, 0, -1};
  for (int i = *rc::gen::inRange(0, 4); i > 0; --i) {
    model::SpanLoad load;
    load.elements.all = true;
    load.direction = any_direction(true);
    load.from = by_chance(40) ? 0.0 : number_between(0, 0.9);
    load.to = by_chance(40) ? 1.0 : number_between(load.from + 0.05, 1.0);
    load.from_value = number_between(-8, 8);
    load.to_value = by_chance(40) ? load.from_value : number_between(-8, 8);
    loads.span.push_back(load);
  }
  for (int i = *rc::gen::inRange(0, 4); i > 0; --i) {
    model::PointLoad load;
    load.elements.all = true;
    load.direction = any_direction(false);
    load.kind = *rc::gen::element(model::PointLoad::Kind::force, model::PointLoad::Kind::moment);
    const double size = load.kind == model::PointLoad::Kind::force ? 9e3 : 5e6;
    load.value = number_between(-size, size);
    load.at = by_chance(30) ? 0.25 * *rc::gen::inRange(0, 5) : number_between(0, 1);
    loads.points.push_back(load);
  }
  model::NodalLoad end;
  end.nodes.numbers = {10};
  for (std::size_t i = 0; i < 6; ++i)
    end.components[i] = number_between(-1, 1) * (i < 3 ? 5e3 : 5e6);
  loads.nodal.push_back(end);
  return loads;
}

struct Beam {
  std::array<double, 3> end{};
  double beta = 0.0;
  std::array<bool, 6> far_support{};
  std::vector<model::CaseLoads> cases;
  std::vector<double> factors;
};

/// A clamped beam in any direction, by chance held at its far end too, with two load cases.
Beam any_beam() {
  Beam beam;
  beam.end = {number_between(1000, 5000), number_between(200, 3000),
              by_chance(30) ? 0.0 : number_between(-3000, 3000)};
  beam.beta = by_chance(50) ? 0.0 : number_between(-180, 180);
  for (bool& held : beam.far_support) held = by_chance(40);
  for (int i = 0; i < 2; ++i) {
    beam.cases.push_back(any_loads());
    beam.factors.push_back(number_between(-2, 2));
  }
  return beam;
}

/// Its nodes 20 and 10 with their supports.
model::Model without_elements(const Beam& beam) {
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, beam.end[0], beam.end[1], beam.end[2]);
  add_support(model, 20, clamped);
  if (std::ranges::find(beam.far_support, true) != beam.far_support.end()) {
    add_support(model, 10, beam.far_support);
  }
  return model;
}

void add_beam(model::Model& model, const Beam& beam, model::Number number, model::Number start,
              model::Number end) {
  model::Element element = forces::beam(number, start, end);
  element.beta = beam.beta;
  model.elements.add(element);
}

void add_cases(model::Model& model, const Beam& beam, const std::vector<model::CaseLoads>& cases) {
  for (const model::CaseLoads& loads : cases) add_case(model, loads);
  add_sum(model, {{1, beam.factors[0]}, {2, beam.factors[1]}});
}

model::Model whole(const Beam& beam) {
  model::Model model = without_elements(beam);
  add_beam(model, beam, 5, 20, 10);
  add_cases(model, beam, beam.cases);
  return with_forces(std::move(model));
}

double value_at(const model::SpanLoad& load, double place) {
  return load.from_value +
         (load.to_value - load.from_value) * (place - load.from) / (load.to - load.from);
}

/// Loads of the beam on its two parts, elements 5 and 6.
model::CaseLoads split_loads(const model::CaseLoads& loads, double split) {
  model::CaseLoads out = loads;
  out.span.clear();
  out.points.clear();
  for (const model::SpanLoad& load : loads.span) {
    model::SpanLoad part = load;
    const auto add = [&](model::Number element, double from, double to, double start,
                         double length) {
      if (from >= to) return;
      part.elements = {false, {element}};
      part.from_value = value_at(load, from);
      part.to_value = value_at(load, to);
      part.from = std::max((from - start) / length, 0.0);
      part.to = std::min((to - start) / length, 1.0);
      out.span.push_back(part);
    };
    add(5, load.from, std::min(load.to, split), 0.0, split);
    add(6, std::max(load.from, split), load.to, split, 1.0 - split);
  }
  for (model::PointLoad load : loads.points) {
    const bool is_first = load.at <= split;
    load.elements = {false, {is_first ? 5U : 6U}};
    load.at = is_first ? load.at / split : (load.at - split) / (1.0 - split);
    out.points.push_back(load);
  }
  return out;
}

model::Model split_at(const Beam& beam, double split) {
  model::Model model = without_elements(beam);
  add_node(model, 30, split * beam.end[0], split * beam.end[1], split * beam.end[2]);
  add_beam(model, beam, 5, 20, 30);
  add_beam(model, beam, 6, 30, 10);
  std::vector<model::CaseLoads> cases;
  for (const model::CaseLoads& loads : beam.cases) cases.push_back(split_loads(loads, split));
  add_cases(model, beam, cases);
  return with_forces(std::move(model));
}

model::CaseForces five_of(const model::Model& model, std::size_t element) {
  return model::CombinationEvaluator(model).evaluate(element, 1, model::Side::maximum).value();
}

std::vector<model::CombinationPlan::CaseFactor> cases_of(const Beam& beam) {
  return {{0, beam.factors[0]}, {1, beam.factors[1]}};
}

/// Largest force and moment of a beam, N·mm over its length: what single precision refers to.
double size_of(const model::CaseForces& five, double length) {
  double size = 0.0;
  for (const model::SectionForces& at : five.at) {
    for (std::size_t i = 0; i < 6; ++i) {
      size = std::max(size, std::abs(double{at[i]}) * (i < 3 ? length : 1.0));
    }
  }
  return size;
}

double length_of(const Beam& beam) {
  return std::hypot(beam.end[0], beam.end[1], beam.end[2]);
}

RC_GTEST_PROP(ForcesBetweenPositions, AreThoseOfANodeThatIsPutThere, ()) {
  const Beam beam = any_beam();
  const double split = number_between(0.02, 0.98), length = length_of(beam);
  // A force at the node itself would be on one side of it or the other.
  for (const model::CaseLoads& loads : beam.cases) {
    for (const model::PointLoad& load : loads.points) RC_PRE(std::abs(load.at - split) > 1e-6);
  }
  const model::Model one = whole(beam), two = split_at(beam, split);
  const model::CaseForces five = five_of(one, 0);
  const auto found = InnerForces(one).forces_at(0, cases_of(beam), five, split * length);
  const model::CaseForces first = five_of(two, 0), second = five_of(two, 1);
  // Single precision of forces at the start, carried over the length.
  const double size = size_of(five, length) + size_of(first, length) + size_of(second, length);
  for (std::size_t i = 0; i < 6; ++i) {
    const double tolerance = 1e-6 * (i < 3 ? size / length : size);
    RC_ASSERT(std::abs(found[i] - double{first.at[4][i]}) <= tolerance);
    RC_ASSERT(std::abs(found[i] - double{second.at[0][i]}) <= tolerance);
  }
}

/// The components of a section, then N·wN ± My·wMy ± Mz·wMz.
std::array<double, 10> quantities(const std::array<double, 6>& f, const Weights& w) {
  const double n = w.n * f[0], y = w.my * f[4], z = w.mz * f[5];
  return {f[0], f[1], f[2], f[3], f[4], f[5], n + y + z, n + y - z, n - y + z, n - y - z};
}

RC_GTEST_PROP(PeaksBetweenPositions, AreNotExceededAnywhere, ()) {
  const Beam beam = any_beam();
  const double length = length_of(beam);
  const Weights weights{1.0 / 2000, 1.0 / number_between(2e4, 2e5), 1.0 / number_between(2e4, 2e5)};
  const model::Model model = whole(beam);
  const model::CaseForces five = five_of(model, 0);
  const InnerForces inner(model);
  std::vector<PlaceForces> places;
  inner.peaks(0, 1, model::Side::maximum, five, {&weights, 1}, places);

  std::array<double, 10> high{}, low{}, high_found{}, low_found{};
  high.fill(-INFINITY);
  low.fill(INFINITY);
  high_found = high;
  low_found = low;
  const auto extend = [&](auto& above, auto& below, const std::array<double, 6>& forces) {
    const auto values = quantities(forces, weights);
    for (std::size_t i = 0; i < values.size(); ++i) {
      above[i] = std::max(above[i], values[i]);
      below[i] = std::min(below[i], values[i]);
    }
  };
  for (const model::SectionForces& at : five.at) {
    std::array<double, 6> forces{};
    std::ranges::copy(at, forces.begin());
    extend(high, low, forces);
  }
  for (const PlaceForces& place : places) extend(high_found, low_found, place.forces);

  const double force = size_of(five, length) / length, moment = size_of(five, length);
  const auto size = quantities({force, force, force, moment, moment, moment}, weights);
  for (int i = 0; i <= 2000; ++i) {
    const double x = length * i / 2000;
    for (const PlaceSide side : {PlaceSide::towards_start, PlaceSide::towards_end}) {
      if (i == 2000 && side == PlaceSide::towards_end) continue;
      const auto values = quantities(inner.forces_at(0, cases_of(beam), five, x, side), weights);
      for (std::size_t k = 0; k < values.size(); ++k) {
        // Found extremes are exact; at a position, single precision leaves 1e-6 of the largest.
        const double scale = size[k < 6 ? k : 6];
        RC_ASSERT(values[k] <= std::max(high_found[k] + 1e-9 * scale, high[k] + 2e-6 * scale));
        RC_ASSERT(values[k] >= std::min(low_found[k] - 1e-9 * scale, low[k] - 2e-6 * scale));
      }
    }
  }
  RC_CLASSIFY(places.empty());
}

}  // namespace
}  // namespace aluframe::forces
