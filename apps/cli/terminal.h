#pragma once

#include <string>

namespace aluframe::cli {

/// True when the stream goes to a terminal.
bool stdout_is_terminal();
bool stderr_is_terminal();

/// True when colour is wanted on standard output: a terminal, and NO_COLOR is not set.
bool stdout_wants_colour();

/// Prints a line to standard error.
void print_message(const std::string& text);

/// Writes out what standard output still holds. @return false when some of what was printed since
/// the start did not arrive, because the disk behind it is full for example
bool finish_stdout();

/// From now on Ctrl-C and a polite request to end are noted instead of ending the program; a second
/// one ends it.
void note_interrupts();
bool was_interrupted();

}  // namespace aluframe::cli
