#pragma once

#include <vector>

#include "aluframe/deflections/deflection_search.h"
#include "tests/unit/aluframe/forces/models.h"

/// Deflections of the small models that forces are tested on.
namespace aluframe::deflections {

using namespace aluframe::forces;  // the models

/// The first case of a model, times a factor, as combination 1.
inline std::vector<State> first_case(double factor = 1.0) {
  return {{1, {{0, factor}}}};
}

/// Of the only span, along y (0) or z (1).
inline AxisDeflection only_span(const model::Model& model, std::size_t axis,
                                const std::vector<State>& states = first_case()) {
  const Deflections found = find_deflections(model, states);
  if (found.of_spans.size() != 1 || !found.unknown.empty())
    throw std::runtime_error("not one span");
  return found.of_spans[0][axis];
}

/// Cut into equal elements, numbered from 1, of one member 7; the last may be the shorter piece.
inline model::Model cut(const model::Model& whole, int pieces) {
  model::Model out = whole;
  const model::Element element = out.elements[0];
  const model::Node start = *out.nodes.find(element.nodes[0]);
  const model::Node end = *out.nodes.find(element.nodes[1]);
  out.elements = {};
  model::Member member;
  member.number = 7;
  for (int i = 0; i < pieces; ++i) {
    const auto node_at = [&](int k) -> model::Number {
      if (k == 0) return start.number;
      return k == pieces ? end.number : static_cast<model::Number>(1000 + k);
    };
    const double t = static_cast<double>(i) / pieces;
    if (i > 0) {
      add_node(out, node_at(i), start.x + t * (end.x - start.x), start.y + t * (end.y - start.y),
               start.z + t * (end.z - start.z));
    }
    const auto number = static_cast<model::Number>(i + 1);
    model::Element piece = element;
    piece.number = number;
    piece.nodes = {node_at(i), node_at(i + 1)};
    out.elements.add(piece);
    member.elements.push_back(number);
  }
  out.members.add(member);
  return out;
}

/// As close as double precision lets a deflection of this size come.
inline auto near(double expected) {
  return testing::DoubleNear(expected, 1e-9 * std::abs(expected));
}

}  // namespace aluframe::deflections
