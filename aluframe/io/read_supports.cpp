#include <array>
#include <string>
#include <unordered_set>

#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto support_fields = std::to_array<std::string_view>({"node", "restrained", "springs"});
constexpr auto spring_fields =
    std::to_array<std::string_view>({"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"});
constexpr std::string_view all_directions = "all";

void read_restrained(const JsonValue& value, model::Support& support) {
  if (value.kind() == JsonValue::Kind::string) {
    value.require_text(all_directions);
    support.restrained.fill(true);
  } else {
    read_flags(value, support_directions, support.restrained);
  }
}

/// Needs the restrained directions: a spring there would never be strained.
void read_springs(const JsonValue& value, const Scales& scales, model::Support& support) {
  const JsonObject object(value, spring_fields);
  bool is_empty = true;
  for (const auto& [name, direction] : support_directions) {
    const auto stiffness = object.optional(name);
    if (!stiffness) continue;
    is_empty = false;
    double& spring = support.springs[direction];
    spring = scales.of_stiffness(direction) * stiffness->positive();
    // A positive number may become 0 when it is converted.
    if (spring == 0.0) stiffness->fail_with(texts::translated("must be positive"));
    if (support.restrained[direction])
      stiffness->fail(texts::translated("this direction is restrained already"));
  }
  if (is_empty) {
    value.fail(texts::translated("at least one of {} must be given",
                                 names_of<std::size_t>(support_directions)));
  }
}

model::Support read_support(const JsonValue& value, const Scales& scales,
                            const model::Model& model) {
  const JsonObject object(value, support_fields);
  model::Support support;
  support.node = read_reference(object.required("node"), model.nodes, "node");
  const auto restrained = object.optional("restrained");
  const auto springs = object.optional("springs");
  if (!restrained && !springs)
    value.fail(texts::translated("missing field \"restrained\" or \"springs\""));
  if (restrained) read_restrained(*restrained, support);
  if (springs) read_springs(*springs, scales, support);
  return support;
}

}  // namespace

void read_supports(const JsonObject& root, const Scales& scales, model::Model& model) {
  const std::optional<JsonValue> list = root.optional("supports");
  if (!list) return;
  std::unordered_set<model::Number> supported;
  read_entities(
      *list, &model.supports,
      [&](const JsonValue& value) {
        const model::Support support = read_support(value, scales, model);
        if (!supported.insert(support.node).second) {
          value.fail(texts::translated("node {} has a support already", support.node));
        }
        model.supports.push_back(support);
      },
      "node");
}

}  // namespace aluframe::io
