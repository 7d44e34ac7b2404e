#include "aluframe/platform/terminal.h"

#include <windows.h>
// Uses what windows.h declares.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <iostream>
#include <new>
#include <streambuf>
#include <string>

#include "aluframe/platform/windows/wide_text.h"

namespace aluframe::platform {

namespace {

std::atomic<bool> interrupted = false;
UINT code_page_before = 0;

bool is_console(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

/// Whether the console has taken a text. It is given characters: of bytes in UTF-8 some systems
/// show each as a character.
bool write_to_console(DWORD stream, std::string_view utf8) {
  constexpr std::size_t largest_piece = 8192;  // older consoles take no 64 KB at once
  const std::wstring text = wide(utf8);
  for (std::size_t at = 0; at < text.size();) {
    std::size_t count = std::min(largest_piece, text.size() - at);
    if (at + count < text.size() && IS_HIGH_SURROGATE(text[at + count - 1])) --count;
    DWORD written = 0;
    if (WriteConsoleW(GetStdHandle(stream), text.data() + at, static_cast<DWORD>(count), &written,
                      nullptr) == 0 ||
        written == 0) {
      return false;
    }
    at += written;
  }
  return true;
}

/// Gives a console what a C++ stream is given, line by line.
class ConsoleBuffer : public std::streambuf {
 public:
  explicit ConsoleBuffer(DWORD stream) : stream_(stream) {}

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char byte = traits_type::to_char_type(c);
    return xsputn(&byte, 1) == 1 ? c : traits_type::eof();
  }

  std::streamsize xsputn(const char* text, std::streamsize count) override {
    text_.append(text, static_cast<std::size_t>(count));
    const std::size_t end = text_.rfind('\n');
    const bool done = end == std::string::npos || give(end + 1);
    return done ? count : 0;
  }

  int sync() override { return give(text_.size()) ? 0 : -1; }

 private:
  bool give(std::size_t count) {
    const bool done = write_to_console(stream_, std::string_view(text_).substr(0, count));
    text_.erase(0, count);
    return done;
  }

  DWORD stream_;
  std::string text_;
};

/// A C++ stream that leads to a console goes there by characters, to the end of the program.
void lead_to_console(std::ostream& stream, DWORD number) {
  if (is_console(number)) stream.rdbuf(new ConsoleBuffer(number));
}

/// On a thread of its own. @return whether nobody else need do anything about it
BOOL WINAPI note_event(DWORD event) {
  const bool before = interrupted.exchange(true);
  // When the window closes the system ends the program as soon as this is told: the run has until
  // the system loses patience, some seconds later.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  // The user who insists is not kept waiting.
  return before ? FALSE : TRUE;
}

void understand_colours(DWORD stream) {
  const HANDLE handle = GetStdHandle(stream);
  DWORD mode = 0;
  if (GetConsoleMode(handle, &mode) != 0) {
    SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
}

/// The console outlives the program, and others print to it by their own characters.
void restore_console() {
  SetConsoleOutputCP(code_page_before);
}

}  // namespace

bool stdout_is_terminal() {
  return is_console(STD_OUTPUT_HANDLE);
}

bool stderr_is_terminal() {
  return is_console(STD_ERROR_HANDLE);
}

void prepare_standard_streams() {
  for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  // Messages and progress are for now, through pipes too.
  static_cast<void>(std::setvbuf(stderr, nullptr, _IONBF, 0));
  if (!stdout_is_terminal() && !stderr_is_terminal()) return;
  code_page_before = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  std::atexit(restore_console);
  for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) understand_colours(stream);
  lead_to_console(std::cout, STD_OUTPUT_HANDLE);
  lead_to_console(std::cerr, STD_ERROR_HANDLE);
}

// What the console does not take, the stream does not either, which keeps that in mind.
void write_text(std::FILE* stream, std::string_view text) noexcept {
  const DWORD number = stream == stderr ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE;
  try {
    if (is_console(number) && std::fflush(stream) == 0 && write_to_console(number, text)) return;
  } catch (const std::bad_alloc&) {
    // The stream needs no more memory.
  }
  std::fwrite(text.data(), 1, text.size(), stream);
}

void note_interrupts() {
  SetConsoleCtrlHandler(note_event, TRUE);
}

bool was_interrupted() {
  return interrupted;
}

}  // namespace aluframe::platform
