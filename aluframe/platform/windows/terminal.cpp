#include "aluframe/platform/terminal.h"

#include <windows.h>
// Uses what windows.h declares.
#include <fcntl.h>
#include <io.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace aluframe::platform {

namespace {

std::atomic<bool> interrupted = false;
UINT code_page_before = 0;

bool is_console(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
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
  if (!stdout_is_terminal() && !stderr_is_terminal()) return;
  code_page_before = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  std::atexit(restore_console);
  for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) understand_colours(stream);
}

void note_interrupts() {
  SetConsoleCtrlHandler(note_event, TRUE);
}

bool was_interrupted() {
  return interrupted;
}

}  // namespace aluframe::platform
