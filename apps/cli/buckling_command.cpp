#include "apps/cli/buckling_command.h"

#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/tables/buckling_tables.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

int run_buckling_command(const BucklingCommandOptions& options) {
  if (!options.subjects.cases.empty() && !options.subjects.combinations.empty()) {
    return stop({"--cases and --combinations do not go together"});
  }
  if (const auto problem =
          files::find_overwriting({{"the output", options.output, files::FileKind::other}},
                                  {{"the model", options.input.model}})) {
    return stop({*problem});
  }
  const auto read = run::read_input(options.input);
  if (const auto* problem = std::get_if<run::Problem>(&read)) return stop(*problem);
  const auto& input = std::get<run::Input>(read);
  const auto found = run::find_buckling(input, options.subjects);
  if (const auto* problem = std::get_if<run::Problem>(&found)) return stop(*problem);
  const auto table = tables::buckling_table(input.model, std::get<run::BucklingAnalysis>(found));
  return write_output(tables::render(table, options.format, false), options.output);
}

}  // namespace aluframe::cli
