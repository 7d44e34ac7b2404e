#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "aluframe/combinations/make_combinations.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

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
  read_items(list, [&](const JsonValue& value) {
    types.push_back(value.one_of<model::CombinationType>(combination_types));
  });
  if (list.list().empty()) list.fail_with(texts::translated("must name at least one type"));
  return types;
}

model::ActionKind read_kind(const JsonObject& object) {
  return object.required("kind").one_of<model::ActionKind>(action_kinds);
}

model::FactorRow read_row(const JsonValue& value) {
  const JsonObject object(value, row_fields);
  model::FactorRow row;
  object.part([&] { row.kind = read_kind(object); });
  object.part([&] { row.category = object.plain_text_or("category", ""); });
  object.part([&] { row.source = object.plain_text_or("source", ""); });
  for (const auto& [name, field] : factor_fields) {
    object.part([&] {
      const auto number = object.optional(name);
      if (!number) return;
      const bool is_share = std::string_view(name).starts_with("psi_");
      row.*field = is_share ? number->between(0.0, 1.0) : number->not_negative();
    });
  }
  return row;
}

/// One row for a kind and its category: of two nobody could tell which holds.
void add_row(const JsonValue& value, std::vector<model::FactorRow>& table) {
  model::FactorRow row = read_row(value);
  const bool is_there = std::ranges::any_of(table, [&](const model::FactorRow& other) {
    return other.kind == row.kind && other.category == row.category;
  });
  if (is_there) {
    value.fail(texts::translated("the table has a row of this \"kind\" and \"category\" already"));
  }
  table.push_back(std::move(row));
}

}  // namespace

std::optional<model::Action> read_action(const JsonObject& load_case) {
  const std::optional<JsonValue> value = load_case.optional("action");
  if (!value) return std::nullopt;
  const JsonObject object(*value, action_fields);
  model::Action action;
  object.part([&] { action.kind = read_kind(object); });
  object.part([&] { action.category = object.plain_text_or("category", ""); });
  object.part([&] { action.exclusive = object.plain_text_or("exclusive", ""); });
  object.part([&] {
    if (const auto other = object.optional("together_with")) {
      action.together_with = other->entity_number();
    }
  });
  object.part([&] {
    if (const auto favourable = object.optional("favourable")) {
      action.favourable = favourable->one_of<model::Favourable>(favourable_names);
    }
  });
  object.part([&] {
    if (const auto reversible = object.optional("reversible")) {
      action.reversible = reversible->boolean();
    }
  });
  return action;
}

std::optional<JsonValue> read_combination_rule(const JsonValue& value, model::Model& model) {
  const JsonObject object(value, rule_fields);
  model::CombinationRule rule;
  object.part([&] { rule.rule = object.required("rule").plain_text(); });
  object.part([&] { rule.seismic = object.plain_text_or("seismic", ""); });
  object.part([&] {
    if (const auto types = object.optional("types")) rule.types = read_types(*types);
  });
  object.part(
      [&] { rule.wind_with_earthquake = object.boolean_or("wind_with_earthquake", false); });
  object.part([&] {
    constexpr int most_years = 1000;
    if (const auto life = object.optional("design_life")) {
      rule.design_life = life->whole(1, most_years);
    }
  });
  object.part([&] {
    const auto table = object.optional("table");
    if (!table) return;
    read_items(*table, [&](const JsonValue& row) { add_row(row, rule.table); });
  });
  if (object.is_sound()) model.combination_rule = std::move(rule);
  return object.optional("also");
}

void make_combinations_by_rule(model::Model& model) {
  if (const auto fault = combinations::complete(model)) throw Failure{fault->place, fault->text};
}

}  // namespace aluframe::io
