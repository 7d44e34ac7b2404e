#include "aluframe/toolkit/win32/text_viewer.h"

#include <windows.h>

#include <string>

namespace aluframe::toolkit {

namespace {

// The editor that every Windows has; reports have an extension that no program may be known for.
std::wstring editor() {
  wchar_t folder[MAX_PATH] = {};
  const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
  return length != 0 && length < MAX_PATH ? std::wstring(folder) + L"\\notepad.exe"
                                          : std::wstring(L"notepad.exe");
}

}  // namespace

bool open_text(const std::filesystem::path& file) {
  std::error_code error;
  const std::filesystem::path full = std::filesystem::absolute(file, error);
  const std::wstring program = editor();
  std::wstring command = L"\"" + program + L"\" \"" + (error ? file : full).wstring() + L"\"";
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION process = {};
  if (CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &start, &process) == FALSE) {
    return false;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

}  // namespace aluframe::toolkit
