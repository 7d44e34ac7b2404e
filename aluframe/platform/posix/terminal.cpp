#include "aluframe/platform/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace aluframe::platform {

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

void prepare_standard_streams() {
  // Each is opened for what it is not for, so that its use is an error as before.
  keep_open(STDIN_FILENO, O_WRONLY);
  keep_open(STDOUT_FILENO, O_RDONLY);
  keep_open(STDERR_FILENO, O_RDONLY);
  for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
}

void write_text(std::FILE* stream, std::string_view text) noexcept {
  std::fwrite(text.data(), 1, text.size(), stream);
}

void note_interrupts() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (std::signal(signal, note_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

bool was_interrupted() {
  return interrupted != 0;
}

}  // namespace aluframe::platform
