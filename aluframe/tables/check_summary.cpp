#include "aluframe/tables/check_summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "aluframe/model/envelopes.h"
#include "aluframe/run/deflections.h"
#include "aluframe/tables/buckling_tables.h"
#include "aluframe/tables/displacement_tables.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/tables/remark_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

std::string combination_text(const model::Model& model, std::uint32_t number, int min_side) {
  const model::Combination* combination = model.combinations.find(number);
  if (combination != nullptr && combination->state_of) {
    return texts::translated("combination {}", model::label_of(*combination));
  }
  const std::string name = combination == nullptr || combination->name.empty()
                               ? ""
                               : fmt::format(" \"{}\"", combination->name);
  const std::string text = texts::translated("combination {}{}", number, name);
  return min_side != 0 ? texts::translated("{} (minimum side)", text) : text;
}

std::string elements_counted(std::uint64_t count) {
  return texts::counted(count, texts::translatable("{} element"),
                        texts::translatable("{} elements"));
}

/// "4 of 5 checked", and of how many in the model when the run is limited to some.
std::string elements_text(const run::Input& input, const services::CheckSummary& summary) {
  return input.elements.empty()
             ? texts::translated("{} of {} checked", summary.checked_elements, summary.elements)
             : texts::translated("{} of {} checked; the model has {}", summary.checked_elements,
                                 summary.elements, input.model.elements.size());
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
    text = summary.sides == 1 ? texts::translated("{} (as 1 state)", text)
                              : texts::translated("{} (as {} states)", text, summary.sides);
  } else if (summary.sides != summary.combinations) {
    text = texts::translated("{} ({} with both sides of envelopes)", text, summary.sides);
  }
  if (input.combinations.empty()) return text;
  return texts::translated("{}; the model has {} for design", text,
                           design_combinations(input.model));
}

/// What settings are called: their keys in words.
[[maybe_unused]] constexpr const char* setting_names[] = {
    texts::translatable("safety class"),   texts::translatable("ribs"),
    texts::translatable("strength ratio"), texts::translatable("seismic factors"),
    texts::translatable("length factors"), texts::translatable("buckling limit"),
    texts::translatable("analysis"),       texts::translatable("second opinion"),
    texts::translatable("buckling")};

std::string setting_name(const std::string& key) {
  std::string name = key;
  std::ranges::replace(name, '_', ' ');
  return std::string(texts::translation_of(name));
}

/// "safety class 2, gamma0 1 (default)", a line a setting.
std::string settings_text(const store::RunSetup& setup) {
  std::string out;
  for (const store::SettingRow& row : setup.settings) {
    out += line_of(
        out.empty() ? texts::translatable("settings") : "",
        texts::translated("{} {} ({})", setting_name(row.key), texts::sentence_in_words(row.value),
                          texts::sentence_in_words(row.origin)));
  }
  return out;
}

std::string worst_text(const model::Model& model,
                       const std::optional<services::WorstCheck>& found) {
  if (!found) return texts::translated("none");
  const services::WorstCheck& worst = *found;
  return texts::translated(
      "{} ({}), element {}, position {}, {}", short_number(worst.check.Ratio()),
      texts::translation_of(item_name(worst.item)), worst.element, position_name(worst.check.nPos),
      combination_text(model, worst.check.nLComb, worst.check.nMinSide));
}

std::string safe_text(const model::Model& model, const store::SafeRow& row) {
  const std::string rules = row.rules.empty() ? "" : ", " + row.rules;
  return texts::translated("{} ({}{}), code ratio {}, element {}, {}, {}", short_number(row.safe),
                           texts::translation_of(item_name(row.item)), rules, code_text(row),
                           row.element, texts::sentence_in_words(safe_place_text(row)),
                           combination_text(model, row.combination, row.min_side));
}

