// The dialogs in the desktop program, which stands beside this one.

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <system_error>
#include <vector>

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

/// @return the program's exit status, or -1 when it could not be started or did not end by itself
int run(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &default_signals());
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t process = 0;
  const int error = posix_spawn(&process, words.front().c_str(), nullptr, &attributes,
                                arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) return -1;
  int status = 0;
  if (waitpid(process, &status, 0) != process || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
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
  const int status =
      run({program.string(), "--dialog", name, "--lang", language, options.model.string()});
  if (status != -1) return status;
  print_message(texts::translated("the desktop program did not end as it should"));
  return exit_failure;
}

}  // namespace aluframe::cli
