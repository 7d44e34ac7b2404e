#include <array>
#include <string>

#include "aluframe/io/force_limits.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto force_fields = std::to_array<std::string_view>({"element", "case", "values"});
constexpr std::size_t ends_only = 2;
constexpr std::size_t ends_and_quarters = 5;

void read_row(const JsonValue& row, const Scales& scales, model::SectionForces& forces) {
  std::size_t component = 0;
  for (const JsonValue value : row.list()) {
    if (component < forces.size()) {
      forces[component] = static_cast<float>(scales.of_component(component) * value.number());
    }
    ++component;
  }
  if (component != forces.size()) {
    row.fail(texts::translated("found {} numbers, a row has 6: N, Fy, Fz, Mx, My, Mz", component));
  }
}

model::CaseForces read_rows(const JsonValue& values, const Scales& scales) {
  const std::size_t rows = values.list().size();
  if (rows != ends_only && rows != ends_and_quarters) {
    values.fail(texts::translated(
        "found {} rows, must be 2 (the ends) or 5 (the ends and the quarter points)", rows));
  }
  model::CaseForces forces;
  forces.inner = rows == ends_and_quarters;
  const std::size_t step = forces.inner ? 1 : forces.at.size() - 1;
  std::size_t position = 0;
  for (const JsonValue row : values.list()) {
    read_row(row, scales, forces.at[position]);
    position += step;
  }
  return forces;
}

}  // namespace

std::optional<std::string> find_force_size_problem(const model::Model& model) {
  const std::size_t pairs = model.elements.size() * model.load_cases.size();
  if (pairs <= most_force_pairs) return std::nullopt;
  return texts::translated(
      "found {} elements with {} load cases, at most {} such pairs can have forces",
      model.elements.size(), model.load_cases.size(), most_force_pairs);
}

void read_forces(const JsonObject& root, const Scales& scales, model::Model& model) {
  const std::optional<JsonValue> list = root.optional("forces");
  if (!list || list->list().empty()) return;
  if (const auto problem = find_force_size_problem(model)) list->fail(*problem);
  model.forces.resize(model.elements.size(), model.load_cases.size());
  read_items(*list, [&](const JsonValue& value) {
    const JsonObject object(value, force_fields);
    model::CaseForces forces;
    object.part([&] { forces = read_rows(object.required("values"), scales); });
    const auto element = read_reference(object.required("element"), model.elements, "element");
    const auto load_case =
        read_reference(object.required("case"), model.load_cases, texts::translated("load case"));
    const bool is_new = model.forces.set(model.elements.position(element),
                                         model.load_cases.position(load_case), forces);
    if (!is_new) {
      value.fail(texts::translated("element {} has forces in case {} already", element, load_case));
    }
  });
}

}  // namespace aluframe::io
