#include "aluframe/io/text_file.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <system_error>

#include "aluframe/io/failure.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/platform/open_file.h"
#include "aluframe/texts/system_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

bool is_continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// A kind of UTF-8 sequence: its first byte, its length and the range of its second byte, which
/// rules out overlong forms, surrogates and values beyond U+10FFFF.
struct Sequence {
  unsigned char first_low, first_high;
  std::size_t length;
  unsigned char second_low, second_high;
};

constexpr std::array sequences{
    Sequence{0xC2, 0xDF, 2, 0x80, 0xBF}, Sequence{0xE0, 0xE0, 3, 0xA0, 0xBF},
    Sequence{0xE1, 0xEC, 3, 0x80, 0xBF}, Sequence{0xED, 0xED, 3, 0x80, 0x9F},
    Sequence{0xEE, 0xEF, 3, 0x80, 0xBF}, Sequence{0xF0, 0xF0, 4, 0x90, 0xBF},
    Sequence{0xF1, 0xF3, 4, 0x80, 0xBF}, Sequence{0xF4, 0xF4, 4, 0x80, 0x8F},
};

/// Length of the character at the start of `text`, which begins with a byte beyond ASCII; 0 when it
/// is none.
std::size_t character_length(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (const Sequence& sequence : sequences) {
    if (byte(0) < sequence.first_low || byte(0) > sequence.first_high) continue;
    if (text.size() < sequence.length) return 0;
    if (byte(1) < sequence.second_low || byte(1) > sequence.second_high) return 0;
    const std::string_view rest = text.substr(2, sequence.length - 2);
    return std::all_of(rest.begin(), rest.end(), is_continuation) ? sequence.length : 0;
  }
  return 0;
}

/// Length of the run of ASCII at the start, taken in steps of eight bytes: nearly all of a file.
std::size_t ascii_length(std::string_view text) {
  constexpr std::uint64_t high_bits = 0x8080808080808080U;
  std::size_t length = 0;
  for (std::uint64_t block = 0; length + sizeof block <= text.size(); length += sizeof block) {
    std::memcpy(&block, text.data() + length, sizeof block);
    if ((block & high_bits) != 0) break;
  }
  while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) ++length;
  return length;
}

platform::OpenFile open(const std::filesystem::path& path) {
  std::error_code error;
  auto file = platform::OpenFile::open(path, platform::Purpose::reading, error);
  if (error)
    throw Failure{"", texts::translated("cannot be opened: {}", texts::system_text(error))};
  return file;
}

/// @return the number of bytes read into the block; 0 at the end
std::size_t read(const platform::OpenFile& file, std::string& block) {
  std::error_code error;
  const std::size_t count = file.read(block, error);
  if (error) throw Failure{"", texts::translated("cannot be read: {}", texts::system_text(error))};
  return count;
}

}  // namespace

std::string load_file(const std::filesystem::path& path) {
  std::error_code ignored;  // a path that cannot be examined fails to open below, with its reason
  if (std::filesystem::is_directory(path, ignored))
    throw Failure{"", texts::translated("is a directory, not a file")};
  const platform::OpenFile file = open(path);
  if (!file.has_end()) throw Failure{"", texts::translated("is a device without an end")};
  std::string text;
  std::error_code unknown_size;  // of a pipe, say: then the text grows as it comes
  const std::uintmax_t size = std::filesystem::file_size(path, unknown_size);
  if (!unknown_size) text.reserve(std::min<std::uintmax_t>(size, max_file_size));
  std::string block(std::size_t{1} << 20, '\0');
  while (const std::size_t count = read(file, block)) {
    text.append(block, 0, count);
    if (text.size() > max_file_size) throw Failure{"", texts::translated("is larger than 2 GB")};
  }
  if (text.empty() && std::filesystem::is_fifo(path, ignored))
    throw Failure{"", texts::translated("is a pipe that nobody writes to")};
  return text;
}

std::string_view without_byte_order_mark(std::string_view text) {
  return text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text;
}

void require_utf8(std::string_view text) {
  std::size_t offset = ascii_length(text);
  while (offset < text.size()) {
    const std::size_t length = character_length(text.substr(offset));
    if (length == 0) {
      throw Failure{position_in(text, offset),
                    texts::translated("found byte 0x{:02X}, the file must be UTF-8",
                                      static_cast<unsigned char>(text[offset]))};
    }
    offset += length;
    offset += ascii_length(text.substr(offset));
  }
}

std::string position_in(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t line_end = before.rfind('\n');
  const std::string_view in_line =
      line_end == std::string_view::npos ? before : before.substr(line_end + 1);
  const auto column = 1 + std::count_if(in_line.begin(), in_line.end(),
                                        [](char byte) { return !is_continuation(byte); });
  return texts::translated("line {}, column {}", line, column);
}

std::string shown(std::string_view text, std::size_t longest) {
  std::string line(text.substr(0, longest));
  if (text.size() > longest) {
    // The byte that was cut off continues a character whose start is still there.
    for (std::size_t end = longest; is_continuation(text[end]); --end) line.pop_back();
    line += "...";
  }
  return model::without_control_characters(line);
}

std::string in_quotes(std::string_view text) {
  return '"' + shown(text) + '"';
}

}  // namespace aluframe::io
