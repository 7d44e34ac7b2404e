#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "aluframe/area_loads/line_loads.h"

/// Frames of nodes and elements alone, and what loads on them add up to.
namespace aluframe::area_loads {

using Vector = std::array<double, 3>;

/// Nodes 1, 2, ... at the points, and elements 1, 2, ... between pairs of them.
inline model::Model frame_of(const std::vector<Vector>& points,
                             const std::vector<std::pair<model::Number, model::Number>>& elements) {
  model::Model model;
  for (const Vector& p : points) {
    const auto number = static_cast<model::Number>(model.nodes.size() + 1);
    model.nodes.add({.number = number, .name = {}, .x = p[0], .y = p[1], .z = p[2]});
  }
  for (const auto& [start, end] : elements) {
    model::Element element;
    element.number = static_cast<model::Number>(model.elements.size() + 1);
    element.nodes = {start, end};
    model.elements.add(element);
  }
  return model;
}

/// A force and its moments about the origin.
struct Sum {
  Vector force{}, moment{};
};

inline void add_force(Sum& sum, const Vector& at, const Vector& force) {
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
    sum.force[i] += force[i];
    sum.moment[i] += at[j] * force[k] - at[k] * force[j];
  }
}

/// What line loads along global axes, per length of the element, add up to.
inline Sum sum_of(const model::Model& model, const std::vector<model::SpanLoad>& loads) {
  Sum sum;
  for (const model::SpanLoad& load : loads) {
    EXPECT_EQ(load.direction.axes, model::LoadAxes::global);
    const model::Element& element = *model.elements.find(load.elements.numbers.at(0));
    const model::Node& start = *model.nodes.find(element.nodes[0]);
    const model::Node& end = *model.nodes.find(element.nodes[1]);
    const Vector along{end.x - start.x, end.y - start.y, end.z - start.z};
    const double length = std::hypot(along[0], along[1], along[2]);
    // A trapezoid of loads is two triangles, each with its resultant at a third.
    const double half = 0.5 * length * (load.to - load.from);
    const std::array<std::pair<double, double>, 2> triangles{
        {{half * load.from_value, load.from + (load.to - load.from) / 3.0},
         {half * load.to_value, load.to - (load.to - load.from) / 3.0}}};
    for (const auto& [value, part] : triangles) {
      Vector force{};
      force[load.direction.axis] = value;
      add_force(sum,
                {start.x + part * along[0], start.y + part * along[1], start.z + part * along[2]},
                force);
    }
  }
  return sum;
}

inline std::vector<model::SpanLoad> loads_of(const model::Model& model,
                                             const model::AreaLoad& load) {
  auto loads = line_loads(model, load);
  if (const auto* fault = std::get_if<Fault>(&loads)) {
    ADD_FAILURE() << fault->field << ": " << fault->text;
    return {};
  }
  return std::get<std::vector<model::SpanLoad>>(std::move(loads));
}

/// "/region: has no area", or "no fault".
inline std::string fault_of(const model::Model& model, const model::AreaLoad& load) {
  const auto loads = line_loads(model, load);
  const auto* fault = std::get_if<Fault>(&loads);
  return fault == nullptr ? "no fault" : fault->field + ": " + fault->text;
}

/// A load of 1 N/mm² downwards on elements or, when it has corners, on the region of these nodes.
inline model::AreaLoad load_on(std::vector<model::Number> corners, bool is_two_way = false) {
  model::AreaLoad load;
  load.region.nodes = std::move(corners);
  load.direction = model::LoadDirection{model::LoadAxes::global, 2};
  load.pressure = -1.0;
  if (!is_two_way) load.span = Vector{0.0, 1.0, 0.0};
  return load;
}

}  // namespace aluframe::area_loads
