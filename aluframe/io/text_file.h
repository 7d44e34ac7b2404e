#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace aluframe::io {

/// Files beyond this size are refused: places in a document are kept in 32 bits.
inline constexpr std::size_t max_file_size = std::size_t{1} << 31;

/// The bytes of a file. Throws Failure when it is a directory, cannot be opened or read, or is
/// larger than `max_file_size`.
std::string load_file(const std::filesystem::path& path);

/// The text behind a byte order mark, which some editors write.
std::string_view without_byte_order_mark(std::string_view text);

/// Throws Failure with line and column of the first byte that is not UTF-8.
void require_utf8(std::string_view text);

/// "line 4, column 7" of a byte of the text; both count from 1, columns count characters. An offset
/// at or behind the end stands for the end.
std::string position_in(std::string_view text, std::size_t offset);

/// Text of a file as a message can show it on one line: control characters become blanks, and it is
/// cut after `longest` bytes, never inside a character.
std::string shown(std::string_view text, std::size_t longest = 60);
/// The same in quotes.
std::string in_quotes(std::string_view text);

}  // namespace aluframe::io
