#include "aluframe/files/file_lock.h"

#include "aluframe/files/sibling.h"
#include "aluframe/files/system_failure.h"

namespace aluframe::files {

namespace {

platform::FileLock take(const std::filesystem::path& path, WhenBusy when_busy) {
  using platform::Patience;
  const auto patience = when_busy == WhenBusy::wait ? Patience::endless : Patience::none;
  std::error_code error;
  platform::FileLock lock = platform::FileLock::take(path, patience, error);
  if (error == std::errc::device_or_resource_busy) throw FileBusy();
  require_no(error);
  return lock;
}

}  // namespace

FileLock::FileLock(const std::filesystem::path& file, WhenBusy when_busy)
    : lock_(take(sibling(file, "lock"), when_busy)) {}

}  // namespace aluframe::files
