#include "apps/cli/document_command.h"

#include <exception>
#include <optional>
#include <string>
#include <variant>

#include "aluframe/document/document_file.h"
#include "aluframe/files/error_text.h"
#include "aluframe/files/output_guard.h"
#include "aluframe/platform/open_file.h"
#include "aluframe/platform/terminal.h"
#include "aluframe/run/document.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* standard_output = "-";

bool goes_to_standard_output(const fs::path& html) {
  return html == standard_output;
}

std::optional<std::string> overwriting_problem(const ReportOptions& options,
                                               const fs::path& results, const fs::path& html) {
  std::optional<fs::path> file;
  if (!goes_to_standard_output(html)) file = html;
  return files::find_overwriting(
      {{texts::translatable("the document"), file}},
      {{texts::translatable("the result file"), results},
       {texts::translatable("the model"), options.input.model},
       {texts::translatable("the table of forces"), options.input.forces}});
}

/// Another's file where the document is to go, or nothing.
std::optional<std::string> standing_in_the_way(const fs::path& html) {
  if (goes_to_standard_output(html) || document::may_be_replaced(html)) return std::nullopt;
  return texts::translated(
      "{}: is no calculation document, which would overwrite it; delete it, or name another file "
      "with --html",
      html.string());
}

/// Why the document cannot go where the user wants it, or nothing.
std::optional<std::string> problem_of_file(const ReportOptions& options, const fs::path& results,
                                           const fs::path& html) {
  if (html.empty()) {
    return texts::translated(
        "--html: the name of the file is empty; name one, or - for standard output");
  }
  if (auto problem = overwriting_problem(options, results, html)) return problem;
  return standing_in_the_way(html);
}

/// Why results cannot be looked at as strictly as the user wants, or nothing.
std::optional<std::string> strictness_problem(const ReportOptions& options, const fs::path& results,
                                              const run::DocumentContent& content) {
  if (options.strict != run::Strictness::safe) return std::nullopt;
  if (content.told.second_opinion == run::SecondOpinion::on) return std::nullopt;
  return texts::translated(
      "--strict=safe looks at safe ratios, and {} has none: check the model again without "
      "--second-opinion off",
      results.string());
}

void print_summary(const run::DocumentContent& content, const fs::path& html) {
  const std::size_t elements = content.elements.size();
  print_text(elements == 1
                 ? texts::translated("Calculation document of 1 element: {}\n", html.string())
                 : texts::translated("Calculation document of {} elements: {}\n", elements,
                                     html.string()));
  print_text(texts::translated("Covered: {}\n", run::coverage_text(content.coverage)));
  print_text(tables::ratios_text(content.input.model, content.told));
  print_text(tables::told_text(content.input.model, content.told));
}

/// The user has ended the program while it writes.
struct Interrupted {};

/// Lets the unfinished file be removed on the way out.
void stop_when_interrupted() {
  if (platform::was_interrupted()) throw Interrupted();
}

int write(const ReportOptions& options, const run::DocumentContent& content,
          const fs::path& results, const fs::path& html) {
  for (const std::string& reservation : content.reservations) print_message(reservation);
  try {
    platform::note_interrupts();
    document::publish_document(goes_to_standard_output(html) ? platform::standard_output() : html,
                               content, results, options.detail, stop_when_interrupted);
  } catch (const Interrupted&) {
    print_message(texts::translated("{}: not written: cancelled", html.string()));
    return exit_cancelled;
  } catch (const std::exception& error) {
    print_message(texts::translated("{}: cannot be written: {}", html.string(), error.what()));
    return exit_failure;
  }
  if (!goes_to_standard_output(html)) print_summary(content, html);
  return run::fails(content.told, options.strict) ? exit_over_limit : exit_done;
}

int gather_and_write(const ReportOptions& options, const fs::path& results, const fs::path& html) {
  auto gathered = run::gather_document(
      {.input = options.input, .results = results, .selection = options.common.selection});
  if (const auto* problem = std::get_if<run::Problem>(&gathered)) return stop(*problem);
  const auto& content = std::get<run::DocumentContent>(gathered);
  if (const auto problem = strictness_problem(options, results, content)) return stop({*problem});
  return write(options, content, results, html);
}

}  // namespace

int run_document_command(const ReportOptions& options, const fs::path& html) {
  const fs::path results = options.results.value_or(run::result_path_of(options.input.model));
  if (const auto problem = problem_of_file(options, results, html)) return stop({*problem});
  try {
    return gather_and_write(options, results, html);
  } catch (const std::exception& error) {
    print_message(files::error_text(error));
    return exit_input_error;
  }
}

}  // namespace aluframe::cli
