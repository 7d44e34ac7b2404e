// The dialogs in the desktop program, which stands beside this one.

#include <sys/wait.h>

#include <string>
#include <system_error>

#include "aluframe/platform/shell.h"
#include "aluframe/texts/language.h"
#include "aluframe/texts/text.h"
#include "apps/cli/dialogs_command.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

using services::SettingsDialog;

std::filesystem::path desktop_program() {
  std::error_code error;
  const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", error);
  return own.parent_path() / "aluframe-desktop";
}

std::string quoted(const std::string& word) {
  std::string text = "'";
  for (const char c : word) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return text + "'";
}

}  // namespace

int run_one_dialog(const DialogsOptions& options, SettingsDialog dialog) {
  const std::filesystem::path program = desktop_program();
  std::error_code error;
  if (!std::filesystem::exists(program, error)) {
    print_message(texts::translated("the dialogs need the desktop program, which is missing: {}",
                                    program.string()));
    return exit_failure;
  }
  const std::string name = dialog == SettingsDialog::code ? "code" : "materials";
  const std::string language = texts::language_in_use() == texts::Language::chinese ? "zh" : "en";
  const std::string command =
      quoted(program.string()) + " --dialog " + name + " --lang " + language;
  const int status = platform::run_with_file(command, options.model);
  if (status != -1 && WIFEXITED(status)) return WEXITSTATUS(status);
  print_message(texts::translated("the desktop program did not end as it should"));
  return exit_failure;
}

}  // namespace aluframe::cli
