#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "aluframe/area_loads/line_loads.h"
#include "aluframe/area_loads/wind_and_snow.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/load_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto area_fields =
    std::to_array<std::string_view>({"region", "elements", "spacing", "span", "direction",
                                     "projected", "pressure", "wind", "snow"});
constexpr auto region_fields = std::to_array<std::string_view>({"nodes", "points"});
constexpr auto wind_fields = std::to_array<std::string_view>(
    {"w0", "roughness", "height", "mu_sl", "mu_s", "beta_z", "mu_z", "beta_gz", "profile"});
constexpr auto snow_fields = std::to_array<std::string_view>({"s0", "mu_r"});
constexpr auto profile_names = std::to_array<std::string_view>(
    {"mu_10", "alpha", "mu_min", "gradient_height", "lowest_height", "i_10", "g"});
constexpr std::size_t fewest_corners = 3;
/// GB 50009-2012, 8.1.2: the reference wind pressure is not less, N/mm².
constexpr double least_w0 = 0.3e-3;
/// Beyond what any building or factor of the code reaches.
constexpr double highest = 1000e3;  ///< mm
constexpr double largest_factor = 10.0;

/// A number greater than 0 and no more than the largest that makes sense.
double read_factor(const JsonValue& value) {
  const double number = value.number();
  if (number > 0.0 && number <= largest_factor) return number;
  value.fail_with(texts::translated("must be greater than 0 and at most {}", largest_factor));
}

/// A shape factor, negative where it sucks.
double read_shape_factor(const JsonValue& value) {
  const double number = value.number();
  if (number != 0.0 && std::abs(number) <= largest_factor) return number;
  value.fail_with(
      texts::translated("must be between -{} and {}, and not 0", largest_factor, largest_factor));
}

std::vector<model::Number> read_corner_nodes(const JsonValue& list, const LoadContext& context) {
  std::vector<model::Number> nodes;
  for (const JsonValue item : list.list()) {
    nodes.push_back(read_reference(item, context.model.nodes, "node"));
  }
  return nodes;
}

std::array<double, 3> read_triple(const JsonValue& value, double scale) {
  std::array<double, 3> triple{};
  std::size_t count = 0;
  for (const JsonValue item : value.list()) {
    if (count < triple.size()) triple[count] = scale * item.number();
    ++count;
  }
  if (count != triple.size()) {
    value.fail(texts::translated("found {} numbers, must be 3: along X, Y and Z", count));
  }
  return triple;
}

void require_corners(const JsonValue& list) {
  const std::size_t count = list.list().size();
  if (count >= fewest_corners) return;
  list.fail(texts::translated("found {} corners, must be at least {}", count, fewest_corners));
}

model::AreaRegion read_region(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, region_fields);
  const JsonValue corners = one_field_of(object, "nodes", "points");
  require_corners(corners);
  model::AreaRegion region;
  if (object.optional("nodes")) {
    region.nodes = read_corner_nodes(corners, context);
  } else {
    for (const JsonValue point : corners.list()) {
      region.points.push_back(read_triple(point, context.scales.length));
    }
  }
  return region;
}

/// "two_way", an axis or a vector.
std::optional<std::array<double, 3>> read_span_direction(const JsonValue& value) {
  if (value.kind() == JsonValue::Kind::list) {
    const auto direction = read_triple(value, 1.0);
    if (direction == std::array<double, 3>{}) {
      value.fail(texts::translated("at least one of the three must not be 0"));
    }
    return direction;
  }
  const auto allowed = [&] {
    value.fail_with(
        texts::translated("must be \"two_way\", \"X\", \"Y\", \"Z\" or a list of three "
                          "numbers"));
  };
  if (value.kind() != JsonValue::Kind::string) allowed();
  if (value.string() == two_way) return std::nullopt;
  std::array<double, 3> direction{};
  for (const auto& [name, axis] : global_axes) {
    if (value.string() == name) direction[axis] = 1.0;
  }
  if (direction == std::array<double, 3>{}) allowed();
  return direction;
}

