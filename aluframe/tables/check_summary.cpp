#include "aluframe/tables/check_summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/tables/result_tables.h"

namespace aluframe::tables {

namespace {

std::string combination_text(const model::Model& model, const T_RALU_ITEM& check) {
  const model::Combination* combination = model.combinations.find(check.nLComb);
  const std::string name = combination == nullptr || combination->name.empty()
                               ? ""
                               : fmt::format(" \"{}\"", combination->name);
  return fmt::format("combination {}{}{}", check.nLComb, name,
                     check.nMinSide != 0 ? " (minimum side)" : "");
}

/// "4 of 5 checked", and of how many in the model when the run is limited to some.
std::string elements_text(const run::Input& input, const services::CheckSummary& summary) {
  const std::string text =
      fmt::format("{} of {} checked", summary.checked_elements, summary.elements);
  return input.elements.empty()
             ? text
             : fmt::format("{}; the model has {}", text, input.model.elements.size());
}

std::size_t design_combinations(const model::Model& model) {
  return static_cast<std::size_t>(std::ranges::count_if(
      model.combinations,
      [](const model::Combination& combination) { return combination.design; }));
}

std::string combinations_text(const run::Input& input, const services::CheckSummary& summary) {
  std::string text = fmt::format("{}", summary.combinations);
  if (summary.sides != summary.combinations) {
    text += fmt::format(" ({} with both sides of envelopes)", summary.sides);
  }
  if (input.combinations.empty()) return text;
  return fmt::format("{}; the model has {} for design", text, design_combinations(input.model));
}

/// "safety class 2, gamma0 1 (default)", a line a setting.
std::string settings_text(const store::RunSetup& setup) {
  std::string out;
  for (const store::SettingRow& row : setup.settings) {
    std::string name = row.key;
    std::ranges::replace(name, '_', ' ');
    out += fmt::format("  {:<14}{} {} ({})\n", out.empty() ? "settings" : "", name, row.value,
                       row.origin);
  }
  return out;
}

std::string worst_text(const model::Model& model, const services::CheckSummary& summary) {
  if (!summary.worst) return "none";
  const services::WorstCheck& worst = *summary.worst;
  return fmt::format("{} ({}), element {}, position {}, {}", short_number(worst.check.Ratio()),
                     item_name(worst.item), worst.element, position_name(worst.check.nPos),
                     combination_text(model, worst.check));
}

/// The run as a table of one row.
OutputTable summary_table(const run::Input& input, const services::CheckSummary& summary) {
  const auto whole = [](std::uint64_t value) { return Cell(static_cast<std::int64_t>(value)); };
  OutputTable table;
  std::vector<Cell> row;
  const auto add = [&](const char* key, Cell value) {
    table.columns.push_back({.key = key, .heading = key});
    row.push_back(std::move(value));
  };
  add("outcome", std::string(outcome_name(summary.outcome)));
  add("elements", whole(summary.elements));
  add("checked_elements", whole(summary.checked_elements));
  add("combinations", whole(summary.combinations));
  add("checked_positions", whole(summary.checked_positions));
  add("records", whole(summary.records));
  add("seconds", summary.seconds);
  add("elements_over_1", whole(summary.elements_over_limit));
  const bool any = summary.worst.has_value();
  add("worst_ratio", any ? Cell(summary.worst->check.Ratio()) : Cell());
  add("worst_element", any ? whole(summary.worst->element) : Cell());
  add("worst_item", any ? Cell(std::string(item_name(summary.worst->item))) : Cell());
  add("worst_position", any ? Cell(std::string(position_name(summary.worst->check.nPos))) : Cell());
  add("worst_combination", any ? whole(summary.worst->check.nLComb) : Cell());
  add("not_checked", whole(summary.not_checked.size()));
  add("model_elements", whole(input.model.elements.size()));
  add("model_combinations", whole(design_combinations(input.model)));
  table.rows.push_back(std::move(row));
  return table;
}

OutputTable settings_table(const store::RunSetup& setup) {
  OutputTable table;
  for (const char* key : {"key", "value", "from"}) {
    table.columns.push_back({.key = key, .heading = key});
  }
  for (const store::SettingRow& row : setup.settings) {
    table.rows.push_back({row.key, row.value, row.origin});
  }
  return table;
}

}  // namespace

std::string summary_text(const run::Input& input, const services::CheckSummary& summary) {
  const model::Model& model = input.model;
  std::string out = fmt::format("{}\n", model.title.empty() ? "Untitled model" : model.title);
  const auto add = [&out](std::string_view name, const std::string& value) {
    out += fmt::format("  {:<14}{}\n", name, value);
  };
  out += settings_text(input.setup);
  add("elements", elements_text(input, summary));
  add("combinations", combinations_text(input, summary));
  const std::string forces = forces_text(input.forces);
  if (!forces.empty()) add("forces", forces);
  add("checks",
      fmt::format("{} positions, {} records stored", summary.checked_positions, summary.records));
  add("time", fmt::format("{:.2f} s ({:.0f} positions/s)", summary.seconds,
                          static_cast<double>(summary.checked_positions) / summary.seconds));
  add("worst ratio", worst_text(model, summary));
  add("over 1", fmt::format("{} element{}", summary.elements_over_limit,
                            summary.elements_over_limit == 1 ? "" : "s"));
  if (!summary.not_checked.empty()) out += not_checked_text(summary.not_checked);
  return out;
}

std::string summary_csv(const run::Input& input, const services::CheckSummary& summary) {
  OutputTable table = summary_table(input, summary);
  const auto add = [&table](const std::string& key, Cell value) {
    table.columns.push_back({.key = key, .heading = key});
    table.rows.front().push_back(std::move(value));
  };
  for (const store::SettingRow& row : input.setup.settings) {
    add(row.key, row.value);
    add(row.key + "_from", row.origin);
  }
  add("not_checked_reasons", not_checked_line(summary.not_checked));
  return to_csv(table);
}

std::string summary_json(const run::Input& input, const services::CheckSummary& summary) {
  return to_json_with(summary_table(input, summary),
                      {{"settings", settings_table(input.setup)},
                       {"not_checked_groups", not_checked_table(summary.not_checked)}});
}

std::string forces_text(const forces::Summary& summary) {
  if (summary.load_cases == 0) return "";
  const auto plural = [](std::size_t count) { return count == 1 ? "" : "s"; };
  if (summary.second_order_analyses > 0) {
    return fmt::format("{} second-order analys{}, at most {} iterations, residual {:.1e}",
                       summary.second_order_analyses,
                       summary.second_order_analyses == 1 ? "is" : "es", summary.iterations,
                       summary.residual);
  }
  return fmt::format("linear analysis of {} load case{}, residual {:.1e}", summary.load_cases,
                     plural(summary.load_cases), summary.residual);
}

}  // namespace aluframe::tables
