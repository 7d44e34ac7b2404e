#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <unordered_set>

#include "aluframe/io/model_reader.h"
#include "aluframe/texts/text.h"

/// Readers of single loads, and what they share. A load that would do nothing (values of 0, or
/// nothing to act on) is a mistake and refused.
namespace aluframe::io {

/// What loads are read with: the units of the file, and the model so far.
struct LoadContext {
  const Scales& scales;
  const model::Model& model;
};

/// A number in a unit that is `scale` N, mm or powers of them; not 0 in N and mm.
double read_not_zero(const JsonValue& value, double scale = 1.0);

/// Components by name, 0 where they are not given, each times its scale; not all may be 0.
/// `scale_of` takes the place of a component.
template <std::size_t Size, class ScaleOf>
std::array<double, Size> read_components(const JsonObject& object,
                                         const std::array<NamedValue<std::size_t>, Size>& names,
                                         ScaleOf scale_of) {
  std::array<double, Size> components{};
  for (const auto& [name, place] : names) {
    components[place] = scale_of(place) * object.number_or(name, 0.0);
  }
  if (components == std::array<double, Size>{}) {
    object.value().fail(
        texts::translated("at least one of {} must not be 0", names_of<std::size_t>(names)));
  }
  return components;
}

/// "all", or numbers that must be in the table, each once; `what` names their kind in messages.
template <class Entity>
model::Targets read_targets(const JsonValue& value, const model::Table<Entity>& table,
                            std::string_view what) {
  model::Targets targets;
  if (value.kind() == JsonValue::Kind::string) {
    value.require_text("all");
    targets.all = true;
    return targets;
  }
  std::unordered_set<model::Number> met;
  read_items(value, [&](const JsonValue& item) {
    targets.numbers.push_back(read_reference(item, table, what));
    if (!met.insert(targets.numbers.back()).second)
      item.fail_with(texts::translated("which is given before"));
  });
  if (value.list().empty()) {
    value.fail_with(texts::translated("must have at least one {}, or be \"all\"", what));
  }
  return targets;
}

/// The elements that the load's field `elements` names.
model::Targets read_elements_of_load(const JsonObject& load, const LoadContext& context);
/// Fails at `value` when one of the elements is a truss; `why` goes on behind "a truss".
void require_beams(const JsonValue& value, const model::Targets& elements,
                   const LoadContext& context, std::string_view why);

/// Of two fields the one that is there; there must be one and only one.
JsonValue one_field_of(const JsonObject& object, std::string_view first, std::string_view second);
/// Makes the direction of a load, which must be a global one, projected where the load says so.
void read_projection(const JsonObject& object, model::LoadDirection& direction);

model::SpanLoad read_span_load(const JsonValue& value, const LoadContext& context);
model::PointLoad read_point_load(const JsonValue& value, const LoadContext& context);
/// Appends the loads per area of a load case, and the line loads that they become: the one place
/// where they do, so that all that comes behind has them as line loads.
void read_area_loads(const JsonObject& load_case, const LoadContext& context,
                     model::CaseLoads& loads);

}  // namespace aluframe::io