/// A field of the profile, when it is there.
std::optional<double> read_profile_number(const JsonObject& object, std::string_view name,
                                          double low, double high, double scale = 1.0) {
  const auto value = object.optional(name);
  if (!value) return std::nullopt;
  return scale * value->between(low / scale, high / scale);
}

model::WindProfile read_profile(const JsonObject& wind, const LoadContext& context) {
  const auto value = wind.optional("profile");
  if (!value) return {};
  const JsonObject object(*value, profile_names);
  const double length = context.scales.length;
  const auto factor = [&](std::string_view name) -> std::optional<double> {
    const auto given = object.optional(name);
    return given ? std::optional(read_factor(*given)) : std::nullopt;
  };
  model::WindProfile profile{
      .mu_10 = factor("mu_10"),
      .alpha = read_profile_number(object, "alpha", 0.0, 1.0),
      .mu_min = factor("mu_min"),
      .gradient_height = read_profile_number(object, "gradient_height", 1.0, highest, length),
      .lowest_height = read_profile_number(object, "lowest_height", 1.0, highest, length),
      .i_10 = read_profile_number(object, "i_10", 0.0, 1.0),
      .g = read_profile_number(object, "g", 0.0, largest_factor)};
  return profile;
}

/// What makes the pressure one of cladding or of the main structure.
void read_shape(const JsonObject& object, model::WindPressure& wind) {
  const JsonValue shape = one_field_of(object, "mu_sl", "mu_s");
  wind.shape = read_shape_factor(shape);
  const bool is_cladding = object.optional("mu_sl").has_value();
  const auto beta_z = object.optional("beta_z");
  const auto beta_gz = object.optional("beta_gz");
  if (is_cladding && beta_z) beta_z->fail(texts::translated("not allowed beside \"mu_sl\""));
  if (!is_cladding && beta_gz) beta_gz->fail(texts::translated("not allowed beside \"mu_s\""));
  if (!is_cladding) wind.beta_z = read_factor(object.required("beta_z"));
  if (beta_gz) wind.beta_gz = read_factor(*beta_gz);
}

double read_w0(const JsonValue& value, double scale) {
  const double w0 = scale * value.positive();
  // The limit itself passes, whatever its conversion rounds to.
  if (w0 >= least_w0 * (1.0 - 1e-9)) return w0;
  const std::string least = fmt::format("{:.4g}", least_w0 / scale);
  if (least == "0.3") {
    value.fail_with(texts::translated("must be at least 0.3 (GB 50009-2012, 8.1.2)"));
  }
  value.fail_with(
      texts::translated("must be at least {}, which is 0.3 kN/m² (GB 50009-2012, 8.1.2)", least));
}

model::WindPressure read_wind(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, wind_fields);
  model::WindPressure wind;
  object.part([&] { wind.w0 = read_w0(object.required("w0"), context.scales.per_area); });
  object.part([&] {
    wind.roughness = object.required("roughness").one_of<model::Roughness>(roughness_names);
  });
  object.part([&] {
    const JsonValue height = object.required("height");
    wind.height = context.scales.length * height.positive();
    if (wind.height > highest) {
      height.fail_with(
          texts::translated("must be at most {:.4g}", highest / context.scales.length));
    }
  });
  object.part([&] { read_shape(object, wind); });
  object.part([&] {
    if (const auto mu_z = object.optional("mu_z")) wind.mu_z = read_factor(*mu_z);
  });
  object.part([&] { wind.profile = read_profile(object, context); });
  if (!object.is_sound()) return wind;
  const auto profile = area_loads::profile_of(wind);
  if (profile.lowest_height > profile.gradient_height) {
    object.required("profile").fail(
        texts::translated("the lowest height must not be above the gradient height"));
  }
  return wind;
}

