#include <array>

#include "aluframe/io/format_names.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

constexpr auto unit_fields = std::to_array<std::string_view>({"force", "length", "section"});
constexpr auto settings_fields =
    std::to_array<std::string_view>({"code", "rib", "rib_ratio", "safety_class", "strength_ratio",
                                     "seismic", "gamma_re_strength", "gamma_re_stability"});
constexpr auto frame_fields =
    std::to_array<std::string_view>({"braced_a", "braced_b", "length_factors", "buckling_limit"});
constexpr auto analysis_fields = std::to_array<std::string_view>({"second_order"});

void read_force_unit(const JsonObject& units, model::ForceUnit& unit) {
  const std::optional<JsonValue> value = units.optional("force");
  if (!value) return;
  const std::optional<model::ForceUnit> found = model::parse_force_unit(value->string());
  if (!found) value->fail_with("must be one of " + std::string(model::force_unit_names()));
  unit = *found;
}

void read_length_unit(const JsonObject& units, std::string_view field, model::LengthUnit& unit) {
  const std::optional<JsonValue> value = units.optional(field);
  if (!value) return;
  const std::optional<model::LengthUnit> found = model::parse_length_unit(value->string());
  if (!found) value->fail_with("must be one of " + std::string(model::length_unit_names()));
  unit = *found;
}

model::DesignSettings read_design_settings(const JsonObject& object) {
  model::DesignSettings settings;
  if (const auto code = object.optional("code")) code->require_text(shown_code_name);
  if (const auto safety_class = object.optional("safety_class")) {
    settings.safety_class = safety_class->whole(1, 3);
  }
  settings.rib = object.boolean_or("rib", settings.rib);
  settings.rib_ratio = object.positive_or("rib_ratio", settings.rib_ratio);
  settings.strength_ratio = object.positive_or("strength_ratio", settings.strength_ratio);
  settings.seismic = object.boolean_or("seismic", settings.seismic);
  settings.gamma_re_strength = object.positive_or("gamma_re_strength", settings.gamma_re_strength);
  settings.gamma_re_stability =
      object.positive_or("gamma_re_stability", settings.gamma_re_stability);
  return settings;
}

model::FrameSettings read_frame_settings(const JsonObject& object) {
  model::FrameSettings frame;
  frame.braced_a = object.boolean_or("braced_a", frame.braced_a);
  frame.braced_b = object.boolean_or("braced_b", frame.braced_b);
  if (const auto source = object.optional("length_factors")) {
    frame.length_factors = source->one_of<model::LengthFactors>(length_factor_sources);
  }
  if (const auto limit = object.optional("buckling_limit")) {
    frame.buckling_limit = limit->positive();
  }
  return frame;
}

}  // namespace

model::Units read_units(const JsonObject& root) {
  model::Units units;
  if (const std::optional<JsonValue> value = root.optional("units")) {
    const JsonObject object(*value, unit_fields);
    read_force_unit(object, units.force);
    read_length_unit(object, "length", units.length);
    read_length_unit(object, "section", units.section);
  }
  return units;
}

void read_settings(const JsonObject& root, model::Model& model) {
  if (const std::optional<JsonValue> value = root.optional("settings")) {
    model.design = read_design_settings(JsonObject(*value, settings_fields));
  }
  if (const std::optional<JsonValue> value = root.optional("frame")) {
    model.frame = read_frame_settings(JsonObject(*value, frame_fields));
  }
  if (const std::optional<JsonValue> value = root.optional("analysis")) {
    const JsonObject object(*value, analysis_fields);
    model.analysis.second_order = object.boolean_or("second_order", false);
  }
  if (const std::optional<JsonValue> value = root.optional("envelopes")) {
    model.envelopes = value->one_of<model::Envelopes>(envelope_checks);
  }
}

std::vector<std::string> given_settings(const JsonObject& root) {
  std::vector<std::string> given;
  const std::optional<JsonValue> settings = root.optional("settings");
  if (!settings) return given;
  for (const std::string_view field : settings_fields) {
    if (settings->field(field)) given.emplace_back(field);
  }
  return given;
}

}  // namespace aluframe::io
