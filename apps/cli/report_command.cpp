#include "apps/cli/report_command.h"

#include <fmt/format.h>

#include <exception>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/files/publication.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/run/report.h"
#include "aluframe/run/results.h"
#include "aluframe/tables/result_tables.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/report_files.h"
#include "apps/cli/report_texts.h"
#include "apps/cli/terminal.h"
#include "apps/cli/text_editor.h"
#include "apps/cli/user_locale.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

run::ReportOptions report_options(const ReportFiles& files, const UnitPair& units) {
  return {.results = files.results,
          .report = files.report,
          .force = units.first,
          .length = units.second,
          .message = print_message};
}

/// The elements that the user should know of, as messages.
void print_left_out(const services::ReportSummary& summary, const ReportFiles& files) {
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
void warn_about_stored(const run::Input& input, const ReportFiles& files) {
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

/// Writes the readable copy: of every report that came to its end, also where the report itself
/// lacks what the environment's character set does not have.
/// @return the exit status
int write_copy(const fs::path& path, const std::string& text) {
  try {
    files::publish_text(path, text);
    return exit_done;
  } catch (const std::exception& error) {
    print_message(
        fmt::format("{}: cannot be written: {}", path.string(), files::error_text(error)));
    return exit_failure;
  }
}

/// Puts the text of a complete report where the user wants it, with its summary on the screen: on
/// standard error where standard output has the report.
/// @return the exit status
int put(const std::string& text, const std::string& summary, const ReportFiles& files) {
  if (!files.report) {
    print_text(text);
    print_to_stderr(model::for_terminal(summary));
    return exit_done;
  }
  print_text(summary);
  const int status = write_copy(*files.readable, text);
  if (status == exit_done) print_formatted("Readable copy: {}\n", files.readable->string());
  return status;
}

/// The editor opens behind the readable copy, and not while the design module still runs, so it is
/// not opened by the module's own call.
/// @return the exit status
int open(const fs::path& readable) {
  const auto problem = open_in_editor(readable);
  if (!problem) return exit_done;
  print_message(*problem);
  return exit_failure;
}

/// What follows a report that came to its end. @return the exit status
int finish(const ReportOptions& options, const model::Model& model,
           const services::ReportSummary& summary, const ReportFiles& files) {
  const ReportBasis basis = report_basis(summary, files.results);
  const std::string text = summary.readable + report_appendix(model, summary, basis);
  if (summary.outcome != services::RunOutcome::complete) {
    const bool is_written = write_copy(*files.readable, text) == exit_done;
    if (is_written) print_message("the readable copy is whole: " + files.readable->string());
    return exit_failure;
  }
  print_left_out(summary, files);
  int status = put(text, report_summary_text(model, summary, files, basis), files);
  if (status == exit_done) status = exit_status(summary);
  if (status == exit_done && options.open) status = open(*files.readable);
  return status == exit_done && run::fails(basis.told, options.strict) ? exit_over_limit : status;
}

int write(const ReportOptions& options, const run::Input& input, const UnitPair& units,
          const ReportFiles& files) {
  warn_about_stored(input, files);
  const services::ReportSummary summary = run::report(input, report_options(files, units));
  for (const auto& [place, count] : summary.assertions) {
    print_message(fmt::format("internal inconsistency ({}), met {} times", place, count));
  }
  const int status =
      summary.outcome == services::RunOutcome::complete ? exit_done : exit_status(summary);
  return summary.readable.empty() ? status : finish(options, input.model, summary, files);
}

/// Why results cannot be looked at as strictly as the user wants, or nothing.
std::optional<std::string> strictness_problem(const ReportOptions& options,
                                              const ReportFiles& files) {
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
  const ReportFiles files = report_files(options);
  if (const auto problem = problem_of_files(options, files)) return stop({*problem});
  if (const auto problem = strictness_problem(options, files)) return stop({*problem});
  if (options.open) {
    if (const auto problem = editor_problem()) return stop({*problem});
  }
  const auto prepared = run::prepare_like(files.results, options.input, options.common.selection);
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) return stop(*problem);
  const auto& input = std::get<run::Input>(prepared);
  return write(options, input, std::get<UnitPair>(units), files);
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
