#include "apps/cli/report_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/files/output_guard.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/report.h"
#include "aluframe/run/results.h"
#include "aluframe/run/told.h"
#include "aluframe/services/readable_report.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/result_tables.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/terminal.h"
#include "apps/cli/text_editor.h"
#include "apps/cli/user_locale.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

fs::path beside_model(const fs::path& model, const char* extension) {
  return fs::path(model).replace_extension(extension);
}

struct Files {
  fs::path results;
  fs::path report;
};

Files files_of(const ReportOptions& options) {
  return {options.results.value_or(run::result_path_of(options.input.model)),
          options.output.value_or(beside_model(options.input.model, ".alu"))};
}

/// What would be overwritten that the user cannot mean, or nothing. The results are added to, so
/// they are an output as well.
std::optional<std::string> overwriting_problem(const ReportOptions& options, const Files& files) {
  return files::find_overwriting(
      {{"the result file", files.results, files::FileKind::results},
       {"the report", files.report},
       {"the readable copy", options.readable}},
      {{"the model", options.input.model}, {"the table of forces", options.input.forces}});
}

run::ReportOptions report_options(const Files& files, const UnitPair& units) {
  return {.results = files.results,
          .report = files.report,
          .force = units.first,
          .length = units.second,
          .message = print_message};
}

/// What the results that the report goes by cover of the model, and what they tell of the elements
/// that it is of.
struct Basis {
  std::optional<run::Coverage> coverage;  ///< nothing without a result file
  run::Told told;
  store::RunInfo info;
};

/// Without a result file no element could be taken up: only the report knows why.
Basis basis_of(const services::ReportSummary& summary, const Files& files) {
  Basis basis;
  if (fs::exists(files.results)) {
    const auto reader = store::ResultReader::open(files.results);
    std::vector<model::Number> elements = summary.reported;
    elements.insert(elements.end(), summary.not_reported.begin(), summary.not_reported.end());
    std::ranges::sort(elements);
    basis.coverage = run::coverage_of(*reader);
    basis.told = run::told_by(*reader, elements);
    basis.info = reader->info();
  }
  basis.told.not_checked = summary.not_checked;
  return basis;
}

std::string number_list(const std::vector<model::Number>& numbers, tables::Lists lists) {
  return tables::shown_list(model::join_as_ranges(numbers), lists);
}

/// How many failing elements the report says nothing of, and of which nobody can tell.
std::string unprinted_text(const services::UnprintedFailures& unprinted, tables::Lists lists) {
  std::string text =
      fmt::format(", {} of which no line of the report says so", unprinted.elements.size());
  if (!unprinted.elements.empty()) {
    text += ": element " + number_list(unprinted.elements, lists);
  }
  if (!unprinted.unclear.empty()) {
    text += fmt::format("; whether it does of element {} cannot be told",
                        number_list(unprinted.unclear, lists));
  }
  return text;
}

/// The combinations that the report is of, and the ratios of its elements, as `check` ends with
/// them.
std::string ratios_text(const model::Model& model, const services::ReportSummary& summary,
                        const Basis& basis, tables::Lists lists) {
  std::string text;
  if (basis.coverage) {
    text = fmt::format("Combinations: {}\n", number_list(basis.coverage->combinations, lists));
  }
  return text + tables::ratios_text(model, basis.told, unprinted_text(summary.unprinted, lists));
}

void print_summary(const model::Model& model, const services::ReportSummary& summary,
                   const Files& files, const Basis& basis) {
  print_formatted("Report of {} element{}, complete: {}\n", summary.reported.size(),
                  summary.reported.size() == 1 ? "" : "s", files.report.string());
  if (!summary.checked_now.empty()) {
    print_message(fmt::format("checked for the report and added to {}: element {}",
                              files.results.string(),
                              tables::shown_list(model::join_as_ranges(summary.checked_now))));
  }
  if (!summary.not_reported.empty()) {
    print_message(fmt::format("without results: element {}",
                              tables::shown_list(model::join_as_ranges(summary.not_reported))));
  }
  if (!summary.without_checks.empty()) {
    print_message(fmt::format("no check to show: element {}",
                              tables::shown_list(model::join_as_ranges(summary.without_checks))));
  }
  if (basis.coverage) print_formatted("Covered: {}\n", run::coverage_text(*basis.coverage));
  for (const store::GoverningRow& row : summary.unprinted.checks) {
    print_formatted("Fails without a line in the report: element {}, {} {}\n", row.element,
                    tables::item_name(row.item), tables::short_number(row.governing.Ratio()));
  }
  print_text(ratios_text(model, summary, basis, tables::Lists::shortened));
  print_text(tables::told_text(model, basis.told));
}

