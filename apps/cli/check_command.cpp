#include "apps/cli/check_command.h"

#include <exception>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/files/output_guard.h"
#include "aluframe/platform/terminal.h"
#include "aluframe/run/check.h"
#include "aluframe/run/results.h"
#include "aluframe/run/strictness.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

bool wants_progress(ProgressMode mode) {
  return mode == ProgressMode::always ||
         (mode == ProgressMode::automatic && platform::stderr_is_terminal());
}

void print_assertions(const services::CheckSummary& summary) {
  for (const auto& [place, count] : summary.assertions) {
    print_message(texts::translated("internal inconsistency ({}), met {} times", place, count));
  }
}

int exit_status(const run::CheckResult& result, run::Strictness strict) {
  const services::CheckSummary& summary = result.summary;
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
  return run::fails(run::told_by(result), strict) ? exit_over_limit : exit_done;
}

/// "; the results of 12 elements are in frame.aluresult.partial, --resume goes on with them": by
/// the file, which may hold less than the run has handed to it.
std::string stored_text(const std::filesystem::path& results) {
  try {
    const std::size_t count = store::ResultReader::open(results)->elements().size();
    const std::string elements = texts::counted(count, texts::translatable("{} element"),
                                                texts::translatable("{} elements"));
    return texts::translated("; the results of {} are in {}, --resume goes on with them", elements,
                             results.string());
  } catch (const std::exception& error) {
    return texts::translated("; what was stored cannot be read: {}", files::error_text(error));
  }
}

/// What of a run that ended early is left, and what of the run before it.
std::string left_by(const run::CheckResult& result, const std::filesystem::path& results) {
  std::string text;
  if (!result.results.empty()) text += stored_text(result.results);
  std::error_code ignored;
  if (std::filesystem::exists(results, ignored)) {
    text += texts::translated("; {} holds those of an earlier run", results.string());
  }
  return text;
}

void print_outcome(const run::CheckResult& result, const std::filesystem::path& results) {
  const services::CheckSummary& summary = result.summary;
  if (summary.outcome == services::RunOutcome::failed) {
    print_message(
        texts::translated("the run failed: {}{}", summary.failure, left_by(result, results)));
  } else if (summary.outcome == services::RunOutcome::cancelled) {
    print_message(texts::translated("cancelled{}", left_by(result, results)));
  } else if (summary.outcome == services::RunOutcome::complete && summary.checked_elements == 0) {
    print_message(texts::translated("no element could be checked"));
  }
  print_assertions(summary);
}

void print_summary(const run::Input& input, const run::CheckResult& result, tables::Format format) {
  if (format == tables::Format::table) {
    print_formatted("{}{}", tables::summary_text(input, result),
                    tables::line_of(texts::translatable("results"), result.results.string()));
    return;
  }
  print_text(format == tables::Format::json ? tables::summary_json(input, result)
                                            : tables::summary_csv(input, result));
  const auto& not_checked = result.summary.not_checked;
  if (!not_checked.empty()) print_message(tables::not_checked_text(not_checked, result.remarks));
  const std::string remarks = tables::remarks_text(result.remarks);
  if (!remarks.empty()) print_message(remarks);
}

/// What is wrong with the options, or nothing.
std::optional<std::string> problem_of(const CheckOptions& options,
                                      const std::filesystem::path& results) {
  if (options.strict == run::Strictness::safe &&
      options.second_opinion == run::SecondOpinion::off) {
    return texts::translated(
        "--strict=safe looks at safe ratios, which --second-opinion off leaves out: give one of "
        "the two");
  }
  // By its name the file beside the model is the model's own, also when both were renamed.
  const auto made_from = options.output ? run::model_of_results(results) : std::nullopt;
  return files::find_overwriting(
      {{texts::translatable("the result file"), results, files::FileKind::results, made_from}},
      {{texts::translatable("the model"), options.input.model},
       {texts::translatable("the table of forces"), options.input.forces}});
}

/// Checks, and prints what came of it. @return the exit status
int check_and_print(const run::Input& input, const run::CheckOptions& check,
                    const CheckOptions& options) {
  const run::CheckResult result = run::check(input, check);
  const bool has_failed = result.summary.outcome == services::RunOutcome::failed;
  if (!result.results.empty() && !has_failed) print_summary(input, result, options.common.format);
  print_outcome(result, check.results);
  return exit_status(result, options.strict);
}

}  // namespace

int run_check_command(const CheckOptions& options) {
  const std::filesystem::path results =
      options.output.value_or(run::result_path_of(options.input.model));
  if (const auto problem = problem_of(options, results)) return stop({*problem});
  const bool resumes = options.beginning == run::Beginning::resumed;
  if (resumes && options.when_busy == files::WhenBusy::refuse) {
    if (const auto problem = run::nothing_to_resume(results)) return stop({*problem});
  }
  const auto prepared = run::prepare(options.input, options.common.selection);
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) return stop(*problem);
  const auto& input = std::get<run::Input>(prepared);
  ProgressBar progress(wants_progress(options.progress));
  const run::CheckOptions check{.results = results,
                                .progress = &progress,
                                .message = print_message,
                                .second_opinion = options.second_opinion,
                                .when_busy = options.when_busy,
                                .beginning = options.beginning,
                                .objection = [&] { return problem_of(options, results); }};
  platform::note_interrupts();
  try {
    return check_and_print(input, check, options);
  } catch (const store::CannotTakeUp& refusal) {
    return stop({refusal.what()});
  }
}

}  // namespace aluframe::cli
