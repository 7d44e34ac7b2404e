#include "apps/cli/terminal.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "aluframe/model/plain_text.h"
#include "aluframe/platform/terminal.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

namespace {

/// Where the next colour of ours stands in a text, and how long it is.
std::pair<std::size_t, std::size_t> next_colour(std::string_view text) {
  std::pair<std::size_t, std::size_t> next{text.size(), 0};
  for (const std::string_view colour : {tables::red, tables::plain}) {
    const std::size_t place = text.find(colour);
    if (place < next.first) next = {place, colour.size()};
  }
  return next;
}

}  // namespace

bool stdout_wants_colour() {
  return platform::stdout_is_terminal() && std::getenv("NO_COLOR") == nullptr;
}

void print_text(std::string_view text) {
  while (!text.empty()) {
    const auto [place, length] = next_colour(text);
    platform::write_text(stdout, model::for_terminal(text.substr(0, place)));
    platform::write_text(stdout, text.substr(std::min(place, text.size()), length));
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
  platform::write_text(stderr, text);
}

bool finish_stdout() {
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace aluframe::cli
