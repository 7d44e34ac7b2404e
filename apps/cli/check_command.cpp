#include "apps/cli/check_command.h"

#include <fmt/format.h>

#include <variant>

#include "aluframe/run/check.h"
#include "aluframe/run/results.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/tables/not_checked_tables.h"
#include "apps/cli/exit_status.h"
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

void print_summary(const run::Input& input, const services::CheckSummary& summary,
                   const std::filesystem::path& results, tables::Format format) {
  if (format == tables::Format::table) {
    fmt::print("{}  {:<14}{}\n", tables::summary_text(input, summary), "results", results.string());
    return;
  }
  fmt::print("{}", format == tables::Format::json ? tables::summary_json(input, summary)
                                                  : tables::summary_csv(input, summary));
  if (!summary.not_checked.empty()) print_message(tables::not_checked_text(summary.not_checked));
}

}  // namespace

int run_check_command(const CheckOptions& options) {
  const auto prepared = run::prepare(options.input, options.common.selection);
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) return stop(*problem);
  const auto& input = std::get<run::Input>(prepared);
  ProgressBar progress(wants_progress(options.progress));
  const run::CheckOptions check{
      .results = options.output.value_or(run::result_path_of(options.input.model)),
      .language = options.language,
      .progress = &progress,
      .message = print_message};
  note_interrupts();
  const services::CheckSummary summary = run::check(input, check);
  if (summary.records > 0) print_summary(input, summary, check.results, options.common.format);
  print_outcome(summary);
  return exit_status(summary, options.strict);
}

}  // namespace aluframe::cli
