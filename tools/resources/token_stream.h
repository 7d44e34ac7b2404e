#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/resources/lexer.h"

namespace resources {

/// Numbers of symbols by name.
using SymbolTable = std::map<std::string, int, std::less<>>;

/// Hands out the tokens of a file one by one. What does not stand where it must is refused with a
/// `SourceError`.
///
///     TokenStream stream("tz_alu.rc", source);
///     stream.expect_mark(',');
///     const int width = stream.take_number("a width", 0, 32767);
class TokenStream {
 public:
  TokenStream(const std::string& file, std::string_view source);

  const std::string& file() const { return file_; }
  /// The token that comes next.
  const Token& peek() const { return tokens_[at_]; }
  /// Takes it; the last token, `End`, stays.
  const Token& take();
  /// Takes the tokens that stand on the same line as the one taken last.
  void skip_line();

  /// Takes the next token if it is this mark.
  bool accept_mark(char mark);
  void expect_mark(char mark);
  /// Takes BEGIN, or END: a script may write braces instead.
  /// @param allowed what may stand here
  void expect_begin(const std::string& allowed);
  bool accept_end();

  std::u32string take_text(const std::string& allowed);
  /// A number from `low` to `high`, a minus before it where `low` is negative.
  /// @param allowed says what it is for
  int take_number(const std::string& allowed, int low, int high);
  /// As `take_number`, or a symbol of the table.
  int take_number_or_symbol(const SymbolTable& symbols, int low, int high);

  /// Refuses the next token.
  [[noreturn]] void fail(const std::string& allowed) const;
  /// Refuses a token that was taken before.
  [[noreturn]] void fail_at(const Token& token, const std::string& allowed) const;

 private:
  std::string file_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
};

}  // namespace resources
