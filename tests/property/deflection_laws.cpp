// Deflections of first order are linear in the loads, do not depend on the order of load cases and
// states, and are those of each element cut into 64, as far as the rounding of so fine a mesh lets
// it be seen.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "tests/unit/aluframe/deflections/searches.h"

namespace aluframe::deflections {
namespace {

double any_between(double low, double high) {
  return low + (high - low) * *rc::gen::inRange(0, 1'000'001) / 1e6;
}

bool any_flag() {
  return *rc::gen::arbitrary<bool>();
}

/// A chain of up to four beams in space, each a member, clamped at its start and held at its end.
model::Model any_chain() {
  model::Model model = bare_model();
  const int count = *rc::gen::inRange(1, 5);
  // One hinge at most, within the chain: it stays stiff.
  const int hinged = *rc::gen::inRange(0, count);
  for (int i = 0; i <= count; ++i) {
    add_node(model, static_cast<model::Number>(i + 1), 2000.0 * i + any_between(-500, 500),
             any_between(-1500, 1500), any_between(-1500, 1500));
  }
  for (int i = 1; i <= count; ++i) {
    const auto number = static_cast<model::Number>(i);
    model::Element element = beam(number, number, number + 1);
    element.beta = any_between(-90, 90);
    element.released[11] = i == hinged;
    model.elements.add(element);
    model::Member member;
    member.number = number;
    member.elements = {number};
    model.members.add(member);
  }
  add_support(model, 1, clamped);
  add_support(model, static_cast<model::Number>(count + 1), {true, true, true, true, false, false});
  return model;
}

model::LoadDirection any_direction() {
  return {any_flag() ? model::LoadAxes::global : model::LoadAxes::local,
          *rc::gen::inRange<std::size_t>(0, 3)};
}

/// On each element a load that changes along it, a force, and a temperature that bends it.
model::CaseLoads any_loads(const model::Model& model) {
  model::CaseLoads loads;
  for (const model::Element& element : model.elements) {
    const model::Targets target{false, {element.number}};
    model::SpanLoad span;
    span.elements = target;
    span.direction = any_direction();
    span.from_value = any_between(-5, 5);
    span.to_value = any_between(-5, 5);
    loads.span.push_back(span);
    model::PointLoad point;
    point.elements = target;
    point.direction = any_direction();
    point.value = any_between(-5000, 5000);
    point.at = *rc::gen::inRange(1, 64) / 64.0;
    loads.points.push_back(point);
    model::TemperatureLoad temperature;
    temperature.elements = target;
    temperature.change = any_between(-30, 30);
    temperature.difference_y = any_between(-30, 30);
    temperature.difference_z = any_between(-30, 30);
    loads.temperature.push_back(temperature);
  }
  return loads;
}

constexpr int pieces = 64;

/// Number of a piece of an element, and of the node where it ends.
model::Number piece_number(model::Number element, int piece) {
  return 1000 * element + static_cast<model::Number>(piece);
}

/// The same loads on the pieces of the elements; point loads act at nodes.
model::CaseLoads loads_of_pieces(const model::CaseLoads& whole) {
  model::CaseLoads out;
  for (const model::SpanLoad& load : whole.span) {
    for (int i = 0; i < pieces; ++i) {
      model::SpanLoad piece = load;
      piece.elements.numbers = {piece_number(load.elements.numbers[0], i)};
      const double slope = (load.to_value - load.from_value) / pieces;
      piece.from_value = load.from_value + slope * i;
      piece.to_value = load.from_value + slope * (i + 1);
      out.span.push_back(piece);
    }
  }
  for (const model::PointLoad& load : whole.points) {
    model::PointLoad piece = load;
    const int place = static_cast<int>(std::lround(load.at * pieces));
    piece.elements.numbers = {piece_number(load.elements.numbers[0], place)};
    piece.at = 0.0;
    out.points.push_back(piece);
  }
  for (const model::TemperatureLoad& load : whole.temperature) {
    model::TemperatureLoad piece = load;
    piece.elements.numbers.clear();
    for (int i = 0; i < pieces; ++i) {
      piece.elements.numbers.push_back(piece_number(load.elements.numbers[0], i));
    }
    out.temperature.push_back(piece);
  }
  return out;
}

/// Every element as a member of 64.
model::Model in_pieces(const model::Model& whole) {
  model::Model out = whole;
  out.elements = {};
  out.members = {};
  for (const model::Element& element : whole.elements) {
    const model::Node start = *whole.nodes.find(element.nodes[0]);
    const model::Node end = *whole.nodes.find(element.nodes[1]);
    model::Member member;
    member.number = element.number;
    for (int i = 0; i < pieces; ++i) {
      model::Element piece = element;
      piece.number = piece_number(element.number, i);
      piece.nodes = {i == 0 ? start.number : piece_number(element.number, i),
                     i + 1 == pieces ? end.number : piece_number(element.number, i + 1)};
      piece.released = {};
      if (i + 1 == pieces) piece.released = element.released;
      if (i > 0) {
        const double t = static_cast<double>(i) / pieces;
        add_node(out, piece_number(element.number, i), start.x + t * (end.x - start.x),
                 start.y + t * (end.y - start.y), start.z + t * (end.z - start.z));
      }
      out.elements.add(piece);
      member.elements.push_back(piece.number);
    }
    out.members.add(member);
  }
  return out;
}

/// The largest deflection of all, for a scale.
double size_of(const Deflections& found) {
  double size = 0.0;
  for (const auto& of_span : found.of_spans) {
    for (const AxisDeflection& axis : of_span) {
      size = std::max({size, std::abs(axis.relative.value), std::abs(axis.absolute.value)});
    }
  }
  return size;
}

void require_same(const Deflections& a, const Deflections& b, double factor, double tolerance) {
  RC_ASSERT(a.unknown.empty());
  RC_ASSERT(b.unknown.empty());
  RC_ASSERT(a.of_spans.size() == b.of_spans.size());
  const double size = size_of(b);
  for (std::size_t i = 0; i < a.of_spans.size(); ++i) {
    for (std::size_t axis = 0; axis < 2; ++axis) {
      // Of two equal ones of opposite sides either may be told.
      const AxisDeflection &left = a.of_spans[i][axis], &right = b.of_spans[i][axis];
      RC_ASSERT(std::abs(factor * std::abs(left.relative.value) - std::abs(right.relative.value)) <=
                tolerance * size);
      RC_ASSERT(std::abs(factor * std::abs(left.absolute.value) - std::abs(right.absolute.value)) <=
                tolerance * size);
    }
  }
}

RC_GTEST_PROP(Deflections, AreLinearInTheLoads, ()) {
  model::Model model = any_chain();
  add_case(model, any_loads(model));
  const double factor = any_between(0.1, 10);
  require_same(find_deflections(model, first_case()), find_deflections(model, first_case(-factor)),
               factor, 1e-11);
}

RC_GTEST_PROP(Deflections, DoNotDependOnTheOrderOfCasesAndStates, ()) {
  model::Model model = any_chain();
  const std::vector<model::CaseLoads> cases{any_loads(model), any_loads(model), any_loads(model)};
  model::Model turned = model;
  for (std::size_t i = 0; i < 3; ++i) {
    add_case(model, cases[i]);
    add_case(turned, cases[2 - i]);
  }
  const std::vector<State> states{{1, {{0, 1.0}, {1, any_between(-1, 1)}}},
                                  {2, {{2, 1.0}, {1, any_between(-1, 1)}}}};
  std::vector<State> of_turned{states[1], states[0]};
  for (State& state : of_turned) {
    for (auto& entry : state.loads) entry.load_case = 2 - entry.load_case;
  }
  require_same(find_deflections(model, states), find_deflections(turned, of_turned), 1.0, 1e-11);
}

RC_GTEST_PROP(Deflections, AreThoseOfElementsCutInto64, ()) {
  model::Model whole = any_chain();
  const model::CaseLoads loads = any_loads(whole);
  model::Model cut = in_pieces(whole);
  add_case(whole, loads);
  add_case(cut, loads_of_pieces(loads));
  require_same(find_deflections(whole, first_case()), find_deflections(cut, first_case()), 1.0,
               1e-7);
}

}  // namespace
}  // namespace aluframe::deflections
