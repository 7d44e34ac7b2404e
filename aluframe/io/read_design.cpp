#include <array>

#include "aluframe/io/model_reader.h"

#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

using model::ElementDesign;

constexpr auto design_fields = std::to_array<std::string_view>(
    {"stability_coefficients", "rib", "weld_coefficient", "haz_width", "moment_factors",
     "length_factors", "slenderness_limits"});
constexpr auto axis_fields = std::to_array<std::string_view>({"y", "z"});
constexpr auto rib_fields = std::to_array<std::string_view>({"stiffened", "ratio"});
constexpr auto moment_factor_fields = std::to_array<std::string_view>({"value", "loading"});
constexpr auto slenderness_fields =
    std::to_array<std::string_view>({"checked", "compression", "tension"});
constexpr int last_loading = 3;

model::MomentFactor read_moment_factor(const JsonValue& value) {
  const JsonObject object(value, moment_factor_fields);
  const std::optional<JsonValue> given = object.optional("value");
  const std::optional<JsonValue> loading = object.optional("loading");
  if (given && loading)
    loading->fail(texts::translated("not allowed beside \"value\", which replaces it"));
  if (!given && !loading) value.fail(texts::translated("missing field \"value\" or \"loading\""));
  model::MomentFactor factor;
  if (given) factor.value = given->number();
  if (loading) factor.loading = loading->whole(0, last_loading);
  return factor;
}

ElementDesign::MomentFactors read_moment_factors(const JsonValue& value) {
  const JsonObject object(value, axis_fields);
  ElementDesign::MomentFactors factors;
  if (const auto y = object.optional("y")) factors.y = read_moment_factor(*y);
  if (const auto z = object.optional("z")) factors.z = read_moment_factor(*z);
  return factors;
}

ElementDesign::Rib read_rib(const JsonValue& value) {
  const JsonObject object(value, rib_fields);
  ElementDesign::Rib rib;
  rib.stiffened = object.boolean_or("stiffened", rib.stiffened);
  rib.ratio = object.positive_or("ratio", rib.ratio);
  return rib;
}

ElementDesign::Slenderness read_slenderness(const JsonValue& value) {
  const JsonObject object(value, slenderness_fields);
  ElementDesign::Slenderness limits;
  limits.checked = object.boolean_or("checked", limits.checked);
  limits.compression = object.not_negative_or("compression", limits.compression);
  limits.tension = object.not_negative_or("tension", limits.tension);
  return limits;
}

std::optional<ElementDesign::AxisPair> read_coefficients(const JsonObject& object) {
  const std::optional<JsonValue> value = object.optional("stability_coefficients");
  if (!value) return std::nullopt;
  const JsonObject axes(*value, axis_fields);
  ElementDesign::AxisPair pair;
  pair.y = axes.positive_or("y", pair.y);
  pair.z = axes.positive_or("z", pair.z);
  return pair;
}

}  // namespace

/// A factor left out would be 1, also where the frame sways: both are to be given.
std::optional<ElementDesign::AxisPair> read_length_factors(const JsonObject& object) {
  const std::optional<JsonValue> value = object.optional("length_factors");
  if (!value) return std::nullopt;
  const JsonObject axes(*value, axis_fields);
  return ElementDesign::AxisPair{.y = axes.required("y").positive(),
                                 .z = axes.required("z").positive()};
}

ElementDesign read_element_design(const JsonValue& value, const Scales& scales) {
  const JsonObject object(value, design_fields);
  ElementDesign design;
  design.stability_coefficients = read_coefficients(object);
  design.length_factors = read_length_factors(object);
  if (const auto rib = object.optional("rib")) design.rib = read_rib(*rib);
  if (const auto weld = object.optional("weld_coefficient")) {
    design.weld_coefficient = weld->positive();
  }
  if (const auto width = object.optional("haz_width")) {
    design.haz_width = scales.section * width->not_negative();
  }
  if (const auto factors = object.optional("moment_factors")) {
    design.moment_factors = read_moment_factors(*factors);
  }
  if (const auto limits = object.optional("slenderness_limits")) {
    design.slenderness_limits = read_slenderness(*limits);
  }
  return design;
}

}  // namespace aluframe::io
