#include "apps/cli/text_editor.h"

#include "aluframe/platform/environment.h"
#include "aluframe/platform/shell.h"
#include "aluframe/texts/text.h"

namespace aluframe::cli {

namespace {

std::optional<std::string> editor_command() {
  for (const char* name : {"VISUAL", "EDITOR"}) {
    auto command = platform::environment_variable(name);
    if (command && !command->empty()) return command;
  }
  return platform::usual_editor();
}

}  // namespace

std::optional<std::string> editor_problem() {
  if (editor_command()) return std::nullopt;
  return texts::translated("--open: set VISUAL or EDITOR to a text editor");
}

std::optional<std::string> open_in_editor(const std::filesystem::path& file) {
  const auto command = editor_command();
  if (!command) return editor_problem();
  if (platform::run_with_file(*command, file) == 0) return std::nullopt;
  return texts::translated("--open: the editor ended with an error: ") + *command;
}

}  // namespace aluframe::cli
