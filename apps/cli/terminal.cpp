#include "apps/cli/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "aluframe/model/plain_text.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void note_signal(int signal) {
  interrupted = 1;
  // The user who insists is not kept waiting.
  std::signal(signal, SIG_DFL);
}

void write_to(std::FILE* stream, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

/// Where the next colour of ours stands in a text, and how long it is.
std::pair<std::size_t, std::size_t> next_colour(std::string_view text) {
  std::pair<std::size_t, std::size_t> next{text.size(), 0};
  for (const std::string_view colour : {tables::red, tables::plain}) {
    const std::size_t place = text.find(colour);
    if (place < next.first) next = {place, colour.size()};
  }
  return next;
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

void print_text(std::string_view text) {
  while (!text.empty()) {
    const auto [place, length] = next_colour(text);
    write_to(stdout, model::for_terminal(text.substr(0, place)));
    write_to(stdout, text.substr(std::min(place, text.size()), length));
    text.remove_prefix(std::min(place + length, text.size()));
  }
}

void print_message(const std::string& text) noexcept {
  // What was printed before stands before it, also where both streams go to one file.
  std::fflush(stdout);
  try {
    print_to_stderr(model::for_terminal(text) + "\n");
  } catch (const std::bad_alloc&) {
    print_to_stderr("a message is lost for want of memory\n");
  }
}

void print_to_stderr(std::string_view text) noexcept {
  write_to(stderr, text);
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
