#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace aluframe::platform {

enum class Patience { none, endless };

/// A file that one holder has at a time, among all programs that ask this way; made when it is
/// missing and removed in the end. The system drops it when its holder ends in whatever way, and
/// one that a killed program left behind is free.
class FileLock {
 public:
  /// @param error std::errc::device_or_resource_busy when another has it
  static FileLock take(const std::filesystem::path& path, Patience patience,
                       std::error_code& error);

  FileLock() = default;
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&&) = delete;
  ~FileLock();

 private:
  static constexpr std::intptr_t none = -1;
  FileLock(std::filesystem::path path, std::intptr_t handle)
      : path_(std::move(path)), handle_(handle) {}

  std::filesystem::path path_;
  std::intptr_t handle_ = none;
};

}  // namespace aluframe::platform