int exit_status(const services::ReportSummary& summary) {
  switch (summary.outcome) {
    case services::RunOutcome::complete:
      return summary.reported.size() == summary.without_checks.size() ? exit_failure : exit_done;
    case services::RunOutcome::nothing_to_check:
      return exit_input_error;
    default:
      print_message("the report failed: " + summary.failure);
      return exit_failure;
  }
}

/// Says what the user should know of the stored results that the report goes by, if there are any.
void warn_about_stored(const run::Input& input, const Files& files) {
  if (!fs::exists(files.results)) return;
  const auto reader = store::ResultReader::open(files.results);
  if (const auto text = run::unfinished_text(files.results, reader->state())) print_message(*text);
  if (input.combinations.empty()) return;
  const run::Coverage coverage = run::coverage_of(*reader);
  print_message(fmt::format(
      "{}: covers combination {} alone, {}, and the report goes by no other; check the model "
      "again for all",
      files.results.string(), tables::shown_list(model::join_as_ranges(coverage.combinations)),
      run::combinations_text(coverage)));
}

/// What stands behind the readable copy: nobody should file a report without.
/// Its last line says that the copy is whole.
std::string appendix_of(const model::Model& model, const services::ReportSummary& summary,
                        const Basis& basis) {
  const std::size_t elements = summary.reported.size();
  std::string text = "\n\nSecond opinion (no part of the calculation report; docs/behaviour.md)\n";
  if (basis.coverage) {
    text += fmt::format("Covered: {}\n", run::coverage_text(*basis.coverage));
  }
  text += ratios_text(model, summary, basis, tables::Lists::whole);
  if (!basis.told.safe_rows.empty()) {
    text += tables::to_text(tables::safe_table(basis.told.safe_rows, basis.info), false) + "\n";
  }
  return text + tables::told_text(model, basis.told, tables::Lists::whole) +
         fmt::format("\nComplete: report of {} element{}\n", elements, elements == 1 ? "" : "s");
}

/// What follows a report that was written. The editor opens behind the readable copy, and not while
/// the design module still runs, so it is not opened by the module's own call.
/// @return the exit status
int finish(const ReportOptions& options, const Files& files, const std::string& appendix) {
  if (options.readable) {
    services::write_readable_report(files.report, user_charset(), *options.readable, appendix);
    print_formatted("Readable copy: {}\n", options.readable->string());
  }
  if (!options.open) return exit_done;
  const auto problem = open_in_editor(files.report);
  if (!problem) return exit_done;
  print_message(*problem);
  return exit_failure;
}

int write(const ReportOptions& options, const run::Input& input, const UnitPair& units) {
  const Files files = files_of(options);
  warn_about_stored(input, files);
  const services::ReportSummary summary = run::report(input, report_options(files, units));
  Basis basis;
  if (summary.outcome == services::RunOutcome::complete) {
    basis = basis_of(summary, files);
    print_summary(input.model, summary, files, basis);
  }
  for (const auto& [place, count] : summary.assertions) {
    print_message(fmt::format("internal inconsistency ({}), met {} times", place, count));
  }
  int status = exit_status(summary);
  if (status != exit_done) return status;
  status = finish(options, files, appendix_of(input.model, summary, basis));
  return status == exit_done && run::fails(basis.told, options.strict) ? exit_over_limit : status;
}

/// Why results cannot be looked at as strictly as the user wants, or nothing.
std::optional<std::string> strictness_problem(const ReportOptions& options, const Files& files) {
  if (options.strict != run::Strictness::safe || !fs::exists(files.results)) return std::nullopt;
  const auto reader = store::ResultReader::open(files.results);
  if (run::second_opinion_of(reader->info().setup) == run::SecondOpinion::on) return std::nullopt;
  return fmt::format(
      "--strict=safe looks at safe ratios, and {} has none: check the model again without "
      "--second-opinion off",
      files.results.string());
}

/// Everything that is wrong with the options, or the model and what to do with it.
int prepare_and_write(const ReportOptions& options) {
  const auto units = parse_unit_pair(options.units);
  if (const auto* text = std::get_if<std::string>(&units)) return stop({"--units: " + *text});
  if (const auto problem = overwriting_problem(options, files_of(options))) return stop({*problem});
  if (const auto problem = strictness_problem(options, files_of(options))) return stop({*problem});
  if (options.open) {
    if (const auto problem = editor_problem()) return stop({*problem});
  }
  const auto prepared =
      run::prepare_like(files_of(options).results, options.input, options.common.selection);
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) return stop(*problem);
  const auto& input = std::get<run::Input>(prepared);
  return write(options, input, std::get<UnitPair>(units));
}

}  // namespace

int run_report_command(const ReportOptions& options) {
  prepare_user_locale();
  try {
    return prepare_and_write(options);
  } catch (const std::exception& error) {
    print_message(files::error_text(error));
    return exit_failure;
  }
}

}  // namespace aluframe::cli
