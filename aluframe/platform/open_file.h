#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>

namespace aluframe::platform {

enum class Purpose {
  reading,    ///< opening a pipe that nobody writes to does not wait: it is empty
  writing,    ///< from the first byte on
  rewriting,  ///< the same, of a file that is emptied before
  appending   ///< behind the last byte; the file is made when it is missing
};

/// A file that is open, in bytes as they are, and is closed again. Others may read, write, rename
/// and remove it meanwhile.
///
///     std::error_code error;
///     OpenFile file = OpenFile::open("frame.json", Purpose::rewriting, error);
///     if (!error) error = file.write(text);
class OpenFile {
 public:
  static OpenFile open(const std::filesystem::path& path, Purpose purpose, std::error_code& error);
  /// Makes a file that does not exist yet, empty, open for writing, for the same eyes as another,
  /// if that exists.
  static OpenFile create(const std::filesystem::path& path, const std::filesystem::path& like,
                         std::error_code& error);
  /// The stream that the program prints to when the path leads there; else not open.
  static OpenFile standard_stream_at(const std::filesystem::path& path);

  OpenFile() = default;
  OpenFile(OpenFile&& other) noexcept;
  OpenFile& operator=(OpenFile&& other) noexcept;
  ~OpenFile();

  bool is_open() const { return handle_ != none; }
  /// Whether reading comes to an end: of a file, a pipe, a terminal and the file that keeps
  /// nothing, but neither of a disk as a whole nor of a device that gives bytes for ever.
  bool has_end() const;
  /// @return the number of bytes that were read; 0 at the end and with an error
  std::size_t read(std::span<char> bytes, std::error_code& error) const;
  std::error_code write(std::string_view bytes) const;
  /// Waits until the disk has what was written.
  std::error_code sync() const;
  /// Some file systems tell only now that a write was lost.
  std::error_code close();

 private:
  static constexpr std::intptr_t none = -1;
  explicit OpenFile(std::intptr_t handle) : handle_(handle) {}

  std::intptr_t handle_ = none;  ///< what the system knows it by
};

/// True when something is there that is neither a file nor a folder: a pipe, a terminal, a device.
bool is_stream(const std::filesystem::path& path);

/// The path that leads to standard output, for `standard_stream_at`.
std::filesystem::path standard_output();

/// The path of a file that takes everything and keeps nothing.
std::filesystem::path nowhere();

}  // namespace aluframe::platform
