#include <algorithm>
#include <array>
#include <string_view>

#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto deflection_fields = std::to_array<std::string_view>({"span", "absolute"});
constexpr auto drift_fields = std::to_array<std::string_view>({"name", "lower", "upper", "height"});
constexpr auto displacement_fields =
    std::to_array<std::string_view>({"nodes", "direction", "absolute"});

/// Limits are L/n or h/n; n outside of these is a limit in another unit.
constexpr double least_share = 10.0;
constexpr double largest_share = 10000.0;

double read_share(const JsonValue& value) {
  return value.between(least_share, largest_share);
}

/// A positive number may become 0 when it is converted.
double read_length(const JsonValue& value, const Scales& scales) {
  const double length = scales.length * value.positive();
  if (length == 0.0) value.fail_with(texts::translated("must be positive"));
  return length;
}

/// A node that is part of the frame: no other one is displaced.
model::Number read_node_of_frame(const JsonValue& value, const model::Model& model) {
  const model::Number number = read_reference(value, model.nodes, "node");
  const bool is_met = std::ranges::any_of(model.elements, [&](const model::Element& element) {
    return element.nodes[0] == number || element.nodes[1] == number;
  });
  if (!is_met && !any_lost(value, &model.elements)) {
    value.fail(texts::translated("no element meets node {}, so that nothing displaces it", number));
  }
  return number;
}

model::DriftLimit read_drift_limit(const JsonValue& value, const model::Model& model) {
  const JsonObject object(value, drift_fields);
  model::DriftLimit limit;
  object.part([&] { limit.name = object.plain_text_or("name", ""); });
  object.part([&] { limit.lower = read_node_of_frame(object.required("lower"), model); });
  object.part([&] { limit.upper = read_node_of_frame(object.required("upper"), model); });
  object.part([&] { limit.height = read_share(object.required("height")); });
  if (!object.is_sound()) return limit;
  if (model.nodes.find(limit.upper)->z <= model.nodes.find(limit.lower)->z) {
    object.required("upper").fail(
        texts::translated("node {} does not lie above node {}", limit.upper, limit.lower));
  }
  return limit;
}

model::DisplacementLimit read_displacement_limit(const JsonValue& value, const Scales& scales,
                                                 const model::Model& model) {
  const JsonObject object(value, displacement_fields);
  model::DisplacementLimit limit;
  const JsonValue nodes = object.required("nodes");
  read_items(nodes, [&](const JsonValue& node) {
    const model::Number number = read_node_of_frame(node, model);
    if (std::ranges::find(limit.nodes, number) != limit.nodes.end()) {
      node.fail(texts::translated("node {} is named twice", number));
    }
    limit.nodes.push_back(number);
  });
  if (nodes.list().empty()) nodes.fail_with(texts::translated("must name a node at least"));
  object.part([&] {
    if (const auto direction = object.optional("direction")) {
      limit.direction = direction->one_of<model::DisplacementDirection>(displacement_directions);
    }
  });
  object.part([&] { limit.absolute = read_length(object.required("absolute"), scales); });
  return limit;
}

/// The first limit that the file gives, or nothing.
std::optional<JsonValue> first_limit(const JsonObject& root) {
  for (const char* name : {"deflection_limit", "drift_limits", "displacement_limits"}) {
    if (const auto limit = root.optional(name)) return limit;
  }
  const auto members = root.optional("members");
  if (!members) return std::nullopt;
  for (const JsonValue member : members->list()) {
    if (const auto limit = member.field("deflection_limit")) return limit;
  }
  return std::nullopt;
}

}  // namespace

model::DeflectionLimit read_deflection_limit(const JsonValue& value, const Scales& scales) {
  const JsonObject object(value, deflection_fields);
  model::DeflectionLimit limit;
  object.part([&] {
    if (const auto span = object.optional("span")) limit.span = read_share(*span);
  });
  object.part([&] {
    if (const auto absolute = object.optional("absolute")) {
      limit.absolute = read_length(*absolute, scales);
    }
  });
  return limit;
}

void read_serviceability(const JsonObject& root, const Scales& scales, model::Model& model) {
  model::ServiceabilityLimits& limits = model.serviceability;
  root.part([&] {
    const auto limit = root.optional("deflection_limit");
    if (!limit) return;
    limits.deflection = read_deflection_limit(*limit, scales);
    if (!limit->field("span") && !limit->field("absolute")) {
      limit->fail(texts::translated("missing field \"span\" or \"absolute\""));
    }
  });
  if (const auto list = root.optional("drift_limits")) {
    read_items(*list, [&](const JsonValue& value) {
      limits.drifts.push_back(read_drift_limit(value, model));
    });
  }
  if (const auto list = root.optional("displacement_limits")) {
    read_items(*list, [&](const JsonValue& value) {
      limits.displacements.push_back(read_displacement_limit(value, scales, model));
    });
  }
  const auto limit = first_limit(root);
  if (limit && !any_lost(*limit, &model.combinations) &&
      std::ranges::none_of(model.combinations, &model::Combination::serviceability)) {
    limit->fail(texts::translated(
        "there is no combination for serviceability to which it applies: mark those with "
        "\"serviceability\": true, or have them made by rule"));
  }
}

}  // namespace aluframe::io
