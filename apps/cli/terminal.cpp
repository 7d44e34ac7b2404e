#include "apps/cli/terminal.h"

#include <fcntl.h>
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

/// The lowest free number is the next one that is given out.
void keep_open(int stream, int mode) {
  if (fcntl(stream, F_GETFD) == -1) static_cast<void>(open("/dev/null", mode));
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

void prepare_streams() {
  // Each is opened for what it is not for, so that its use is an error as before.
  keep_open(STDIN_FILENO, O_WRONLY);
  keep_open(STDOUT_FILENO, O_RDONLY);
  keep_open(STDERR_FILENO, O_RDONLY);
  for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
}

const sigset_t& default_signals() {
  static const sigset_t signals = [] {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGPIPE, SIGXFSZ}) sigaddset(&set, signal);
    return set;
  }();
  return signals;
}

void print_message(const std::string& text) noexcept {
  // What was printed before stands before it, also where both streams go to one file.
  std::fflush(stdout);
  print_to_stderr(text);
  print_to_stderr("\n");
}

void print_to_stderr(std::string_view text) noexcept {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

bool finish_stdout() {
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

void note_interrupts() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (std::signal(signal, note_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

bool was_interrupted() {
  return interrupted != 0;
}

}  // namespace aluframe::cli
