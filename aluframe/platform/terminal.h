#pragma once

#include <cstdio>
#include <string_view>

namespace aluframe::platform {

/// True when the stream goes to a terminal.
bool stdout_is_terminal();
bool stderr_is_terminal();

/// Before anything else: closed standard streams lead nowhere instead of to the next file that is
/// opened, and a reader that goes away or a limit on file sizes is an error of the write, no end of
/// the program. What is printed are bytes, in UTF-8, and colours are understood.
void prepare_standard_streams();

/// Writes whole characters in UTF-8 to standard output or standard error, as a stream of the C
/// library does; consoles that take no bytes are given the characters. `std::cout` and `std::cerr`
/// do the same.
void write_text(std::FILE* stream, std::string_view text) noexcept;

/// From now on Ctrl-C, a polite request to end and the end of the terminal are noted instead of
/// ending the program; a second one ends it. What the user's shell ignores stays ignored.
void note_interrupts();
bool was_interrupted();

}  // namespace aluframe::platform
