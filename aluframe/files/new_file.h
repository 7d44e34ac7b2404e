#pragma once

#include <filesystem>

namespace aluframe::files {

/// A new, empty file beside the one that it is to replace, on the same volume, so that it can take
/// its place in one step. Removed again unless it did.
///
///     NewFile file(path);
///     ... write file.path() ...
///     file.replace();
class NewFile {
 public:
  /// @throws std::runtime_error when the folder does not exist or cannot be written
  explicit NewFile(std::filesystem::path destination);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// Puts the file in the place of the destination. @throws std::runtime_error
  void replace();

 private:
  std::filesystem::path destination_;
  std::filesystem::path path_;
};

}  // namespace aluframe::files
