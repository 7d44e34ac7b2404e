#include "tools/resources/lexer.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <memory>
#include <optional>

#include "tools/resources/source_error.h"
#include "tools/resources/utf8.h"

namespace resources {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view marks = ",|-{}#<>().";

// The classes of the "C" locale, whatever the user's locale is.
bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_word_part(char c) {
  return is_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

/// A byte as messages name it.
std::string name_of_byte(char c) {
  if (c > ' ' && c <= '~') return std::string("'") + c + "'";
  constexpr char digits[] = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  return std::string("byte 0x") + digits[byte >> 4U] + digits[byte & 0xFU];
}

std::optional<std::uint32_t> parse_number(std::string_view digits) {
  const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  if (hexadecimal) digits.remove_prefix(2);
  if (digits.ends_with('L')) digits.remove_suffix(1);
  // A leading zero would make the number octal elsewhere.
  if (!hexadecimal && digits.size() > 1 && digits[0] == '0') return std::nullopt;
  std::uint32_t number = 0;
  const char* end = std::to_address(digits.end());
  const auto result =
      std::from_chars(std::to_address(digits.begin()), end, number, hexadecimal ? 16 : 10);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

/// Cuts a source into tokens.
class Lexer {
 public:
  Lexer(const std::string& file, std::string_view source) : file_(file), source_(source) {
    if (source_.starts_with(byte_order_mark)) at_ = byte_order_mark.size();
  }

  Token next() {
    skip_blanks_and_comments();
    Token token;
    token.line = line_;
    if (at_ == source_.size()) return token;
    const std::size_t begin = at_;
    read(token);
    token.spelling = source_.substr(begin, at_ - begin);
    if (token.kind == TokenKind::Number) token.number = number_of(token);
    return token;
  }

 private:
  /// 0 behind the last character.
  char peek(std::size_t ahead = 0) const {
    return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0';
  }

  void read(Token& token) {
    const char first = peek();
    if (first == '"') return read_text(token);
    if (is_digit(first)) return read_run(token, TokenKind::Number);
    if (is_word_part(first)) return read_run(token, TokenKind::Word);
    if (marks.find(first) == std::string_view::npos) {
      fail(name_of_byte(first),
           "a word, a number, a text in double quotes or one of " + std::string(marks));
    }
    token.kind = TokenKind::Mark;
    ++at_;
  }

  void read_run(Token& token, TokenKind kind) {
    token.kind = kind;
    while (is_word_part(peek())) ++at_;
  }

  std::uint32_t number_of(const Token& token) const {
    const std::optional<std::uint32_t> number = parse_number(token.spelling);
    if (!number) fail(token.spelling, "a decimal number or a hexadecimal one, up to 4294967295");
    return *number;
  }

  void read_text(Token& token) {
    token.kind = TokenKind::Text;
    std::string bytes;
    for (++at_; peek() != '"' || peek(1) == '"'; ++at_) bytes += take_character();
    ++at_;
    const std::optional<std::u32string> text = decode_utf8(bytes);
    if (!text) fail("a text that is not UTF-8", "UTF-8");
    token.text = *text;
  }

  /// The character that the source shows at this place of a text; stays on its last byte.
  char take_character() {
    if (at_ == source_.size())
      fail("the end of the file inside a text", "a double quote before it");
    if (peek() == '\n') fail("the end of the line inside a text", "a double quote before it");
    if (peek() == '\\' || peek() == '"') return escaped(source_[at_++]);
    return peek();
  }

  /// What the two characters of an escape stand for.
  char escaped(char first) const {
    if (first == '"') return '"';
    switch (peek()) {
      case '\\':
        return '\\';
      case 'n':
        return '\n';
      case 'r':
        return '\r';
      case 't':
        return '\t';
      default:
        fail("a backslash before " + name_of_byte(peek()), "\\\\, \\n, \\r and \\t");
    }
  }

  void skip_blanks_and_comments() {
    while (true) {
      if (is_blank(peek())) {
        skip(1);
      } else if (source_.substr(at_).starts_with("//")) {
        skip(std::min(source_.find('\n', at_), source_.size()) - at_);
      } else if (source_.substr(at_).starts_with("/*")) {
        skip_block_comment();
      } else {
        return;
      }
    }
  }

  void skip_block_comment() {
    const std::size_t end = source_.find("*/", at_ + 2);
    if (end == std::string_view::npos) fail("a comment without an end", "*/ behind it");
    skip(end + 2 - at_);
  }

  void skip(std::size_t count) {
    for (; count > 0; --count) {
      if (source_[at_++] == '\n') ++line_;
    }
  }

  [[noreturn]] void fail(const std::string& found, const std::string& allowed) const {
    throw SourceError(file_, line_, found, allowed);
  }

  const std::string& file_;
  std::string_view source_;
  std::size_t at_ = 0;
  int line_ = 1;
};

}  // namespace

std::string name_of(const Token& token) {
  switch (token.kind) {
    case TokenKind::End:
      return "the end of the file";
    case TokenKind::Mark:
      return "'" + token.spelling + "'";
    default:
      return token.spelling;
  }
}

std::vector<Token> read_tokens(const std::string& file, std::string_view source) {
  Lexer lexer(file, source);
  std::vector<Token> tokens;
  do {
    tokens.push_back(lexer.next());
  } while (tokens.back().kind != TokenKind::End);
  return tokens;
}

}  // namespace resources
