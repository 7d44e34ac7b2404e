#include "apps/cli/check_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>
#include <variant>

#include "aluframe/io/model_file.h"
#include "aluframe/model/envelopes.h"
#include "apps/cli/envelope_remark.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/result_tables.h"
#include "apps/cli/run_input.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

bool wants_progress(ProgressMode mode) {
  return mode == ProgressMode::always || (mode == ProgressMode::automatic && stderr_is_terminal());
}

void print_assertions(const services::CheckSummary& summary) {
  for (const auto& [place, count] : summary.assertions) {
    print_message(fmt::format("internal inconsistency ({}), met {} times", place, count));
  }
}

int exit_status(const services::CheckSummary& summary, bool strict) {
  switch (summary.outcome) {
    case services::RunOutcome::cancelled:
      return exit_cancelled;
    case services::RunOutcome::failed:
      return exit_failure;
    case services::RunOutcome::nothing_to_check:
      return exit_input_error;
    case services::RunOutcome::complete:
      break;
  }
  if (summary.checked_elements == 0) return exit_failure;
  return strict && summary.elements_over_limit > 0 ? exit_over_limit : exit_done;
}

std::string combination_text(const model::Model& model, const T_RALU_ITEM& check) {
  const model::Combination* combination = model.combinations.find(check.nLComb);
  if (combination != nullptr && combination->state_of) {
    return "combination " + model::label_of(*combination);
  }
  const std::string name = combination == nullptr || combination->name.empty()
                               ? ""
                               : fmt::format(" \"{}\"", combination->name);
  return fmt::format("combination {}{}{}", check.nLComb, name,
                     check.nMinSide != 0 ? " (minimum side)" : "");
}

std::string combinations_text(const services::CheckSummary& summary) {
  if (summary.by_states) {
    return fmt::format("{} (as {} state{})", summary.combinations, summary.sides,
                       summary.sides == 1 ? "" : "s");
  }
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

/// Number and name of the combination that governs; of an envelope for a state of it.
std::pair<Cell, Cell> worst_combination(const model::Model& model,
                                        const services::CheckSummary& summary) {
  if (!summary.worst) return {};
  const model::Number number = summary.worst->check.nLComb;
  const model::Combination* combination = model.combinations.find(number);
  if (combination == nullptr) return {static_cast<std::int64_t>(number), Cell()};
  return {static_cast<std::int64_t>(combination->state_of.value_or(number)), combination->name};
}

/// The run as a table of one row, for JSON and CSV.
OutputTable summary_table(const model::Model& model, const services::CheckSummary& summary) {
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
  auto [combination, name] = worst_combination(model, summary);
  add("worst_combination", std::move(combination));
  add("worst_combination_name", std::move(name));
  add("not_checked", whole(summary.not_checked.size()));
  table.rows.push_back(std::move(row));
  return table;
}

void print_outcome(const services::CheckSummary& summary) {
  if (summary.outcome == services::RunOutcome::failed) {
    print_message("the run failed: " + summary.failure);
  } else if (summary.outcome == services::RunOutcome::cancelled) {
    print_message("cancelled; the results so far are kept");
  } else if (summary.outcome == services::RunOutcome::complete && summary.checked_elements == 0) {
    print_message("no element could be checked");
  }
  print_assertions(summary);
}

std::filesystem::path result_path(const CheckOptions& options) {
  return options.output.value_or(result_path_of(options.input.model));
}

services::SessionOptions session_options(const CheckOptions& options, ProgressBar& progress) {
  services::SessionOptions session;
  session.result_path = result_path(options);
  session.language = options.language;
  session.progress = &progress;
  session.message = print_message;
  return session;
}

void print_summary(const model::Model& model, const services::CheckSummary& summary,
                   const forces::Summary& computed, const CheckOptions& options) {
  if (options.common.format == Format::table) {
    const std::string forces = computed.load_cases > 0 ? forces_text(computed) : "";
    fmt::print("{}", summary_text(model, summary, forces));
    fmt::print("  {:<14}{}\n", "results", result_path(options).string());
  } else {
    fmt::print("{}", render(summary_table(model, summary), options.common.format, false));
    if (!summary.not_checked.empty()) print_message(not_checked_text(summary.not_checked));
  }
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

int run_check_command(const CheckOptions& options) {
  auto loaded = load_input(options.input);
  if (const auto* text = std::get_if<std::string>(&loaded)) {
    print_message(*text);
    return exit_input_error;
  }
  auto& input = std::get<Input>(loaded);
  ProgressBar progress(wants_progress(options.progress));
  services::SessionOptions session = session_options(options, progress);
  if (const auto problem = limit(input, options.common, session)) {
    print_message(options.input.model.string() + ": " + *problem);
    return exit_input_error;
  }
  remark_on_extremes(model::checked_by_extremes(input.model, session.combinations));
  const auto computed = add_forces(options.input.model, input.model);
  if (const auto* stop = std::get_if<Stop>(&computed)) {
    print_message(stop->message);
    return stop->status;
  }
  note_interrupts();
  const services::CheckSummary summary = services::run_check(input.model, std::move(session));
  if (summary.records > 0) {
    print_summary(input.model, summary, std::get<forces::Summary>(computed), options);
  }
  print_outcome(summary);
  return exit_status(summary, options.strict);
}

}  // namespace aluframe::cli
