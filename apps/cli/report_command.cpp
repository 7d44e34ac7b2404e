#include "apps/cli/report_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/files/output_guard.h"
#include "aluframe/files/publication.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/run/report.h"
#include "aluframe/run/results.h"
#include "aluframe/run/told.h"
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

/// The name of no file.
constexpr const char* standard_output = "-";

fs::path beside_model(const fs::path& model, const char* extension) {
  return fs::path(model).replace_extension(extension);
}

struct Files {
  fs::path results;
  std::optional<fs::path> report;  ///< nothing: the readable text goes to standard output alone
  std::optional<fs::path> readable;
};

/// "frame.txt" beside "frame.alu".
fs::path readable_beside(const fs::path& report) {
  fs::path readable = fs::path(report).replace_extension(".txt");
  return readable == report ? readable.replace_extension(".readable.txt") : readable;
}

Files files_of(const ReportOptions& options) {
  Files files{.results = options.results.value_or(run::result_path_of(options.input.model)),
              .report = {},
              .readable = {}};
  if (options.output == standard_output) return files;
  files.report = options.output.value_or(beside_model(options.input.model, ".alu"));
  files.readable = options.readable.value_or(readable_beside(*files.report));
  return files;
}

/// Options that do not go together, or nothing.
std::optional<std::string> contradiction(const ReportOptions& options) {
  if (options.output != standard_output) return std::nullopt;
  if (options.readable) {
    return "--readable: --output - writes the readable text to standard output; give one of the "
           "two";
  }
  if (options.open) return "--open: --output - leaves no file to open; give one of the two";
  return std::nullopt;
}

/// Whether a file is the readable copy of some report, by its title.
bool is_readable_copy(const fs::path& path) {
  constexpr std::size_t head_bytes = 512;
  std::string head(head_bytes, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), static_cast<std::streamsize>(head.size()));
  return head.find("  Aluminum Alloy Code Checking [ GB 50429") != std::string::npos;
}

/// Something else that stands where the readable copy goes without being named, or nothing.
std::optional<std::string> standing_in_the_way(const ReportOptions& options, const Files& files) {
  std::error_code ignored;
  if (options.readable || !files.readable || !fs::exists(*files.readable, ignored)) {
    return std::nullopt;
  }
  if (is_readable_copy(*files.readable)) return std::nullopt;
  return fmt::format(
      "{}: is no readable copy of a report, which would overwrite it; move it, or name another "
      "file with --readable",
      files.readable->string());
}

/// What would be overwritten that the user cannot mean, or nothing. The results are added to, so
/// they are an output as well.
std::optional<std::string> overwriting_problem(const ReportOptions& options, const Files& files) {
  return files::find_overwriting(
      {{"the result file", files.results, files::FileKind::results},
       {"the report", files.report},
       {"the readable copy", files.readable}},
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

/// The elements that the user should know of, as messages.
void print_left_out(const services::ReportSummary& summary, const Files& files) {
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

/// The end of a report on the screen.
std::string summary_text(const model::Model& model, const services::ReportSummary& summary,
                         const Files& files, const Basis& basis) {
  std::string text = fmt::format("Report of {} element{}, complete: {}\n", summary.reported.size(),
                                 summary.reported.size() == 1 ? "" : "s",
                                 files.report ? files.report->string() : "standard output");
  if (basis.coverage) text += fmt::format("Covered: {}\n", run::coverage_text(*basis.coverage));
  for (const store::GoverningRow& row : summary.unprinted.checks) {
    text += fmt::format("Fails without a line in the report: element {}, {} {}\n", row.element,
                        tables::item_name(row.item), tables::short_number(row.governing.Ratio()));
  }
  return text + ratios_text(model, summary, basis, tables::Lists::shortened) +
         tables::told_text(model, basis.told);
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
int put(const std::string& text, const std::string& summary, const Files& files) {
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
           const services::ReportSummary& summary, const Files& files) {
  const Basis basis = basis_of(summary, files);
  const std::string text = summary.readable + appendix_of(model, summary, basis);
  if (summary.outcome != services::RunOutcome::complete) {
    const bool is_written = write_copy(*files.readable, text) == exit_done;
    if (is_written) print_message("the readable copy is whole: " + files.readable->string());
    return exit_failure;
  }
  print_left_out(summary, files);
  int status = put(text, summary_text(model, summary, files, basis), files);
  if (status == exit_done) status = exit_status(summary);
  if (status == exit_done && options.open) status = open(*files.readable);
  return status == exit_done && run::fails(basis.told, options.strict) ? exit_over_limit : status;
}

int write(const ReportOptions& options, const run::Input& input, const UnitPair& units) {
  const Files files = files_of(options);
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
  const Files files = files_of(options);
  if (const auto problem = contradiction(options)) return stop({*problem});
  if (const auto problem = overwriting_problem(options, files)) return stop({*problem});
  if (const auto problem = standing_in_the_way(options, files)) return stop({*problem});
  if (const auto problem = strictness_problem(options, files)) return stop({*problem});
  if (options.open) {
    if (const auto problem = editor_problem()) return stop({*problem});
  }
  const auto prepared = run::prepare_like(files.results, options.input, options.common.selection);
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
