#include <array>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

std::string triple_text(const std::array<double, 3>& triple, double scale) {
  const std::array texts{number_text(triple[0], scale), number_text(triple[1], scale),
                         number_text(triple[2], scale)};
  return json_list(texts);
}

std::string region_text(const model::AreaRegion& region, const Scales& scales) {
  if (region.points.empty()) return JsonLine().json("nodes", numbers_text(region.nodes)).str();
  std::vector<std::string> points;
  for (const auto& point : region.points) points.push_back(triple_text(point, scales.length));
  return JsonLine().json("points", json_list(points)).str();
}

void append_if(JsonLine& line, std::string_view field, const std::optional<double>& value,
               double scale = 1.0) {
  if (value) line.number(field, *value, scale);
}

std::string profile_text(const model::WindProfile& profile, const Scales& scales) {
  JsonLine line;
  append_if(line, "mu_10", profile.mu_10);
  append_if(line, "alpha", profile.alpha);
  append_if(line, "mu_min", profile.mu_min);
  append_if(line, "gradient_height", profile.gradient_height, scales.length);
  append_if(line, "lowest_height", profile.lowest_height, scales.length);
  append_if(line, "i_10", profile.i_10);
  append_if(line, "g", profile.g);
  return line.str();
}

std::string wind_text(const model::WindPressure& wind, const Scales& scales) {
  JsonLine line = JsonLine()
                      .number("w0", wind.w0, scales.per_area)
                      .text("roughness", name_in(roughness_names, wind.roughness))
                      .number("height", wind.height, scales.length)
                      .number(wind.beta_z ? "mu_s" : "mu_sl", wind.shape);
  append_if(line, "beta_z", wind.beta_z);
  append_if(line, "mu_z", wind.mu_z);
  append_if(line, "beta_gz", wind.beta_gz);
  if (wind.profile != model::WindProfile()) {
    line.json("profile", profile_text(wind.profile, scales));
  }
  return line.str();
}

/// Snow has its direction of itself.
void append_direction(JsonLine& line, const model::AreaLoad& load) {
  if (std::holds_alternative<model::SnowPressure>(load.pressure)) return;
  auto direction = load.direction;
  const bool is_projected = direction && direction->axes == model::LoadAxes::projected;
  if (is_projected) direction->axes = model::LoadAxes::global;
  line.text("direction", direction && direction->axes == model::LoadAxes::local
                             ? name_in(load_directions, *direction)
                             : name_in(surface_directions, direction))
      .flag_unless("projected", is_projected, false);
}

void append_pressure(JsonLine& line, const model::AreaLoad& load, const Scales& scales) {
  if (const auto* wind = std::get_if<model::WindPressure>(&load.pressure)) {
    line.json("wind", wind_text(*wind, scales));
  } else if (const auto* snow = std::get_if<model::SnowPressure>(&load.pressure)) {
    line.json("snow",
              JsonLine().number("s0", snow->s0, scales.per_area).number("mu_r", snow->mu_r).str());
  } else {
    line.number("pressure", std::get<double>(load.pressure), scales.per_area);
  }
}

}  // namespace

std::string area_load_line(const model::AreaLoad& load, const Scales& scales) {
  JsonLine line;
  if (!load.region.empty()) line.json("region", region_text(load.region, scales));
  if (load.region.empty() || !load.elements.all) {
    line.json("elements",
              load.elements.all ? json_string("all") : numbers_text(load.elements.numbers));
  }
  if (load.spacing) {
    line.number("spacing", *load.spacing, scales.length);
  } else if (load.span) {
    line.json("span", triple_text(*load.span, 1.0));
  } else {
    line.text("span", two_way);
  }
  append_direction(line, load);
  append_pressure(line, load, scales);
  return line.str();
}

}  // namespace aluframe::io
