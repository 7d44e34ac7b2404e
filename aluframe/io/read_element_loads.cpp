#include <algorithm>
#include <array>
#include <string>

#include "aluframe/io/load_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto span_fields = std::to_array<std::string_view>(
    {"elements", "direction", "projected", "value", "values", "from", "to"});
constexpr auto point_fields =
    std::to_array<std::string_view>({"elements", "direction", "at", "force", "moment"});

double part_of_length(const JsonValue& value) {
  return value.between(0.0, 1.0);
}

model::LoadDirection read_direction(const JsonObject& object) {
  return object.required("direction").one_of<model::LoadDirection>(load_directions);
}

/// Whether the element has any length across the axis.
bool is_seen_along(const model::Model& model, const model::Element& element, std::size_t axis) {
  const model::Node& start = *model.nodes.find(element.nodes[0]);
  const model::Node& end = *model.nodes.find(element.nodes[1]);
  const std::array across{end.x != start.x, end.y != start.y, end.z != start.z};
  for (std::size_t i = 0; i < across.size(); ++i) {
    if (i != axis && across[i]) return true;
  }
  return false;
}

/// A projected load acts on nothing when all its elements lie along its direction.
void require_seen_length(const JsonObject& object, const model::SpanLoad& load,
                         const LoadContext& context) {
  if (load.direction.axes != model::LoadAxes::projected) return;
  const auto is_seen = [&](const model::Element& element) {
    return is_seen_along(context.model, element, load.direction.axis);
  };
  const auto& elements = context.model.elements;
  const bool any = load.elements.all
                       ? std::ranges::any_of(elements, is_seen)
                       : std::ranges::any_of(load.elements.numbers, [&](model::Number number) {
                           return is_seen(*elements.find(number));
                         });
  if (any) return;
  object.required("projected")
      .fail(texts::translated("acts on nothing: all elements of the load lie along its "
                              "direction"));
}

/// Values at the two ends of a load.
void read_end_values(const JsonValue& values, double scale, model::SpanLoad& load) {
  std::array<double, 2> numbers{};
  std::size_t count = 0;
  for (const JsonValue value : values.list()) {
    if (count < numbers.size()) numbers[count] = scale * value.number();
    ++count;
  }
  if (count != numbers.size()) {
    values.fail(
        texts::translated("found {} numbers, must be 2: where the load begins and ends", count));
  }
  if (numbers == std::array<double, 2>{})
    values.fail(texts::translated("at least one of the two must not be 0"));
  load.from_value = numbers[0];
  load.to_value = numbers[1];
}

void read_span_values(const JsonObject& object, double scale, model::SpanLoad& load) {
  const JsonValue given = one_field_of(object, "value", "values");
  if (object.optional("values")) {
    read_end_values(given, scale, load);
  } else {
    load.from_value = load.to_value = read_not_zero(given, scale);
  }
}

void read_part_of_span(const JsonObject& object, model::SpanLoad& load) {
  const auto from = object.optional("from");
  const auto to = object.optional("to");
  if (from) load.from = part_of_length(*from);
  if (to) load.to = part_of_length(*to);
  if (load.from < load.to) return;
  const JsonValue fault = to ? *to : object.required("from");
  fault.fail(texts::translated(
      "the load goes from {} to {} of the length, must begin before it ends", load.from, load.to));
}

}  // namespace

JsonValue one_field_of(const JsonObject& object, std::string_view first, std::string_view second) {
  const auto one = object.optional(first);
  const auto other = object.optional(second);
  if (one && other) other->fail(texts::translated("not allowed beside \"{}\"", first));
  if (!one && !other) {
    object.value().fail(texts::translated("missing field \"{}\" or \"{}\"", first, second));
  }
  return one ? *one : *other;
}

void read_projection(const JsonObject& object, model::LoadDirection& direction) {
  const auto projected = object.optional("projected");
  if (!projected || !projected->boolean()) return;
  if (direction.axes == model::LoadAxes::local) {
    projected->fail_with(texts::translated("only a load along X, Y or Z can be projected"));
  }
  direction.axes = model::LoadAxes::projected;
}

double read_not_zero(const JsonValue& value, double scale) {
  const double number = scale * value.number();
  if (number == 0.0) value.fail_with(texts::translated("must not be 0"));
  return number;
}

model::Targets read_elements_of_load(const JsonObject& load, const LoadContext& context) {
  return read_targets(load.required("elements"), context.model.elements, "element");
}

void require_beams(const JsonValue& value, const model::Targets& elements,
                   const LoadContext& context, std::string_view why) {
  const auto require_beam = [&](const model::Element& element) {
    if (element.kind == model::ElementKind::beam) return;
    value.fail(texts::translated("element {} is a truss, {}", element.number, why));
  };
  if (elements.all) {
    for (const model::Element& element : context.model.elements) require_beam(element);
  }
  for (const model::Number number : elements.numbers) {
    require_beam(*context.model.elements.find(number));
  }
}

model::SpanLoad read_span_load(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, span_fields);
  model::SpanLoad load;
  object.part([&] { load.elements = read_elements_of_load(object, context); });
  object.part([&] {
    load.direction = read_direction(object);
    read_projection(object, load.direction);
  });
  object.part([&] { read_span_values(object, context.scales.per_length, load); });
  object.part([&] { read_part_of_span(object, load); });
  if (object.is_sound()) require_seen_length(object, load, context);
  return load;
}

model::PointLoad read_point_load(const JsonValue& value, const LoadContext& context) {
  const JsonObject object(value, point_fields);
  model::PointLoad load;
  object.part([&] { load.elements = read_elements_of_load(object, context); });
  object.part([&] { load.direction = read_direction(object); });
  object.part([&] { load.at = part_of_length(object.required("at")); });
  const JsonValue given = one_field_of(object, "force", "moment");
  if (object.optional("force")) {
    load.value = read_not_zero(given, context.scales.force);
  } else {
    load.kind = model::PointLoad::Kind::moment;
    load.value = read_not_zero(given, context.scales.moment);
    if (!object.is_sound()) return load;
    require_beams(given, load.elements, context, texts::translated("which takes no moment"));
  }
  return load;
}

}  // namespace aluframe::io
