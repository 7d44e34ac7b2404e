#include "aluframe/model/orientation.h"

#include <cmath>

namespace aluframe::model {

namespace {

using Direction = std::array<double, 3>;

Direction between(const Node& from, const Node& to) {
  return {to.x - from.x, to.y - from.y, to.z - from.z};
}

double norm(const Direction& d) {
  return std::hypot(d[0], d[1], d[2]);
}

/// Unit vector; of a direction without length, that.
Direction normalised(const Direction& d) {
  const double length = norm(d);
  if (length == 0.0) return d;
  return {d[0] / length, d[1] / length, d[2] / length};
}

}  // namespace

std::optional<Direction> reference_direction(const Model& model, const Element& element) {
  if (!element.orientation) return std::nullopt;
  if (const auto* vector = std::get_if<Direction>(&*element.orientation)) return *vector;
  return between(*model.nodes.find(element.nodes[0]),
                 *model.nodes.find(std::get<Number>(*element.orientation)));
}

double sine_to_axis(const Model& model, const Element& element, const Direction& direction) {
  const Direction a =
      normalised(between(*model.nodes.find(element.nodes[0]), *model.nodes.find(element.nodes[1])));
  const Direction b = normalised(direction);
  return norm({a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]});
}

}  // namespace aluframe::model
