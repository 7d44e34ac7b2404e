#pragma once

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>

namespace aluframe::services {

/// From here on no file of this process may grow beyond `bytes`, as on a disk that is full. For a
/// child process.
inline void limit_files(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

/// Runs `action` in a child process. @return its exit status, 99 when it threw
template <class Action>
int in_child(const Action& action) {
  const pid_t child = fork();
  if (child == 0) {
    int status = 99;
    try {
      status = action();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(status);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace aluframe::services
