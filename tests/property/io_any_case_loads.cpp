#include <algorithm>
#include <optional>
#include <utility>

#include "tests/property/io_any_model.h"
#include "tests/property/io_any_values.h"

namespace aluframe::io {

using namespace aluframe::model;

namespace {

/// Up to three loads of a kind.
template <class Make>
auto any_list(Make make) {
  std::vector<decltype(make())> loads;
  for (int count = *rc::gen::inRange(0, 4); count > 0; --count) loads.push_back(make());
  return loads;
}

double any_value() {
  return any_flag() ? any_between(-1e6, -1e-3) : any_between(1e-3, 1e6);
}

/// Values of which at least one is not 0.
template <std::size_t Size>
std::array<double, Size> any_values() {
  std::array<double, Size> values{};
  for (double& value : values) {
    if (any_flag()) value = any_value();
  }
  if (values == std::array<double, Size>{}) values[Size - 1] = any_value();
  return values;
}

/// Some of the entities in any order, at least one, or all.
Targets any_targets(std::vector<Number> numbers) {
  if (any_flag()) return {.all = true, .numbers = {}};
  const auto first = *rc::gen::inRange<std::size_t>(0, numbers.size());
  std::swap(numbers.front(), numbers[first]);
  numbers.resize(*rc::gen::inRange<std::size_t>(1, numbers.size() + 1));
  return {.all = false, .numbers = std::move(numbers)};
}

template <class Entity>
std::vector<Number> numbers_of(const Table<Entity>& table) {
  std::vector<Number> numbers;
  for (const Entity& entity : table) numbers.push_back(entity.number);
  return numbers;
}

std::vector<Number> beams_of(const Model& model) {
  std::vector<Number> numbers;
  for (const Element& element : model.elements) {
    if (element.kind == ElementKind::beam) numbers.push_back(element.number);
  }
  return numbers;
}

LoadDirection any_direction(std::initializer_list<LoadAxes> axes) {
  return {any_of(axes), *rc::gen::inRange<std::size_t>(0, 3)};
}

SpanLoad any_span_load(const std::vector<Number>& elements) {
  SpanLoad load{
      .elements = any_targets(elements),
      .direction = any_direction({LoadAxes::local, LoadAxes::global, LoadAxes::projected})};
  const auto values = any_values<2>();
  load.from_value = values[0];
  load.to_value = any_flag() && values[0] != 0.0 ? values[0] : values[1];
  if (load.from_value == 0.0 && load.to_value == 0.0) load.to_value = any_value();
  load.from = any_flag() ? 0.0 : any_between(0.0, 0.4);
  load.to = any_flag() ? 1.0 : any_between(0.5, 1.0);
  return load;
}

/// Trusses take forces, beams forces and moments.
PointLoad any_point_load(const std::vector<Number>& elements, const std::vector<Number>& beams) {
  const bool only_beams = beams.size() == elements.size();
  PointLoad load{.elements = any_targets(elements),
                 .direction = any_direction({LoadAxes::local, LoadAxes::global}),
                 .kind = PointLoad::Kind::force,
                 .value = any_value(),
                 .at = any_of({0.0, 0.5, 1.0, any_between(0, 1)})};
  if (beams.empty() || any_flag()) return load;
  load.kind = PointLoad::Kind::moment;
  load.elements = any_targets(beams);
  if (load.elements.all && !only_beams) load.elements = {.all = false, .numbers = beams};
  return load;
}

TemperatureLoad any_temperature_load(const Model& model, const std::vector<Number>& elements) {
  const auto values = any_values<3>();
  TemperatureLoad load{.elements = any_targets(elements),
                       .change = values[0],
                       .difference_y = values[1],
                       .difference_z = values[2]};
  const auto is_truss = [](const Element& element) { return element.kind == ElementKind::truss; };
  if (std::any_of(model.elements.begin(), model.elements.end(), is_truss)) {
    load = {.elements = load.elements, .change = any_value()};
  }
  return load;
}

/// A factor in place of the code's, perhaps.
std::optional<double> any_factor() {
  return any_flag() ? std::optional(any_between(0.1, 9.0)) : std::nullopt;
}

std::optional<double> any_height(double low, double high) {
  return any_flag() ? std::optional(any_between(low, high)) : std::nullopt;
}

WindPressure any_wind() {
  WindPressure wind{.w0 = any_between(3.1e-4, 2e-3),
                    .roughness = any_of({Roughness::a, Roughness::b, Roughness::c, Roughness::d}),
                    .height = any_between(1.0, 9e5),
                    .shape = any_flag() ? any_between(-3.0, -0.1) : any_between(0.1, 3.0),
                    .mu_z = any_factor(),
                    .profile = {.mu_10 = any_factor(),
                                .alpha = any_height(0.0, 1.0),
                                .mu_min = any_factor(),
                                .gradient_height = any_height(1e5, 9e5),
                                .lowest_height = any_height(10.0, 9e4),
                                .i_10 = any_height(0.0, 1.0),
                                .g = any_height(0.0, 9.0)}};
  (any_flag() ? wind.beta_z : wind.beta_gz) = any_between(0.5, 3.0);
  return wind;
}

/// Surfaces need elements round them; a spacing suits all.
AreaLoad any_area_load(const std::vector<Number>& elements) {
  AreaLoad load{
      .elements = any_targets(elements),
      .spacing = any_between(1.0, 1e5),
      .direction = any_direction({LoadAxes::local, LoadAxes::global, LoadAxes::projected}),
      .pressure = any_value()};
  if (any_flag()) load.pressure = any_wind();
  if (any_flag()) {
    load.pressure = SnowPressure{.s0 = any_between(1e-5, 1e-2), .mu_r = any_between(0.1, 9.0)};
    load.direction = LoadDirection{LoadAxes::projected, 2};
  }
  return load;
}

/// Displacements of some of the supports, in directions that they restrain.
std::vector<Settlement> any_settlements(const Model& model) {
  std::vector<Settlement> settlements;
  for (const Support& support : model.supports) {
    Settlement settlement{.node = support.node};
    for (std::size_t i = 0; i < support.restrained.size(); ++i) {
      if (support.restrained[i] && any_flag()) settlement.displacements[i] = any_between(-9, -0.1);
    }
    if (settlement.displacements != std::array<double, 6>{}) settlements.push_back(settlement);
  }
  return settlements;
}

}  // namespace

CaseLoads any_case_loads(const Model& model) {
  if (any_flag()) return {};
  const auto nodes = numbers_of(model.nodes);
  const auto elements = numbers_of(model.elements);
  const auto beams = beams_of(model);
  CaseLoads loads;
  if (any_flag()) loads.self_weight = any_values<3>();
  loads.nodal = any_list(
      [&] { return NodalLoad{.nodes = any_targets(nodes), .components = any_values<6>()}; });
  loads.area = any_list([&] { return any_area_load(elements); });
  loads.span = any_list([&] { return any_span_load(elements); });
  loads.points = any_list([&] { return any_point_load(elements, beams); });
  loads.temperature = any_list([&] { return any_temperature_load(model, elements); });
  if (any_flag()) loads.settlements = any_settlements(model);
  return loads;
}

}  // namespace aluframe::io
