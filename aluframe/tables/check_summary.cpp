#include "aluframe/tables/check_summary.h"

#include <fmt/format.h>

#include <cstdint>
#include <string_view>
#include <utility>

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

std::string combinations_text(const services::CheckSummary& summary) {
  if (summary.sides == summary.combinations) return fmt::format("{}", summary.combinations);
  return fmt::format("{} ({} with both sides of envelopes)", summary.combinations, summary.sides);
}

std::string worst_text(const model::Model& model, const services::CheckSummary& summary) {
  if (!summary.worst) return "none";
  const services::WorstCheck& worst = *summary.worst;
  return fmt::format("{} ({}), element {}, position {}, {}", short_number(worst.check.Ratio()),
                     item_name(worst.item), worst.element, position_name(worst.check.nPos),
                     combination_text(model, worst.check));
}

}  // namespace

std::string summary_text(const model::Model& model, const services::CheckSummary& summary,
                         const std::string& forces) {
  std::string out = fmt::format("{}\n", model.title.empty() ? "Untitled model" : model.title);
  const auto add = [&out](std::string_view name, const std::string& value) {
    out += fmt::format("  {:<14}{}\n", name, value);
  };
  add("elements", fmt::format("{} of {} checked", summary.checked_elements, summary.elements));
  add("combinations", combinations_text(summary));
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

OutputTable summary_table(const services::CheckSummary& summary) {
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
  table.rows.push_back(std::move(row));
  return table;
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
