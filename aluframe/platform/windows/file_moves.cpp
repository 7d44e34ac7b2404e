#include "aluframe/platform/file_moves.h"

#include <windows.h>

#include "aluframe/platform/windows/error_codes.h"

namespace aluframe::platform {

namespace {

/// Scanners of viruses and indexes open a file for a moment when it was written.
constexpr int most_tries = 20;
constexpr DWORD milliseconds_between = 50;

bool may_pass(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
         error == ERROR_USER_MAPPED_FILE;
}

}  // namespace

std::error_code remove_file(const std::filesystem::path& path) {
  if (DeleteFileW(path.c_str()) != 0) return {};
  const DWORD error = GetLastError();
  const bool is_none = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  return is_none ? std::error_code() : code_of(error);
}

std::error_code replace_file(const std::filesystem::path& from, const std::filesystem::path& to) {
  constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  for (int tries = 1;; ++tries) {
    if (MoveFileExW(from.c_str(), to.c_str(), how) != 0) return {};
    const DWORD error = GetLastError();
    if (!may_pass(error)) return code_of(error);
    // Who may write it, as is known by then, is kept from replacing it by one who has it open.
    if (tries == most_tries) return std::make_error_code(std::errc::device_or_resource_busy);
    Sleep(milliseconds_between);
  }
}

// Only one whose every holder shares that, which databases do not.
bool open_files_are_replaced() {
  return false;
}

// The move returns when the disk has the name.
void sync_name(const std::filesystem::path&) {}

}  // namespace aluframe::platform
