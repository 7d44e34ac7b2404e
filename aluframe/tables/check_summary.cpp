#include "aluframe/tables/check_summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "aluframe/model/envelopes.h"
#include "aluframe/tables/buckling_tables.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/tables/remark_tables.h"
#include "aluframe/tables/result_tables.h"

namespace aluframe::tables {

namespace {

std::string combination_text(const model::Model& model, std::uint32_t number, int min_side) {
  const model::Combination* combination = model.combinations.find(number);
  if (combination != nullptr && combination->state_of) {
    return "combination " + model::label_of(*combination);
  }
  const std::string name = combination == nullptr || combination->name.empty()
                               ? ""
                               : fmt::format(" \"{}\"", combination->name);
  return fmt::format("combination {}{}{}", number, name, min_side != 0 ? " (minimum side)" : "");
}

/// "4 of 5 checked", and of how many in the model when the run is limited to some.
std::string elements_text(const run::Input& input, const services::CheckSummary& summary) {
  const std::string text =
      fmt::format("{} of {} checked", summary.checked_elements, summary.elements);
  return input.elements.empty()
             ? text
             : fmt::format("{}; the model has {}", text, input.model.elements.size());
}

/// Combinations of the model that are for design, by themselves or by their states.
std::size_t design_combinations(const model::Model& model) {
  return static_cast<std::size_t>(
      std::ranges::count_if(model.combinations, [](const model::Combination& combination) {
        return (combination.design && !combination.state_of) || !combination.states.empty();
      }));
}

std::string combinations_text(const run::Input& input, const services::CheckSummary& summary) {
  std::string text = fmt::format("{}", summary.combinations);
  if (summary.by_states) {
    text += fmt::format(" (as {} state{})", summary.sides, summary.sides == 1 ? "" : "s");
  } else if (summary.sides != summary.combinations) {
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

std::string worst_text(const model::Model& model,
                       const std::optional<services::WorstCheck>& found) {
  if (!found) return "none";
  const services::WorstCheck& worst = *found;
  return fmt::format("{} ({}), element {}, position {}, {}", short_number(worst.check.Ratio()),
                     item_name(worst.item), worst.element, position_name(worst.check.nPos),
                     combination_text(model, worst.check.nLComb, worst.check.nMinSide));
}

std::string safe_text(const model::Model& model, const store::SafeRow& row) {
  const std::string rules = row.rules.empty() ? "" : fmt::format(", {}", row.rules);
  return fmt::format("{} ({}{}), code ratio {}, element {}, {}, {}", short_number(row.safe),
                     item_name(row.item), rules, code_text(row), row.element, safe_place_text(row),
                     combination_text(model, row.combination, row.min_side));
}

std::string safe_over_text(const run::SafeSummary& safe) {
  return fmt::format("{} element{}, {} of which no check says so", safe.over,
                     safe.over == 1 ? "" : "s", safe.unsaid);
}

/// A line of the summary.
std::string line_of(std::string_view name, const std::string& value) {
  return fmt::format("  {:<14}{}\n", name, value);
}

/// Number and name of a combination; of an envelope for a state of it.
std::pair<Cell, Cell> combination_cells(const model::Model& model, std::uint32_t number) {
  const model::Combination* combination = model.combinations.find(number);
  if (combination == nullptr) return {static_cast<std::int64_t>(number), Cell()};
  return {static_cast<std::int64_t>(combination->state_of.value_or(number)), combination->name};
}

/// The smallest buckling load factor; empty cells without one.
template <class Add>
void add_buckling(const run::CheckResult& result, Add add) {
  const store::BucklingRow* smallest = run::smallest_factor(result.buckling_factors);
  add("buckling", std::string(result.buckling == run::FrameBuckling::on ? "on" : "off"));
  add("buckling_factor", smallest != nullptr ? Cell(*smallest->factor) : Cell());
  add("buckling_combination",
      smallest != nullptr ? Cell(static_cast<std::int64_t>(smallest->combination)) : Cell());
  add("buckling_shape", smallest != nullptr ? Cell(smallest->shape) : Cell());
}

/// The second opinion of the run; empty cells without one.
template <class Add>
void add_safe(const model::Model& model, const run::CheckResult& result, Add add) {
  const auto whole = [](std::size_t value) { return Cell(static_cast<std::int64_t>(value)); };
  const store::SafeRow* worst = result.safe && result.safe->worst ? &*result.safe->worst : nullptr;
  add("second_opinion",
      std::string(result.second_opinion == run::SecondOpinion::on ? "on" : "off"));
  add("safe_over_1", result.safe ? whole(result.safe->over) : Cell());
  add("safe_over_1_unsaid", result.safe ? whole(result.safe->unsaid) : Cell());
  add("safe_ratio", worst != nullptr ? Cell(worst->safe) : Cell());
  add("safe_code_ratio", worst != nullptr && worst->code ? Cell(*worst->code) : Cell());
  add("safe_element", worst != nullptr ? whole(worst->element) : Cell());
  add("safe_item", worst != nullptr ? Cell(std::string(item_name(worst->item))) : Cell());
  add("safe_rules", worst != nullptr ? Cell(worst->rules) : Cell());
  const auto [combination, name] =
      worst != nullptr ? combination_cells(model, worst->combination) : std::pair<Cell, Cell>();
  add("safe_combination", combination);
  add("safe_combination_name", name);
  add("safe_fraction", worst != nullptr && worst->fraction ? Cell(*worst->fraction) : Cell());
  add("remark_count", whole(result.remarks.size()));
  add_buckling(result, add);
}

/// What the run took.
template <class Add>
void add_counts(const services::CheckSummary& summary, Add add) {
  const auto whole = [](std::uint64_t value) { return Cell(static_cast<std::int64_t>(value)); };
  add("outcome", std::string(outcome_name(summary.outcome)));
  add("elements", whole(summary.elements));
  add("checked_elements", whole(summary.checked_elements));
  add("combinations", whole(summary.combinations));
  add("checked_positions", whole(summary.checked_positions));
  add("records", whole(summary.records));
  add("seconds", summary.seconds);
  add("elements_over_1", whole(summary.elements_over_limit));
}

/// The worst ratio of the checks and where it stands; empty cells without one.
template <class Add>
void add_worst(const model::Model& model, const std::optional<services::WorstCheck>& worst,
               Add add) {
  const auto text = [](std::string_view value) { return Cell(std::string(value)); };
  add("worst_ratio", worst ? Cell(worst->check.Ratio()) : Cell());
  add("worst_element", worst ? Cell(static_cast<std::int64_t>(worst->element)) : Cell());
  add("worst_item", worst ? text(item_name(worst->item)) : Cell());
  add("worst_position", worst ? text(position_name(worst->check.nPos)) : Cell());
  const auto [combination, name] =
      worst ? combination_cells(model, worst->check.nLComb) : std::pair<Cell, Cell>();
  add("worst_combination", combination);
  add("worst_combination_name", name);
}

/// The run as a table of one row.
OutputTable summary_table(const run::Input& input, const run::CheckResult& result) {
  const services::CheckSummary& summary = result.summary;
  const auto whole = [](std::uint64_t value) { return Cell(static_cast<std::int64_t>(value)); };
  OutputTable table;
  std::vector<Cell> row;
  const auto add = [&](const char* key, Cell value) {
    table.columns.push_back({.key = key, .heading = key});
    row.push_back(std::move(value));
  };
  add_counts(summary, add);
  add_worst(input.model, summary.worst, add);
  add("not_checked", whole(summary.not_checked.size()));
  add("model_elements", whole(input.model.elements.size()));
  add("model_combinations", whole(design_combinations(input.model)));
  add_safe(input.model, result, add);
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

std::string summary_text(const run::Input& input, const run::CheckResult& result) {
  const services::CheckSummary& summary = result.summary;
  const model::Model& model = input.model;
  std::string out = fmt::format("{}\n", model.title.empty() ? "Untitled model" : model.title);
  const auto add = [&out](std::string_view name, const std::string& value) {
    out += line_of(name, value);
  };
  out += settings_text(input.setup);
  add("elements", elements_text(input, summary));
  add("combinations", combinations_text(input, summary));
  const std::string forces = forces_text(input.forces);
  if (!forces.empty()) add("forces", forces);
  add("checks",
      fmt::format("{} positions, {} records stored", summary.checked_positions, summary.records));
  add("time",
      fmt::format("{:.2f} s ({:.0f} positions/s)", summary.seconds,
                  static_cast<double>(summary.checked_positions - summary.positions_taken_up) /
                      summary.seconds));
  const run::Told told = run::told_by(result);
  return out + ratios_text(model, told) + told_text(model, told);
}

std::string ratios_text(const model::Model& model, const run::Told& told,
                        const std::string& on_failing) {
  return line_of("worst ratio", worst_text(model, told.worst)) +
         line_of("over 1", fmt::format("{} element{}{}", told.over, told.over == 1 ? "" : "s",
                                       told.over == 0 ? "" : on_failing));
}

std::string told_text(const model::Model& model, const run::Told& told, Lists lists) {
  std::string out;
  if (told.second_opinion == run::SecondOpinion::off) {
    out = line_of("safe ratio", "none: the check was made with --second-opinion off");
  } else if (told.safe && told.safe->worst) {
    out = line_of("safe ratio", safe_text(model, *told.safe->worst)) +
          line_of("safe over 1", safe_over_text(*told.safe));
  }
  out += line_of("buckling", buckling_line(told.buckling, told.buckling_factors));
  const auto of_model = [&model](model::Number number) {
    const model::Combination* found = model.combinations.find(number);
    return found != nullptr ? found->state_of.value_or(number) : number;
  };
  const auto remarks = run::with_envelopes(told.remarks, of_model);
  out += remarks_text(remarks, lists);
  if (told.not_checked.empty()) return out;
  return out + not_checked_text(run::with_envelopes(told.not_checked, of_model), remarks, lists);
}

std::string summary_csv(const run::Input& input, const run::CheckResult& result) {
  OutputTable table = summary_table(input, result);
  const auto add = [&table](const std::string& key, Cell value) {
    table.columns.push_back({.key = key, .heading = key});
    table.rows.front().push_back(std::move(value));
  };
  for (const store::SettingRow& row : input.setup.settings) {
    add(row.key, row.value);
    add(row.key + "_from", row.origin);
  }
  add("not_checked_reasons", not_checked_line(result.summary.not_checked));
  return to_csv(table);
}

std::string summary_json(const run::Input& input, const run::CheckResult& result) {
  return to_json_with(
      summary_table(input, result),
      {{"settings", settings_table(input.setup)},
       {"not_checked_groups", not_checked_table(result.summary.not_checked, result.remarks)},
       {"remarks", remarks_table(result.remarks)}});
}

std::string forces_text(const forces::Summary& summary) {
  if (summary.load_cases == 0) return "";
  const auto plural = [](std::size_t count) { return count == 1 ? "" : "s"; };
  const std::string accuracy = fmt::format("residual {:.1e}, forces certain to {:.1e}",
                                           summary.residual, summary.force_error);
  if (summary.second_order_analyses > 0) {
    return fmt::format("{} {} analys{}, at most {} iterations, {}", summary.second_order_analyses,
                       summary.large_displacements ? "large-displacement" : "second-order",
                       summary.second_order_analyses == 1 ? "is" : "es", summary.iterations,
                       accuracy);
  }
  return fmt::format("linear analysis of {} load case{}, {}", summary.load_cases,
                     plural(summary.load_cases), accuracy);
}

}  // namespace aluframe::tables