model::SnowPressure read_snow(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, snow_fields);
  return {.s0 = context.scales.per_area * object.required("s0").positive(),
          .mu_r = read_factor(object.required("mu_r"))};
}

/// Exactly one of the three.
void read_pressure(const JsonObject& object, const LoadContext& context, model::AreaLoad& load) {
  const auto wind = object.optional("wind");
  const auto snow = object.optional("snow");
  const auto pressure = object.optional("pressure");
  if (wind && snow) snow->fail(texts::translated("not allowed beside \"{}\"", "wind"));
  if (pressure && wind) wind->fail(texts::translated("not allowed beside \"{}\"", "pressure"));
  if (pressure && snow) snow->fail(texts::translated("not allowed beside \"{}\"", "pressure"));
  if (wind) {
    load.pressure = read_wind(*wind, context);
  } else if (snow) {
    load.pressure = read_snow(*snow, context);
  } else if (pressure) {
    load.pressure = read_not_zero(*pressure, context.scales.per_area);
  } else {
    object.value().fail(texts::translated("missing field \"pressure\", \"wind\" or \"snow\""));
  }
}

void refuse(const JsonObject& object, std::string_view field, std::string_view beside) {
  if (const auto value = object.optional(field)) {
    value->fail(texts::translated("not allowed beside \"{}\"", beside));
  }
}

/// Snow acts downwards on what is seen from above, and has no field for that.
void read_area_direction(const JsonObject& object, model::AreaLoad& load) {
  if (std::holds_alternative<model::SnowPressure>(load.pressure)) {
    refuse(object, "direction", "snow");
    refuse(object, "projected", "snow");
    load.direction = {model::LoadAxes::projected, 2};
    return;
  }
  const JsonValue value = object.required("direction");
  if (load.spacing) {
    load.direction = value.one_of<model::LoadDirection>(load_directions);
  } else {
    load.direction = value.one_of<std::optional<model::LoadDirection>>(surface_directions);
  }
  if (load.direction) return read_projection(object, *load.direction);
  const auto projected = object.optional("projected");
  if (projected && projected->boolean()) {
    projected->fail_with(texts::translated("only a load along X, Y or Z can be projected"));
  }
}

model::AreaLoad read_area_load(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, area_fields);
  model::AreaLoad load;
  const auto region = object.optional("region");
  const auto spacing = object.optional("spacing");
  object.part([&] {
    if (region) load.region = read_region(*region, context);
  });
  object.part([&] {
    if (!region || object.optional("elements"))
      load.elements = read_elements_of_load(object, context);
  });
  if (spacing) {
    refuse(object, "region", "spacing");
    refuse(object, "span", "spacing");
    load.spacing = context.scales.length * spacing->positive();
  } else {
    load.span = read_span_direction(object.required("span"));
  }
  object.part([&] { read_pressure(object, context, load); });
  if (object.is_sound()) read_area_direction(object, load);
  if (!object.is_sound()) throw FollowsFromFault{};
  return load;
}

}  // namespace

void read_area_loads(const JsonObject& load_case, const LoadContext& context,
                     model::CaseLoads& loads) {
  const auto list = load_case.optional("area");
  if (!list) return;
  read_items(*list, [&](const JsonValue& value) {
    model::AreaLoad load = read_area_load(value, context);
    // What carries it is found among all nodes and elements.
    if (any_lost(value, &context.model.nodes) || any_lost(value, &context.model.elements)) {
      throw FollowsFromFault{};
    }
    auto distributed = area_loads::line_loads(context.model, load);
    if (const auto* fault = std::get_if<area_loads::Fault>(&distributed)) {
      throw Failure{value.path() + fault->field, fault->text};
    }
    for (model::SpanLoad& span : std::get<std::vector<model::SpanLoad>>(distributed)) {
      span.of_area = loads.area.size();
      loads.span.push_back(std::move(span));
    }
    loads.area.push_back(std::move(load));
  });
}

}  // namespace aluframe::io
