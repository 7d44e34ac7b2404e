#include "aluframe/platform/shell.h"

#include <windows.h>

#include "aluframe/platform/windows/wide_text.h"

namespace aluframe::platform {

std::optional<std::string> usual_editor() {
  return "notepad";
}

// No name of a file has a quotation mark.
int run_with_file(const std::string& command, const std::filesystem::path& file) {
  std::wstring line = wide(command) + L" \"" + file.wstring() + L'"';
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                     &process) == 0) {
    return -1;
  }
  CloseHandle(process.hThread);
  DWORD status = 0;
  const bool ended = WaitForSingleObject(process.hProcess, INFINITE) == WAIT_OBJECT_0 &&
                     GetExitCodeProcess(process.hProcess, &status) != 0;
  CloseHandle(process.hProcess);
  return ended ? static_cast<int>(status) : -1;
}

}  // namespace aluframe::platform
