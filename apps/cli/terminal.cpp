#include "apps/cli/terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace aluframe::cli {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void note_signal(int signal) {
  interrupted = 1;
  // The user who insists is not kept waiting.
  std::signal(signal, SIG_DFL);
}

}  // namespace

bool stdout_is_terminal() {
  return isatty(STDOUT_FILENO) != 0;
}

bool stderr_is_terminal() {
  return isatty(STDERR_FILENO) != 0;
}

bool stdout_wants_colour() {
  return stdout_is_terminal() && std::getenv("NO_COLOR") == nullptr;
}

void print_message(const std::string& text) {
  // What was printed before stands before it, also where both streams go to one file.
  std::fflush(stdout);
  fmt::print(stderr, "{}\n", text);
}

bool finish_stdout() {
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

void note_interrupts() {
  std::signal(SIGINT, note_signal);
  std::signal(SIGTERM, note_signal);
}

bool was_interrupted() {
  return interrupted != 0;
}

}  // namespace aluframe::cli
