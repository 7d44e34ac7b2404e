// Has a file open, which it shares with nobody, until its input ends.

#include <windows.h>
// Uses what windows.h declares.
#include <shellapi.h>

#include <cstdio>

int main() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr || count != 2) return 1;
  constexpr DWORD not_shared = 0;
  const HANDLE file = CreateFileW(words[1], GENERIC_READ, not_shared, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::puts("held");
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
  CloseHandle(file);
  return 0;
}
