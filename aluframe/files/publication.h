#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string_view>

#include "aluframe/files/file_lock.h"

namespace aluframe::files {

/// What becomes of a part that an earlier run has left under the new file's name.
enum class EarlierPart { is_removed, is_gone_on_with };

/// A file that is written beside the one whose place it is to take, and takes it in one step when
/// it is whole: whoever reads meets the earlier file or the new one, never a part, also after a
/// kill, a full disk or a power cut. The path is locked (file_lock.h) meanwhile.
///
/// A symbolic link to the earlier file stays one, its permissions stay; its owner becomes the user,
/// and another hard link to it keeps the earlier content. What a killed run left beside it is
/// removed.
///
///     Publication report("frame.alu");
///     ... write report.path() ...
///     report.publish();
class Publication {
 public:
  /// The new file is a hidden one beside the destination.
  /// @throws FileBusy; std::runtime_error with the reason when the destination is no ordinary file
  ///   or write-protected, or its folder takes no new file
  explicit Publication(const std::filesystem::path& destination,
                       WhenBusy when_busy = WhenBusy::refuse);
  /// The new file has a name of its own in the destination's folder, for a part of it to be kept.
  /// What stands there is removed, unless `require` throws on its path; it is asked when no other
  /// run can be writing there any more. A part that is gone on with must be there, and is kept in
  /// any case unless it is published or discarded.
  Publication(const std::filesystem::path& destination, const std::filesystem::path& new_name,
              WhenBusy when_busy,
              const std::function<void(const std::filesystem::path&)>& require = {},
              EarlierPart earlier = EarlierPart::is_removed);
  /// Removes the new file unless it was published or kept.
  ~Publication();
  Publication(const Publication&) = delete;
  Publication& operator=(const Publication&) = delete;

  /// The new file, which exists, and is empty unless it goes on with an earlier part.
  const std::filesystem::path& path() const { return path_; }
  /// The file whose place it takes, whatever links lead to it.
  const std::filesystem::path& destination() const { return destination_; }
  /// Gives the new file its content, as far as the disk. @throws std::runtime_error
  void write(std::string_view content) const;
  /// Waits until the disk has the new file and puts it in its place.
  /// @throws std::runtime_error, the earlier file being as it was
  void publish();
  /// Leaves the new file where it is.
  void keep() { is_done_ = true; }
  /// Removes it in the end, unless it is published.
  void discard() { is_done_ = false; }

 private:
  std::filesystem::path destination_;
  FileLock lock_;
  std::filesystem::path path_;
  bool is_done_ = false;
};

/// Gives a file a content in one step, whether it exists or not. What is no ordinary file, such as
/// a pipe or a terminal, is written as it is.
/// @throws FileBusy, std::runtime_error with the reason, an earlier file being as it was
void publish_text(const std::filesystem::path& path, std::string_view content);

/// The same of a content that is too long for the memory: `write` gives it piece by piece, and may
/// throw, which leaves an earlier file as it was.
void publish_stream(const std::filesystem::path& path,
                    const std::function<void(std::ostream&)>& write);

}  // namespace aluframe::files
