#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "aluframe/io/load_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto axis_fields = std::to_array<std::string_view>({"X", "Y", "Z"});
constexpr auto nodal_fields =
    std::to_array<std::string_view>({"nodes", "Fx", "Fy", "Fz", "Mx", "My", "Mz"});
constexpr auto temperature_fields =
    std::to_array<std::string_view>({"elements", "change", "difference_y", "difference_z"});
constexpr auto settlement_fields =
    std::to_array<std::string_view>({"node", "Dx", "Dy", "Dz", "Rx", "Ry", "Rz"});

double no_unit(std::size_t /*place*/) {
  return 1.0;
}

/// A bare factor is one of the weight as it is, which acts along -Z.
std::array<double, 3> read_self_weight(const JsonValue& value) {
  if (value.kind() == JsonValue::Kind::number) return {0.0, 0.0, -read_not_zero(value)};
  if (value.kind() != JsonValue::Kind::object) {
    value.fail_with(texts::translated("must be a number, or an object of X, Y and Z"));
  }
  return read_components(JsonObject(value, axis_fields), global_axes, no_unit);
}

model::NodalLoad read_nodal_load(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, nodal_fields);
  model::NodalLoad load;
  object.part(
      [&] { load.nodes = read_targets(object.required("nodes"), context.model.nodes, "node"); });
  load.components = read_components(object, nodal_components,
                                    [&](std::size_t i) { return context.scales.of_component(i); });
  return load;
}

model::TemperatureLoad read_temperature_load(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, temperature_fields);
  model::TemperatureLoad load;
  object.part([&] { load.elements = read_elements_of_load(object, context); });
  const std::array values = read_components(object, temperature_components, no_unit);
  load.change = values[0];
  load.difference_y = values[1];
  load.difference_z = values[2];
  for (const std::string_view field : {"difference_y", "difference_z"}) {
    const auto difference = object.optional(field);
    if (!difference || difference->number() == 0.0) continue;
    require_beams(*difference, load.elements, context, texts::translated("which does not bend"));
  }
  return load;
}

using SupportOfNode = std::unordered_map<model::Number, const model::Support*>;

model::Settlement read_settlement(const JsonValue& value, const LoadContext& context,
                                  const SupportOfNode& supports) {
  const JsonObject object(value, settlement_fields);
  model::Settlement settlement;
  settlement.node = read_reference(object.required("node"), context.model.nodes, "node");
  settlement.displacements = read_components(
      object, support_directions, [&](std::size_t i) { return context.scales.of_displacement(i); });
  const auto support = supports.find(settlement.node);
  for (const auto& [name, direction] : support_directions) {
    const auto given = object.optional(name);
    if (!given) continue;
    if (support == supports.end() || !support->second->restrained[direction]) {
      const auto& lost = context.model.supports;
      if (may_be_lost(*given, &lost, settlement.node)) throw FollowsFromFault{};
      given->fail(
          texts::translated("node {} is not restrained in this direction", settlement.node));
    }
  }
  return settlement;
}

std::vector<model::Settlement> read_settlements(const JsonValue& list, const LoadContext& context) {
  SupportOfNode supports;
  for (const model::Support& support : context.model.supports) {
    supports.emplace(support.node, &support);
  }
  std::vector<model::Settlement> settlements;
  std::unordered_set<model::Number> settled;
  read_items(list, [&](const JsonValue& value) {
    settlements.push_back(read_settlement(value, context, supports));
    const model::Number node = settlements.back().node;
    if (!settled.insert(node).second) {
      value.fail(texts::translated("node {} has a settlement in this load case already", node));
    }
  });
  return settlements;
}

/// The loads of a list, none when the case does not have it.
template <class Load>
std::vector<Load> read_list(const JsonObject& load_case, std::string_view field,
                            const LoadContext& context,
                            Load (*read)(const JsonValue&, const LoadContext&)) {
  std::vector<Load> loads;
  const auto list = load_case.optional(field);
  if (!list) return loads;
  load_case.part([&] {
    read_items(*list, [&](const JsonValue& value) { loads.push_back(read(value, context)); });
  });
  return loads;
}

}  // namespace

model::CaseLoads read_case_loads(const JsonObject& load_case, const Scales& scales,
                                 const model::Model& model) {
  const LoadContext context{scales, model};
  model::CaseLoads loads;
  load_case.part([&] {
    if (const auto weight = load_case.optional("self_weight"))
      loads.self_weight = read_self_weight(*weight);
  });
  loads.nodal = read_list(load_case, "nodal", context, read_nodal_load);
  loads.span = read_list(load_case, "span", context, read_span_load);
  load_case.part([&] { read_area_loads(load_case, context, loads); });
  loads.points = read_list(load_case, "points", context, read_point_load);
  loads.temperature = read_list(load_case, "temperature", context, read_temperature_load);
  load_case.part([&] {
    if (const auto list = load_case.optional("settlements"))
      loads.settlements = read_settlements(*list, context);
  });
  return loads;
}

}  // namespace aluframe::io
