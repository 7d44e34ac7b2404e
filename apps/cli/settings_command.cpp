#include "apps/cli/settings_command.h"

#include <variant>

#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_file.h"
#include "aluframe/run/results.h"
#include "aluframe/texts/text.h"
#include "apps/cli/settings_tables.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

bool says_what_to_change(const WantedChanges& wanted) {
  return wanted.grade || wanted.name || wanted.e || wanted.poisson || wanted.fu ||
         wanted.f02_thin || wanted.f02_thick;
}

int show(const SettingsOptions& options, const model::Model& model) {
  print_text(settings_text(model, options.format));
  if (!model.design) {
    print_message(
        texts::translated("{} has no settings; these are the defaults", options.model.string()));
  }
  return exit_done;
}

/// Shows what was changed, and which results that makes old.
void report(const SettingsOptions& options, const tables::OutputTable& difference) {
  print_text(options.format == tables::Format::table
                 ? difference_text(difference)
                 : tables::render(difference, options.format, false));
  if (difference.rows.empty()) {
    print_message(texts::translated("{}: nothing to change", options.model.string()));
    return;
  }
  const std::filesystem::path results = run::result_path_of(options.model);
  std::error_code ignored;
  if (std::filesystem::exists(results, ignored)) {
    print_message(texts::translated("{} is out of date; check the model again", results.string()));
  }
}

int change(const SettingsOptions& options) {
  std::vector<std::string> problems;
  tables::OutputTable difference;
  const auto choose = [&](const model::Model& before) -> io::Result<io::ModelChanges> {
    model::Model after = before;
    problems = apply(options.changes, after);
    if (!problems.empty()) return io::ModelChanges();
    difference = settings_difference(before, after);
    return io::changes_since(io::editable_of(before), after);
  };
  if (const auto problem = io::change_model_file(options.model, choose, options.allow_outside)) {
    print_message(problem->message());
    return problem->kind == io::Problem::Kind::failure ? exit_failure : exit_input_error;
  }
  for (const std::string& problem : problems) print_message(problem);
  if (!problems.empty()) return exit_input_error;
  report(options, difference);
  return exit_done;
}

}  // namespace

int run_settings_command(const SettingsOptions& options) {
  const WantedChanges& wanted = options.changes;
  if (wanted.material && !says_what_to_change(wanted)) {
    print_message(texts::translated("--material: give --grade, --name or values with it"));
    return exit_input_error;
  }
  if (!wanted.empty()) return change(options);
  const auto read = io::read_model(options.model, nullptr, options.allow_outside);
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    print_message(problem->message());
    return exit_input_error;
  }
  return show(options, std::get<model::Model>(read));
}

}  // namespace aluframe::cli