std::string safe_over_text(const run::SafeSummary& safe) {
  return texts::translated("{}, {} of which no check says so", elements_counted(safe.over),
                           safe.unsaid);
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

/// The displacement that is worst against its limit; empty cells without one.
template <class Add>
void add_displacements(const run::CheckResult& result, Add add) {
  const auto& rows = result.displacements;
  const store::DisplacementRow* worst = run::worst_displacement(rows);
  const auto over = std::ranges::count_if(rows, run::exceeds_limit);
  add("displacements_over_limit",
      worst != nullptr ? Cell(static_cast<std::int64_t>(over)) : Cell());
  add("displacement_ratio", worst != nullptr ? Cell(*run::ratio_of(*worst)) : Cell());
  add("displacement", worst != nullptr ? Cell(run::subject_text(*worst)) : Cell());
  add("displacement_combination", worst != nullptr && worst->combination
                                      ? Cell(static_cast<std::int64_t>(*worst->combination))
                                      : Cell());
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
  add_displacements(result, add);
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
  std::string out =
      fmt::format("{}\n", model.title.empty() ? texts::translated("Untitled model") : model.title);
  const auto add = [&out](std::string_view name, const std::string& value) {
    out += line_of(name, value);
  };
  out += settings_text(input.setup);
  add(texts::translatable("elements"), elements_text(input, summary));
  add(texts::translatable("combinations"), combinations_text(input, summary));
  const std::string forces = forces_text(input.forces);
  if (!forces.empty()) add(texts::translatable("forces"), forces);
  add(texts::translatable("checks"), texts::translated("{} positions, {} records stored",
                                                       summary.checked_positions, summary.records));
  add(texts::translatable("time"),
      texts::translated(
          "{:.2f} s ({:.0f} positions/s)", summary.seconds,
          static_cast<double>(summary.checked_positions - summary.positions_taken_up) /
              summary.seconds));
  const run::Told told = run::told_by(result);
  return out + ratios_text(model, told) + told_text(model, told);
}

std::string ratios_text(const model::Model& model, const run::Told& told,
                        const std::string& on_failing) {
  return line_of(texts::translatable("worst ratio"), worst_text(model, told.worst)) +
         line_of(texts::translatable("over 1"),
                 elements_counted(told.over) + (told.over == 0 ? "" : on_failing));
}

std::string told_text(const model::Model& model, const run::Told& told, Lists lists) {
  std::string out;
  if (told.second_opinion == run::SecondOpinion::off) {
    out = line_of(texts::translatable("safe ratio"),
                  texts::translated("none: the check was made with --second-opinion off"));
  } else if (told.safe && told.safe->worst) {
    out = line_of(texts::translatable("safe ratio"), safe_text(model, *told.safe->worst)) +
          line_of(texts::translatable("safe over 1"), safe_over_text(*told.safe));
  }
  out +=
      line_of(texts::translatable("buckling"), buckling_line(told.buckling, told.buckling_factors));
  if (!told.displacements.empty()) {
    out += line_of(texts::translatable("deflections"), displacement_line(told.displacements));
  }
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
  const std::string accuracy = texts::translated("residual {:.1e}, forces certain to {:.1e}",
                                                 summary.residual, summary.force_error);
  if (summary.second_order_analyses == 0) {
    return texts::translated("linear analysis of {}, {}",
                             texts::counted(summary.load_cases, texts::translatable("{} load case"),
                                            texts::translatable("{} load cases")),
                             accuracy);
  }
  const std::string analyses =
      summary.large_displacements
          ? texts::counted(summary.second_order_analyses,
                           texts::translatable("{} large-displacement analysis"),
                           texts::translatable("{} large-displacement analyses"))
          : texts::counted(summary.second_order_analyses,
                           texts::translatable("{} second-order analysis"),
                           texts::translatable("{} second-order analyses"));
  return texts::translated("{}, at most {} iterations, {}", analyses, summary.iterations, accuracy);
}

}  // namespace aluframe::tables
