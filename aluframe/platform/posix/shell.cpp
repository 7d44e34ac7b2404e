#include "aluframe/platform/shell.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace aluframe::platform {

namespace {

/// Signals that `prepare_standard_streams` leaves out, and that other programs are to have.
sigset_t default_signals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGPIPE, SIGXFSZ}) sigaddset(&signals, signal);
  return signals;
}

}  // namespace

std::optional<std::string> usual_editor() {
  return std::nullopt;
}

int run_with_file(const std::string& command, const std::filesystem::path& file) {
  std::string script = command + " \"$1\"";
  std::string path = file.string();
  std::string shell = "sh";
  std::string option = "-c";
  std::string name = "editor";
  char* const arguments[] = {shell.data(), option.data(), script.data(),
                             name.data(),  path.data(),   nullptr};
  const sigset_t signals = default_signals();
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t process = 0;
  const int error = posix_spawn(&process, "/bin/sh", nullptr, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) return -1;
  int status = 0;
  return waitpid(process, &status, 0) == process ? status : -1;
}

}  // namespace aluframe::platform
