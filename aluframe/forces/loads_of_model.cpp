#include <algorithm>

#include "aluframe/forces/frame_of_model.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::forces {

namespace {

/// Calls `act` with the place of every target.
template <class Entity, class Act>
void for_each_target(const model::Targets& targets, const model::Table<Entity>& table, Act act) {
  if (targets.all) {
    for (std::size_t i = 0; i < table.size(); ++i) act(i);
  } else {
    for (const model::Number number : targets.numbers) act(table.position(number));
  }
}

analysis::LoadAxes axes_of(model::LoadAxes axes) {
  switch (axes) {
    case model::LoadAxes::local:
      return analysis::LoadAxes::local;
    case model::LoadAxes::global:
      return analysis::LoadAxes::global;
    case model::LoadAxes::projected:
      break;
  }
  return analysis::LoadAxes::projected;
}

analysis::Vector3 along(const model::LoadDirection& direction, double value) {
  analysis::Vector3 out{};
  out[direction.axis] = value;
  return out;
}

double extent(const std::array<double, 4>& points) {
  const auto [low, high] = std::ranges::minmax(points);
  return high - low;
}

void add_span(const model::Model& model, const model::SpanLoad& load, analysis::LoadCase& out) {
  for_each_target(load.elements, model.elements, [&](std::size_t element) {
    out.distributed.push_back({.element = element,
                               .axes = axes_of(load.direction.axes),
                               .from_value = along(load.direction, load.from_value),
                               .to_value = along(load.direction, load.to_value),
                               .from = load.from,
                               .to = load.to});
  });
}

void add_point(const model::Model& model, const model::PointLoad& load, analysis::LoadCase& out) {
  const analysis::Vector3 value = along(load.direction, load.value);
  const bool is_force = load.kind == model::PointLoad::Kind::force;
  for_each_target(load.elements, model.elements, [&](std::size_t element) {
    out.points.push_back({.element = element,
                          .axes = axes_of(load.direction.axes),
                          .force = is_force ? value : analysis::Vector3{},
                          .moment = is_force ? analysis::Vector3{} : value,
                          .at = load.at});
  });
}

void add_temperature(const model::Model& model, const model::TemperatureLoad& load,
                     analysis::LoadCase& out) {
  for_each_target(load.elements, model.elements, [&](std::size_t element) {
    const model::Section& section = *model.sections.find(model.elements[element].section);
    const model::SectionProperties properties = section::properties_of(section);
    out.temperatures.push_back({.element = element,
                                .change = load.change,
                                .difference_y = load.difference_y,
                                .depth_y = extent(properties.point_y),
                                .difference_z = load.difference_z,
                                .depth_z = extent(properties.point_z)});
  });
}

void add_settlement(const model::Model& model, const model::Settlement& load,
                    analysis::LoadCase& out) {
  const std::size_t node = model.nodes.position(load.node);
  for (std::size_t direction = 0; direction < load.displacements.size(); ++direction) {
    const double value = load.displacements[direction];
    if (value != 0.0) out.settlements.push_back({node, direction, value});
  }
}

}  // namespace

analysis::LoadCase loads_of(const model::Model& model, const model::LoadCase& load_case) {
  const model::CaseLoads& loads = load_case.loads;
  analysis::LoadCase out;
  out.self_weight = loads.self_weight;
  for (const model::NodalLoad& load : loads.nodal) {
    for_each_target(load.nodes, model.nodes,
                    [&](std::size_t node) { out.nodal.push_back({node, load.components}); });
  }
  for (const model::SpanLoad& load : loads.span) add_span(model, load, out);
  for (const model::PointLoad& load : loads.points) add_point(model, load, out);
  for (const model::TemperatureLoad& load : loads.temperature) add_temperature(model, load, out);
  for (const model::Settlement& load : loads.settlements) add_settlement(model, load, out);
  return out;
}

}  // namespace aluframe::forces
