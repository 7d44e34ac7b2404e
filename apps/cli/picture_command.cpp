#include "apps/cli/picture_command.h"

#include <optional>
#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/picture/svg.h"
#include "aluframe/run/results.h"
#include "aluframe/texts/text.h"
#include "apps/cli/common_options.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

int run_picture_command(const PictureCommandOptions& options) {
  const run::PictureOptions& wanted = options.wanted;
  std::optional<std::filesystem::path> file;
  if (options.svg != "-") file = options.svg;
  if (wanted.results && !picture::is_by_ratio(wanted.colour)) {
    return stop(
        {texts::translated("--results goes with --colour ratio and --colour deflection only")});
  }
  if (const auto problem = files::find_overwriting(
          {{texts::translatable("the picture"), file, files::FileKind::other}},
          {{texts::translatable("the model"), options.input.model},
           {texts::translatable("the table of forces"), options.input.forces},
           {texts::translatable("the result file"), wanted.results}})) {
    return stop({*problem});
  }
  const auto read = run::read_input(options.input);
  if (const auto* problem = std::get_if<run::Problem>(&read)) return stop(*problem);
  const auto drawn = run::draw(std::get<run::Input>(read), options.input, wanted);
  if (const auto* problem = std::get_if<run::Problem>(&drawn)) return stop(*problem);
  const auto& picture = std::get<run::Picture>(drawn);
  for (const std::string& caution : picture.cautions) print_message(caution);
  return write_output(picture::svg_of(picture.scene), file);
}

}  // namespace aluframe::cli
