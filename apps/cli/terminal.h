#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <utility>

namespace aluframe::cli {

/// True when colour is wanted on standard output: a terminal, and NO_COLOR is not set.
bool stdout_wants_colour();

/// Prints to standard output, with a blank for what could turn or forge lines of a terminal; our
/// own colours stay. Whether it arrived `finish_stdout` tells.
void print_text(std::string_view text);
template <class... Values>
void print_formatted(fmt::format_string<Values...> format, Values&&... values) {
  print_text(fmt::format(format, std::forward<Values>(values)...));
}

/// Prints a line to standard error. A message that nobody can read is lost; the work goes on.
void print_message(const std::string& text) noexcept;
/// The same of text that is no line.
void print_to_stderr(std::string_view text) noexcept;

/// Writes out what standard output still holds. @return false when some of what was printed since
/// the start did not arrive, because the disk behind it is full for example
bool finish_stdout();

}  // namespace aluframe::cli
