#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "aluframe/platform/file_lock.h"
#include "aluframe/texts/text.h"

namespace aluframe::files {

/// What to do about a file that another run is writing.
enum class WhenBusy { refuse, wait };

/// Another run is writing the file.
class FileBusy : public std::runtime_error {
 public:
  FileBusy() : FileBusy(texts::translated("another run is writing this file")) {}
  /// With more to say.
  explicit FileBusy(const std::string& text) : std::runtime_error(text) {}
};

/// Makes its holder the only one that may write a file, from before its first byte until after its
/// last, among all programs that ask. Held on a file of its own beside the other,
/// ".NAME.aluframe-lock", which need not exist yet; the system drops it when its holder ends in
/// whatever way, and a lock file that a killed program left behind is no lock.
///
///     const FileLock lock("frame.alu", WhenBusy::refuse);
class FileLock {
 public:
  /// @throws FileBusy; std::runtime_error with the reason when the folder takes no lock file
  FileLock(const std::filesystem::path& file, WhenBusy when_busy);

 private:
  platform::FileLock lock_;
};

}  // namespace aluframe::files
