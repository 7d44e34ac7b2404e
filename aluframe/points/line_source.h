#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>

namespace aluframe::points {

/// A line may be this long, line break excluded; the fields of a check point need some 2,000 bytes.
inline constexpr std::size_t longest_line = std::size_t{1} << 20;

/// The lines of a stream, one at a time, in constant memory.
class LineSource {
 public:
  explicit LineSource(std::istream& in) : in_(in) {}

  /// Reads the next line without its line break (LF or CR LF); false at the end of the stream and
  /// when it breaks off.
  bool next();

  const std::string& text() const { return text_; }
  /// Number of the line, from 1.
  std::uint64_t number() const { return number_; }
  /// The line is longer than `longest_line`; only its beginning was kept.
  bool is_too_long() const { return too_long_; }
  /// The stream broke off before its end.
  bool has_failed() const { return failed_; }
  /// Nothing but blanks, and no more of them than are kept.
  bool is_blank() const {
    return !too_long_ && text_.find_first_not_of(" \t\r") == std::string::npos;
  }
  /// True when reading further would have to wait for whoever writes the stream.
  bool would_wait() const { return in_.rdbuf()->in_avail() <= 0; }

 private:
  bool read_line();

  std::istream& in_;
  std::string text_;
  std::uint64_t number_ = 0;
  bool too_long_ = false;
  bool failed_ = false;
};

}  // namespace aluframe::points
