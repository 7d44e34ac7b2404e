#include "apps/cli/deflections_command.h"

#include <algorithm>
#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/tables/displacement_tables.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

int run_deflections_command(const DeflectionsOptions& options) {
  if (const auto problem = files::find_overwriting(
          {{texts::translatable("the output"), options.output, files::FileKind::other}},
          {{texts::translatable("the model"), options.input.model}})) {
    return stop({*problem});
  }
  const auto read = run::read_input(options.input);
  if (const auto* problem = std::get_if<run::Problem>(&read)) return stop(*problem);
  const auto found = run::find_displacements(std::get<run::Input>(read), options.combinations);
  if (const auto* problem = std::get_if<run::Problem>(&found)) return stop(*problem);
  const auto& displacements = std::get<run::RunDisplacements>(found);
  for (const store::RemarkRow& remark : run::remarks_on_unknown(displacements)) {
    print_message(texts::sentence_in_words(remark.text));
  }
  const bool colour = !options.output && stdout_wants_colour();
  const int status = write_output(
      tables::render_displacements(displacements.rows, options.format, colour), options.output);
  const bool is_nothing_known = !displacements.unknown.empty() &&
                                std::ranges::none_of(displacements.rows, [](const auto& row) {
                                  return row.value.has_value();
                                });
  return status == exit_done && is_nothing_known ? exit_input_error : status;
}

}  // namespace aluframe::cli
