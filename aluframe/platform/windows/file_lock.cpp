#include "aluframe/platform/file_lock.h"

#include <windows.h>

#include <utility>

#include "aluframe/platform/windows/error_codes.h"

namespace aluframe::platform {

namespace {

constexpr DWORD milliseconds_between = 50;

/// The lock file for one alone, which the system removes when its holder closes it or ends.
HANDLE open_alone(const std::filesystem::path& path) {
  constexpr DWORD not_shared = 0;
  constexpr DWORD flags = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_TEMPORARY |
                          FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT;
  return CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, not_shared, nullptr,
                     OPEN_ALWAYS, flags, nullptr);
}

}  // namespace

FileLock FileLock::take(const std::filesystem::path& path, Patience patience,
                        std::error_code& error) {
  for (;;) {
    const HANDLE handle = open_alone(path);
    error = handle == INVALID_HANDLE_VALUE ? last_error() : std::error_code();
    if (!error) return {path, reinterpret_cast<std::intptr_t>(handle)};
    if (error != std::errc::device_or_resource_busy || patience == Patience::none) return {};
    Sleep(milliseconds_between);
  }
}

FileLock::FileLock(FileLock&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, none)) {}

FileLock::~FileLock() {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): it was one
  if (handle_ != none) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

}  // namespace aluframe::platform
