#include <array>
#include <utility>

#include "aluframe/combinations/make_combinations.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

constexpr auto action_fields = std::to_array<std::string_view>(
    {"kind", "category", "exclusive", "together_with", "favourable", "reversible"});
constexpr auto rule_fields = std::to_array<std::string_view>(
    {"rule", "seismic", "types", "wind_with_earthquake", "design_life", "table", "also"});
constexpr auto row_fields = std::to_array<std::string_view>(
    {"kind", "category", "gamma", "favourable", "alone", "psi_c", "psi_f", "psi_q", "psi_e",
     "second_e", "gamma_e", "favourable_e", "source"});

std::vector<model::CombinationType> read_types(const JsonValue& list) {
  std::vector<model::CombinationType> types;
  for (const JsonValue value : list.list()) {
    types.push_back(value.one_of<model::CombinationType>(combination_types));
  }
  if (types.empty()) list.fail_with(texts::translated("must name at least one type"));
  return types;
}

model::FactorRow read_row(const JsonValue& value) {
  const JsonObject object(value, row_fields);
  model::FactorRow row;
  row.kind = object.required("kind").one_of<model::ActionKind>(action_kinds);
  row.category = object.plain_text_or("category", "");
  row.source = object.plain_text_or("source", "");
  for (const auto& [name, field] : factor_fields) {
    if (const auto number = object.optional(name)) row.*field = number->not_negative();
  }
  return row;
}

}  // namespace

std::optional<model::Action> read_action(const JsonObject& load_case) {
  const std::optional<JsonValue> value = load_case.optional("action");
  if (!value) return std::nullopt;
  const JsonObject object(*value, action_fields);
  model::Action action;
  action.kind = object.required("kind").one_of<model::ActionKind>(action_kinds);
  action.category = object.plain_text_or("category", "");
  action.exclusive = object.plain_text_or("exclusive", "");
  if (const auto other = object.optional("together_with")) {
    action.together_with = other->entity_number();
  }
  if (const auto favourable = object.optional("favourable")) {
    action.favourable = favourable->one_of<model::Favourable>(favourable_names);
  }
  if (const auto reversible = object.optional("reversible")) {
    action.reversible = reversible->boolean();
  }
  return action;
}

std::optional<JsonValue> read_combination_rule(const JsonValue& value, model::Model& model) {
  const JsonObject object(value, rule_fields);
  model::CombinationRule rule;
  rule.rule = object.required("rule").plain_text();
  rule.seismic = object.plain_text_or("seismic", "");
  if (const auto types = object.optional("types")) rule.types = read_types(*types);
  rule.wind_with_earthquake = object.boolean_or("wind_with_earthquake", false);
  if (const auto life = object.optional("design_life")) {
    constexpr int most_years = 1000;
    rule.design_life = life->whole(1, most_years);
  }
  if (const auto table = object.optional("table")) {
    read_items(*table, [&](const JsonValue& row) { rule.table.push_back(read_row(row)); });
  }
  model.combination_rule = std::move(rule);
  return object.optional("also");
}

void make_combinations_by_rule(model::Model& model) {
  if (const auto fault = combinations::complete(model)) throw Failure{fault->place, fault->text};
}

}  // namespace aluframe::io
