#include "apps/cli/text_editor.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

const char* editor_command() {
  for (const char* name : {"VISUAL", "EDITOR"}) {
    const char* command = std::getenv(name);
    if (command != nullptr && *command != '\0') return command;
  }
  return nullptr;
}

/// Runs a command of the shell with the file as its last argument. @return the shell's status, or
/// -1 when it could not be started
int run(std::string command, std::string file) {
  command += " \"$1\"";
  std::string shell = "sh";
  std::string option = "-c";
  std::string name = "editor";
  char* const arguments[] = {shell.data(), option.data(), command.data(),
                             name.data(),  file.data(),   nullptr};
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &default_signals());
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t process = 0;
  const int error = posix_spawn(&process, "/bin/sh", nullptr, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) return -1;
  int status = 0;
  return waitpid(process, &status, 0) == process ? status : -1;
}

}  // namespace

std::optional<std::string> editor_problem() {
  if (editor_command() != nullptr) return std::nullopt;
  return texts::translated("--open: set VISUAL or EDITOR to a text editor");
}

std::optional<std::string> open_in_editor(const std::filesystem::path& file) {
  if (auto problem = editor_problem()) return problem;
  const char* command = editor_command();
  if (run(command, file.string()) == 0) return std::nullopt;
  return std::string(texts::translated("--open: the editor ended with an error: ")) + command;
}

}  // namespace aluframe::cli
