#include "apps/cli/section_command.h"

#include "aluframe/files/output_guard.h"
#include "aluframe/io/catalogue_csv.h"
#include "aluframe/io/named_section.h"
#include "aluframe/section/sketch.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/profile_list.h"
#include "apps/cli/section_tables.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

using catalogue::Profile;

/// The user's profiles; nothing when one of the files is at fault, which is printed.
std::optional<std::vector<Profile>> own_profiles(const SectionOptions& options) {
  std::vector<Profile> own;
  for (const auto& file : options.catalogues) {
    const auto read = io::read_catalogue_csv(file, own);
    if (const auto* problem = std::get_if<io::Problem>(&read)) {
      print_message(problem->message());
      return std::nullopt;
    }
  }
  return own;
}

int list(const SectionOptions& options, const std::vector<Profile>& own) {
  print_text(profile_list(own, options.shape, options.format));
  return exit_done;
}

int show(const SectionOptions& options, const std::string& name, const std::vector<Profile>& own) {
  const auto named = io::named_section(name, own);
  if (const auto* text = std::get_if<std::string>(&named)) {
    print_message("NAME: " + *text);
    return exit_input_error;
  }
  const auto& section = std::get<model::Section>(named);
  print_text(section_text({section, own, options.across}, options.format));
  return options.svg ? write_output(section::sketch_of(section), options.svg) : exit_done;
}

}  // namespace

int run_section_command(const SectionOptions& options) {
  if (options.list == options.name.has_value()) {
    print_message(
        options.list
            ? texts::translated("NAME: --list takes none")
            : texts::translated(
                  "NAME: is missing; give a section such as \"H 300x150x8x12\", or --list"));
    return exit_input_error;
  }
  if (options.list && options.svg) {
    print_message(texts::translated("--svg: draws one section, not the list"));
    return exit_input_error;
  }
  if (const auto problem =
          files::find_overwriting({{texts::translatable("the drawing"), options.svg}}, {})) {
    print_message(*problem);
    return exit_input_error;
  }
  const auto own = own_profiles(options);
  if (!own) return exit_input_error;
  return options.name ? show(options, *options.name, *own) : list(options, *own);
}

}  // namespace aluframe::cli
