#include "apps/cli/buckling_command.h"

#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/tables/buckling_tables.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

using Table = run::Result<tables::OutputTable>;

std::optional<std::string> find_mismatch(const BucklingCommandOptions& options) {
  const run::BucklingOptions& subjects = options.subjects;
  if (!subjects.cases.empty() && !subjects.combinations.empty()) {
    return texts::translated("--cases and --combinations do not go together");
  }
  if (!options.limit_load && options.largest_factor) {
    return texts::translated("--largest-factor goes with --limit-load only");
  }
  if (options.limit_load && (subjects.modes != 1 || subjects.reversed)) {
    return texts::translated("--limit-load goes neither with --modes nor with --reversed");
  }
  return std::nullopt;
}

Table buckling_table(const run::Input& input, const BucklingCommandOptions& options) {
  const auto found = run::find_buckling(input, options.subjects);
  if (const auto* problem = std::get_if<run::Problem>(&found)) return *problem;
  return tables::buckling_table(input.model, std::get<run::BucklingAnalysis>(found));
}

Table limit_load_table(const run::Input& input, const BucklingCommandOptions& options) {
  const auto found = run::find_limit_loads(input, options.subjects,
                                           options.largest_factor.value_or(usual_largest_factor));
  if (const auto* problem = std::get_if<run::Problem>(&found)) return *problem;
  return tables::limit_load_table(input.model, std::get<run::LimitAnalysis>(found));
}

}  // namespace

int run_buckling_command(const BucklingCommandOptions& options) {
  if (const auto mismatch = find_mismatch(options)) return stop({*mismatch});
  if (const auto problem = files::find_overwriting(
          {{texts::translatable("the output"), options.output, files::FileKind::other}},
          {{texts::translatable("the model"), options.input.model}})) {
    return stop({*problem});
  }
  const auto read = run::read_input(options.input);
  if (const auto* problem = std::get_if<run::Problem>(&read)) return stop(*problem);
  const auto& input = std::get<run::Input>(read);
  const Table table =
      options.limit_load ? limit_load_table(input, options) : buckling_table(input, options);
  if (const auto* problem = std::get_if<run::Problem>(&table)) return stop(*problem);
  const auto& rows = std::get<tables::OutputTable>(table);
  return write_output(tables::render(rows, options.format, false), options.output);
}

}  // namespace aluframe::cli
