#include "apps/cli/report_command.h"

#include <fmt/format.h>

#include <exception>
#include <variant>

#include "aluframe/model/envelopes.h"
#include "aluframe/services/readable_report.h"
#include "aluframe/services/report_file.h"
#include "apps/cli/envelope_remark.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/number_ranges.h"
#include "apps/cli/result_tables.h"
#include "apps/cli/run_input.h"
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
  return {options.results.value_or(result_path_of(options.input.model)),
          options.output.value_or(beside_model(options.input.model, ".alu"))};
}

/// What would be overwritten that the user cannot mean, or nothing.
std::optional<std::string> overwriting_problem(const ReportOptions& options, const Files& files) {
  const auto is_input = [&](const fs::path& path) {
    return services::is_same_file(path, options.input.model) ||
           services::is_same_file(path, files.results) ||
           (options.input.forces && services::is_same_file(path, *options.input.forces));
  };
  if (is_input(files.report)) return files.report.string() + ": would be overwritten by the report";
  if (!options.readable) return std::nullopt;
  if (is_input(*options.readable) || services::is_same_file(*options.readable, files.report)) {
    return options.readable->string() + ": would be overwritten by the readable copy";
  }
  return std::nullopt;
}

services::SessionOptions session_options(const ReportOptions& options, const Files& files,
                                         const UnitPair& units) {
  services::SessionOptions session;
  session.result_path = files.results;
  session.language = options.language;
  session.message = print_message;
  session.units = T_UNIT_INDEX{static_cast<int>(units.first), static_cast<int>(units.second)};
  return session;
}

void print_summary(const services::ReportSummary& summary, const Files& files) {
  fmt::print("Report of {} element{}: {}\n", summary.reported.size(),
             summary.reported.size() == 1 ? "" : "s", files.report.string());
  if (!summary.checked_now.empty()) {
    print_message(fmt::format("checked for the report and added to {}: element {}",
                              files.results.string(), join_as_ranges(summary.checked_now)));
  }
  if (!summary.not_reported.empty()) {
    print_message(fmt::format("without results: element {}", join_as_ranges(summary.not_reported)));
  }
  if (!summary.without_checks.empty()) {
    print_message(
        fmt::format("no check to show: element {}", join_as_ranges(summary.without_checks)));
  }
  if (!summary.not_checked.empty()) print_message(not_checked_text(summary.not_checked));
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
void warn_about_stored(const ReportOptions& options, const Files& files) {
  if (!fs::exists(files.results)) return;
  const auto reader = store::ResultReader::open(files.results);
  warn_about_results(options.input.model, files.results, reader->state());
}

/// What follows a report that was written. The editor opens behind the readable copy, and not while
/// the design module still runs, so it is not opened by the module's own call.
/// @return the exit status
int finish(const ReportOptions& options, const Files& files) {
  if (options.readable) {
    services::write_readable_report(files.report, user_charset(), *options.readable);
    fmt::print("Readable copy: {}\n", options.readable->string());
  }
  if (!options.open) return exit_done;
  const auto problem = open_in_editor(files.report);
  if (!problem) return exit_done;
  print_message(*problem);
  return exit_failure;
}

int run(const ReportOptions& options, const model::Model& model, services::SessionOptions session) {
  const Files files = files_of(options);
  warn_about_stored(options, files);
  const services::ReportSummary summary =
      services::run_report(model, std::move(session), files.report);
  if (summary.outcome == services::RunOutcome::complete) print_summary(summary, files);
  for (const auto& [place, count] : summary.assertions) {
    print_message(fmt::format("internal inconsistency ({}), met {} times", place, count));
  }
  const int status = exit_status(summary);
  return status == exit_done ? finish(options, files) : status;
}

/// Everything that is wrong with the input, or the model and what to do with it.
std::variant<std::string, int> prepare_and_run(const ReportOptions& options) {
  const Files files = files_of(options);
  const auto units = parse_unit_pair(options.units);
  if (const auto* text = std::get_if<std::string>(&units)) return "--units: " + *text;
  if (const auto problem = overwriting_problem(options, files)) return *problem;
  if (options.open) {
    if (const auto problem = editor_problem()) return *problem;
  }
  auto loaded = load_input(options.input);
  if (const auto* text = std::get_if<std::string>(&loaded)) return *text;
  auto& input = std::get<Input>(loaded);
  auto session = session_options(options, files, std::get<UnitPair>(units));
  if (const auto problem = limit(input, options.common, session)) {
    return options.input.model.string() + ": " + *problem;
  }
  remark_on_extremes(model::checked_by_extremes(input.model, session.combinations));
  const auto computed = add_forces(options.input.model, input.model);
  if (const auto* stop = std::get_if<Stop>(&computed)) {
    print_message(stop->message);
    return stop->status;
  }
  return run(options, input.model, std::move(session));
}

}  // namespace

int run_report_command(const ReportOptions& options) {
  prepare_user_locale();
  try {
    const auto done = prepare_and_run(options);
    if (const auto* status = std::get_if<int>(&done)) return *status;
    print_message(std::get<std::string>(done));
    return exit_input_error;
  } catch (const std::exception& error) {
    print_message(error.what());
    return exit_failure;
  }
}

}  // namespace aluframe::cli
