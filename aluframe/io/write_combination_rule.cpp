#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

std::string row_line(const model::FactorRow& row) {
  JsonLine line;
  line.text("kind", model::name_of(row.kind)).text_unless("category", row.category, "");
  for (const auto& [name, field] : factor_fields) {
    if (row.*field) line.number(name, *(row.*field));
  }
  return line.text_unless("source", row.source, "").str();
}

}  // namespace

std::string action_line(const model::Action& action) {
  JsonLine line;
  line.text("kind", model::name_of(action.kind))
      .text_unless("category", action.category, "")
      .text_unless("exclusive", action.exclusive, "");
  if (action.together_with) line.number("together_with", *action.together_with);
  if (action.favourable != model::Favourable::also) {
    line.text("favourable", model::name_of(action.favourable));
  }
  if (action.reversible) line.flag("reversible", *action.reversible);
  return line.str();
}

std::string combination_rule_line(const model::Model& model) {
  const model::CombinationRule& rule = *model.combination_rule;
  std::vector<std::string> types;
  for (const model::CombinationType type : rule.types) {
    types.push_back(json_string(model::name_of(type)));
  }
  std::vector<std::string> rows;
  for (const model::FactorRow& row : rule.table) rows.push_back(row_line(row));
  std::vector<std::string> also;
  for (const model::Combination& combination : model.combinations) {
    if (!combination.by_rule) also.push_back(combination_line(combination));
  }
  JsonLine line;
  line.text("rule", rule.rule).text_unless("seismic", rule.seismic, "");
  if (!types.empty()) line.json("types", json_list(types));
  line.flag_unless("wind_with_earthquake", rule.wind_with_earthquake, false);
  line.number_unless("design_life", rule.design_life, model::CombinationRule().design_life);
  if (!rows.empty()) line.json("table", json_list(rows));
  if (!also.empty()) line.json("also", json_list(also));
  return line.str();
}

}  // namespace aluframe::io
