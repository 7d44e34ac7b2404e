#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

using model::LoadAxes;

std::string targets_text(const model::Targets& targets) {
  return targets.all ? json_string("all") : numbers_text(targets.numbers);
}

std::string_view direction_name(model::LoadDirection direction) {
  if (direction.axes == LoadAxes::projected) direction.axes = LoadAxes::global;
  return name_in(load_directions, direction);
}

/// Those components that are not 0.
template <std::size_t Size, class ScaleOf>
void append_components(JsonLine& line, std::span<const double, Size> components,
                       const std::array<NamedValue<std::size_t>, Size>& names, ScaleOf scale_of) {
  for (const auto& [name, place] : names) {
    if (components[place] != 0.0) line.number(name, components[place], scale_of(place));
  }
}

std::string load_text(const model::NodalLoad& load, const Scales& scales) {
  JsonLine line = JsonLine().json("nodes", targets_text(load.nodes));
  append_components(line, std::span(load.components), nodal_components,
                    [&](std::size_t i) { return scales.of_component(i); });
  return line.str();
}

std::string load_text(const model::SpanLoad& load, const Scales& scales) {
  JsonLine line = JsonLine()
                      .json("elements", targets_text(load.elements))
                      .text("direction", direction_name(load.direction))
                      .flag_unless("projected", load.direction.axes == LoadAxes::projected, false);
  if (load.from_value == load.to_value) {
    line.number("value", load.from_value, scales.per_length);
  } else {
    const std::array values{number_text(load.from_value, scales.per_length),
                            number_text(load.to_value, scales.per_length)};
    line.json("values", json_list(values));
  }
  return line.number_unless("from", load.from, 0.0).number_unless("to", load.to, 1.0).str();
}

std::string load_text(const model::PointLoad& load, const Scales& scales) {
  const bool is_force = load.kind == model::PointLoad::Kind::force;
  return JsonLine()
      .json("elements", targets_text(load.elements))
      .text("direction", direction_name(load.direction))
      .number("at", load.at)
      .number(is_force ? "force" : "moment", load.value, is_force ? scales.force : scales.moment)
      .str();
}

std::string load_text(const model::TemperatureLoad& load, const Scales& /*scales*/) {
  return JsonLine()
      .json("elements", targets_text(load.elements))
      .number_unless("change", load.change, 0.0)
      .number_unless("difference_y", load.difference_y, 0.0)
      .number_unless("difference_z", load.difference_z, 0.0)
      .str();
}

std::string load_text(const model::Settlement& settlement, const Scales& scales) {
  JsonLine line = JsonLine().number("node", settlement.node);
  append_components(line, std::span(settlement.displacements), support_directions,
                    [&](std::size_t i) { return scales.of_displacement(i); });
  return line.str();
}

bool has_self_weight(const model::CaseLoads& loads) {
  return loads.self_weight != std::array<double, 3>{};
}

void append_self_weight(JsonLine& line, const model::CaseLoads& loads) {
  if (!has_self_weight(loads)) return;
  const auto [x, y, z] = loads.self_weight;
  if (x == 0.0 && y == 0.0) {
    line.number("self_weight", -z);
    return;
  }
  JsonLine factors;
  append_components(factors, std::span(loads.self_weight), global_axes,
                    [](std::size_t /*place*/) { return 1.0; });
  line.json("self_weight", factors.str());
}

std::string load_text(const model::AreaLoad& load, const Scales& scales) {
  return area_load_line(load, scales);
}

/// Those that are written as such: what loads per area become follows from these.
std::vector<model::SpanLoad> own_span_loads(const model::CaseLoads& loads) {
  std::vector<model::SpanLoad> own = loads.span;
  std::erase_if(own, [](const model::SpanLoad& load) { return load.of_area.has_value(); });
  return own;
}

std::size_t number_of_loads(const model::CaseLoads& loads) {
  return (has_self_weight(loads) ? 1U : 0U) + loads.nodal.size() + loads.area.size() +
         own_span_loads(loads).size() + loads.points.size() + loads.temperature.size() +
         loads.settlements.size();
}

/// A load a line, within the list of load cases of the top level.
std::string list_of_lines(std::span<const std::string> loads) {
  std::string text = "[";
  for (const std::string& load : loads) {
    text += text.size() > 1 ? ",\n      " : "\n      ";
    text += load;
  }
  return text + "\n    ]";
}

}  // namespace

void append_case_loads(JsonLine& line, const model::CaseLoads& loads, const Scales& scales) {
  const bool has_one_line = number_of_loads(loads) <= 1;
  const auto append = [&](std::string_view field, const auto& list) {
    if (list.empty()) return;
    std::vector<std::string> texts;
    texts.reserve(list.size());
    for (const auto& load : list) texts.push_back(load_text(load, scales));
    line.json(field, has_one_line ? json_list(texts) : list_of_lines(texts));
  };
  append_self_weight(line, loads);
  append("nodal", loads.nodal);
  append("area", loads.area);
  append("span", own_span_loads(loads));
  append("points", loads.points);
  append("temperature", loads.temperature);
  append("settlements", loads.settlements);
}

}  // namespace aluframe::io
