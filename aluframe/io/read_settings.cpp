#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/io/format_names.h"
#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto unit_fields = std::to_array<std::string_view>({"force", "length", "section"});
constexpr auto settings_fields =
    std::to_array<std::string_view>({"code", "rib", "rib_ratio", "safety_class", "strength_ratio",
                                     "seismic", "gamma_re_strength", "gamma_re_stability"});
constexpr auto frame_fields =
    std::to_array<std::string_view>({"braced_a", "braced_b", "length_factors", "buckling_limit"});
constexpr auto analysis_fields = std::to_array<std::string_view>({"second_order", "imperfections"});
constexpr auto imperfection_fields = std::to_array<std::string_view>({"sway", "bow", "mode"});
constexpr auto sway_fields = std::to_array<std::string_view>({"x", "y"});
constexpr auto bow_fields = std::to_array<std::string_view>({"y", "z"});
constexpr auto mode_fields = std::to_array<std::string_view>({"amplitude"});

/// Larger ones are no imperfections: displacements are taken as small.
constexpr double largest_imperfection = 0.1;

void read_force_unit(const JsonObject& units, model::ForceUnit& unit) {
  const std::optional<JsonValue> value = units.optional("force");
  if (!value) return;
  const std::optional<model::ForceUnit> found = model::parse_force_unit(value->string());
  if (!found) value->fail_with(texts::translated("must be one of {}", model::force_unit_names()));
  unit = *found;
}

void read_length_unit(const JsonObject& units, std::string_view field, model::LengthUnit& unit) {
  const std::optional<JsonValue> value = units.optional(field);
  if (!value) return;
  const std::optional<model::LengthUnit> found = model::parse_length_unit(value->string());
  if (!found) value->fail_with(texts::translated("must be one of {}", model::length_unit_names()));
  unit = *found;
}

model::DesignSettings read_design_settings(const JsonObject& object) {
  model::DesignSettings settings;
  const auto read_factor = [&](std::string_view field, double& factor) {
    object.part([&] { factor = object.positive_or(field, factor); });
  };
  object.part([&] {
    if (const auto code = object.optional("code")) code->require_text(shown_code_name);
  });
  object.part([&] {
    if (const auto safety_class = object.optional("safety_class"))
      settings.safety_class = safety_class->whole(1, 3);
  });
  object.part([&] { settings.rib = object.boolean_or("rib", settings.rib); });
  object.part([&] { settings.seismic = object.boolean_or("seismic", settings.seismic); });
  read_factor("rib_ratio", settings.rib_ratio);
  read_factor("strength_ratio", settings.strength_ratio);
  read_factor("gamma_re_strength", settings.gamma_re_strength);
  read_factor("gamma_re_stability", settings.gamma_re_stability);
  return settings;
}

model::FrameSettings read_frame_settings(const JsonObject& object) {
  model::FrameSettings frame;
  object.part([&] { frame.braced_a = object.boolean_or("braced_a", frame.braced_a); });
  object.part([&] { frame.braced_b = object.boolean_or("braced_b", frame.braced_b); });
  object.part([&] {
    if (const auto source = object.optional("length_factors"))
      frame.length_factors = source->one_of<model::LengthFactors>(length_factor_sources);
  });
  object.part([&] {
    if (const auto limit = object.optional("buckling_limit"))
      frame.buckling_limit = limit->positive();
  });
  return frame;
}

double imperfection(const JsonValue& value) {
  const double found = value.number();
  if (!(found > 0.0 && found <= largest_imperfection)) {
    value.fail_with(texts::translated("must be above 0 and at most {}", largest_imperfection));
  }
  return found;
}

/// One number for both, or an object with one of two fields or both.
void read_two(const JsonValue& value, std::span<const std::string_view, 2> fields, double& first,
              double& second) {
  if (value.kind() == JsonValue::Kind::number) {
    first = second = imperfection(value);
    return;
  }
  if (value.kind() != JsonValue::Kind::object)
    value.fail_with(texts::translated("must be a number or an object"));
  const JsonObject object(value, fields);
  const auto one = object.optional(fields[0]), other = object.optional(fields[1]);
  if (!one && !other) {
    value.fail(texts::translated("needs \"{}\", \"{}\" or both", fields[0], fields[1]));
  }
  if (one) first = imperfection(*one);
  if (other) second = imperfection(*other);
}

