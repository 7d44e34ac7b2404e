#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace resources {

enum class TokenKind {
  Word,    ///< letters, digits and "_", no digit first
  Number,  ///< decimal or, behind "0x", hexadecimal; an "L" may follow
  Text,    ///< in double quotes
  Mark,    ///< one character such as "," or "|"
  End,     ///< behind the last token of a file
};

/// A smallest piece of a script or header.
struct Token {
  TokenKind kind = TokenKind::End;
  std::string spelling;  ///< as it stands in the file
  int line = 0;          ///< on which it begins; counts from 1
  std::uint32_t number = 0;
  std::u32string text;  ///< what stands between the quotes, with its escapes replaced

  bool is_word(std::string_view word) const { return kind == TokenKind::Word && spelling == word; }
  bool is_mark(char mark) const { return kind == TokenKind::Mark && spelling[0] == mark; }
};

/// A token as messages name it.
std::string name_of(const Token& token);

/// The tokens of a UTF-8 source (a byte-order mark may stand in front), with one of kind `End`
/// last. Comments of both kinds are left out. In a text, `""` is a double quote, `\\` a backslash,
/// `\n`, `\r` and `\t` are a line feed, carriage return and tabulator.
/// @param file names the source in messages
/// @throws SourceError for what is no token
std::vector<Token> read_tokens(const std::string& file, std::string_view source);

}  // namespace resources
