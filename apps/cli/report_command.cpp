#include "apps/cli/report_command.h"

#include <exception>
#include <utility>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/files/publication.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/run/report.h"
#include "aluframe/run/results.h"
#include "aluframe/tables/report_texts.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/text.h"
#include "apps/cli/report_files.h"
#include "apps/cli/terminal.h"
#include "apps/cli/text_editor.h"
#include "apps/cli/user_locale.h"
#include "apps/exit_status.h"

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
    print_message(texts::translated(
        "checked for the report and added to {}: element {}", files.results.string(),
        tables::shown_list(model::join_as_ranges(summary.checked_now))));
  }
  if (!summary.not_reported.empty()) {
    print_message(
        texts::translated("without results: element {}",
                          tables::shown_list(model::join_as_ranges(summary.not_reported))));
  }
  if (!summary.without_checks.empty()) {
    print_message(
        texts::translated("no check to show: element {}",
                          tables::shown_list(model::join_as_ranges(summary.without_checks))));
  }
}

/// Says what the user should know of the stored results that the report goes by, if there are any.
void warn_about_stored(const run::Input& input, const ReportFiles& files) {
  if (!fs::exists(files.results)) return;
  const auto reader = store::ResultReader::open(files.results);
  if (const auto text = run::unfinished_text(files.results, reader->state())) print_message(*text);
  if (input.combinations.empty()) return;
  const run::Coverage coverage = run::coverage_of(*reader);
  print_message(texts::translated(
      "{}: covers combination {} alone, {}, and the report goes by no other; check the model "
      "again for all",
      files.results.string(), tables::shown_list(model::join_as_ranges(coverage.combinations)),
      run::combinations_text(coverage)));
}

/// What became of a report's readable text.
struct Ending {
  std::optional<tables::ReportBasis>
      basis;            ///< nothing: there is no text either, as `problem` says
  std::string text;     ///< with its appendix
  std::string problem;  ///< why it is not where the user wants it; empty: it is
};

/// Makes the readable text of a report that came to its end, and writes the copy: also where the
/// report itself lacks what the environment's character set does not have.
Ending end_report(const model::Model& model, const services::ReportSummary& summary,
                  const ReportFiles& files) {
  Ending ending;
  try {
    tables::ReportBasis basis = tables::report_basis(summary, files.results);
    ending.text = summary.readable + tables::report_appendix(model, summary, basis);
    ending.basis = std::move(basis);
    if (files.readable) files::publish_text(*files.readable, ending.text);
  } catch (const std::exception& error) {
    ending.problem = files::error_text(error);
    if (files.readable) {
      ending.problem =
          texts::translated("{}: cannot be written: {}", files.readable->string(), ending.problem);
    }
  }
  return ending;
}

/// Everything that a failed report leaves, in one line: its readable copy may be whole.
std::string failure_text(const services::ReportSummary& summary, const ReportFiles& files,
                         const Ending& ending) {
  std::string text = texts::translated("the report failed: {}", summary.failure);
  if (!ending.problem.empty()) return text + "; " + ending.problem;
  if (ending.text.empty() || !files.readable) return text;
  return texts::translated("{}; the readable copy is whole: {}", text, files.readable->string());
}

/// Shows a complete report's summary and where its readable text is: on standard error where
/// standard output has the text, and only when it has all of it.
void show(const std::string& summary, const ReportFiles& files, const Ending& ending) {
  if (!files.report) {
    print_text(ending.text);
    if (!finish_stdout()) return;  // which the end of the program says
    print_to_stderr(model::for_terminal(summary));
    return;
  }
  print_text(summary);
  if (ending.problem.empty() && files.readable) {
    print_text(texts::translated("Readable copy: {}\n", files.readable->string()));
  }
}

/// The end of a complete report whose readable text is not where the user wants it.
/// @return the exit status
int tell_missing_copy(const ReportFiles& files, const Ending& ending) {
  print_message(files.report ? texts::translated("{}; the report is whole: {}", ending.problem,
                                                 files.report->string())
                             : texts::translated("the report failed: {}", ending.problem));
  return exit_failure;
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

/// Tells what the system's character set lacks of a report, which has question marks there.
void tell_replaced(const services::ReportSummary& summary, const ReportFiles& files) {
  if (!files.report || summary.replaced == 0) return;
  const std::string characters = texts::counted(
      summary.replaced, texts::translatable("{} character"), texts::translatable("{} characters"));
  print_message(texts::translated(
      "{}: has \"?\" for {} that the system's character set lacks; the readable copy has them all "
      "(LC_ALL=C.UTF-8 has them in the report too)",
      files.report->string(), characters));
}

/// What follows a complete report. @return the exit status
int finish(const ReportOptions& options, const model::Model& model,
           const services::ReportSummary& summary, const ReportFiles& files, const Ending& ending) {
  print_left_out(summary, files);
  tell_replaced(summary, files);
  if (ending.basis) {
    const std::string place =
        files.report ? files.report->string() : texts::translated("standard output");
    show(tables::report_summary_text(model, summary, place, *ending.basis), files, ending);
  }
  if (!ending.problem.empty()) return tell_missing_copy(files, ending);
  if (summary.reported.size() == summary.without_checks.size()) return exit_failure;
  const int status = options.open ? open(*files.readable) : exit_done;
  if (status != exit_done) return status;
  return run::fails(ending.basis->told, options.strict) ? exit_over_limit : exit_done;
}

int write(const ReportOptions& options, const run::Input& input, const UnitPair& units,
          const ReportFiles& files) {
  warn_about_stored(input, files);
  Ending ending;
  run::ReportOptions wanted = report_options(files, units);
  wanted.follow = [&](const auto& report) { ending = end_report(input.model, report, files); };
  const services::ReportSummary summary = run::report(input, wanted);
  for (const auto& [place, count] : summary.assertions) {
    print_message(texts::translated("internal inconsistency ({}), met {} times", place, count));
  }
  switch (summary.outcome) {
    case services::RunOutcome::complete:
      return finish(options, input.model, summary, files, ending);
    case services::RunOutcome::nothing_to_check:
      return exit_input_error;
    default:
      print_message(failure_text(summary, files, ending));
      return exit_failure;
  }
}

/// Why results cannot be looked at as strictly as the user wants, or nothing.
std::optional<std::string> strictness_problem(const ReportOptions& options,
                                              const ReportFiles& files) {
  if (options.strict != run::Strictness::safe || !fs::exists(files.results)) return std::nullopt;
  const auto reader = store::ResultReader::open(files.results);
  if (run::second_opinion_of(reader->info().setup) == run::SecondOpinion::on) return std::nullopt;
  return texts::translated(
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