model::Imperfections read_imperfections(const JsonValue& value, const Scales& scales) {
  model::Imperfections out;
  const JsonObject object(value, imperfection_fields);
  if (const auto sway = object.optional("sway")) {
    read_two(*sway, sway_fields, out.sway_x, out.sway_y);
  }
  if (const auto bow = object.optional("bow")) read_two(*bow, bow_fields, out.bow_y, out.bow_z);
  if (const auto mode = object.optional("mode")) {
    out.mode = JsonObject(*mode, mode_fields).required("amplitude").positive() * scales.length;
  }
  if (!out.any()) value.fail(texts::translated("needs \"sway\", \"bow\" or \"mode\""));
  return out;
}

/// true, false or "large".
void read_second_order(const JsonObject& object, model::AnalysisSettings& analysis) {
  const std::optional<JsonValue> value = object.optional("second_order");
  if (!value) return;
  const std::string allowed = texts::translated("must be true, false or \"large\"");
  analysis.large_displacements = value->kind() == JsonValue::Kind::string;
  if (analysis.large_displacements && value->string() != "large") value->fail_with(allowed);
  if (!analysis.large_displacements && value->kind() != JsonValue::Kind::boolean) {
    value->fail_with(allowed);
  }
  analysis.second_order = analysis.large_displacements || value->boolean();
}

model::AnalysisSettings read_analysis_settings(const JsonObject& object, const Scales& scales) {
  model::AnalysisSettings analysis;
  read_second_order(object, analysis);
  const auto imperfections = object.optional("imperfections");
  if (!imperfections) return analysis;
  if (!analysis.second_order) {
    imperfections->fail(texts::translated(
        "imperfections act in second order only: set \"second_order\" to true, or leave them out"));
  }
  if (analysis.large_displacements) {
    imperfections->fail(texts::translated(
        "large displacements start from the nodes of the model: displace these in place of "
        "imperfections, or set \"second_order\" to true"));
  }
  analysis.imperfections = read_imperfections(*imperfections, scales);
  return analysis;
}

/// Diagonal of the box around the nodes, mm.
double extent_of(const model::Model& model) {
  std::array<double, 3> low{}, high{};
  bool is_first = true;
  for (const model::Node& node : model.nodes) {
    const std::array<double, 3> at{node.x, node.y, node.z};
    for (std::size_t i = 0; i < at.size(); ++i) {
      low[i] = is_first ? at[i] : std::min(low[i], at[i]);
      high[i] = is_first ? at[i] : std::max(high[i], at[i]);
    }
    is_first = false;
  }
  return std::hypot(high[0] - low[0], high[1] - low[1], high[2] - low[2]);
}

}  // namespace

model::Units read_units(const JsonObject& root) {
  model::Units units;
  if (const std::optional<JsonValue> value = root.optional("units")) {
    const JsonObject object(*value, unit_fields);
    object.part([&] { read_force_unit(object, units.force); });
    object.part([&] { read_length_unit(object, "length", units.length); });
    object.part([&] { read_length_unit(object, "section", units.section); });
    if (!object.is_sound()) throw FollowsFromFault{};
  }
  return units;
}

void read_settings(const JsonObject& root, model::Model& model) {
  root.part([&] {
    if (const std::optional<JsonValue> value = root.optional("settings"))
      model.design = read_design_settings(JsonObject(*value, settings_fields));
  });
  root.part([&] {
    if (const std::optional<JsonValue> value = root.optional("frame"))
      model.frame = read_frame_settings(JsonObject(*value, frame_fields));
  });
  root.part([&] {
    if (const std::optional<JsonValue> value = root.optional("analysis")) {
      model.analysis =
          read_analysis_settings(JsonObject(*value, analysis_fields), Scales(model.units));
    }
  });
  root.part([&] {
    if (const std::optional<JsonValue> value = root.optional("envelopes"))
      model.envelopes = value->one_of<model::Envelopes>(envelope_checks);
  });
}

void require_imperfections_of_size(const JsonObject& root, const Scales& scales,
                                   const model::Model& model) {
  const double largest = largest_imperfection * extent_of(model);
  if (model.analysis.imperfections.mode <= largest || any_lost(root.value(), &model.nodes)) return;
  const JsonValue amplitude =
      *root.optional("analysis")->field("imperfections")->field("mode")->field("amplitude");
  amplitude.fail_with(texts::translated("must be at most a tenth of the frame's extent, {}",
                                        number_text(largest, scales.length)));
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
