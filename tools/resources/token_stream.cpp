#include "tools/resources/token_stream.h"

#include <cstdint>

#include "tools/resources/source_error.h"

namespace resources {

TokenStream::TokenStream(const std::string& file, std::string_view source)
    : file_(file), tokens_(read_tokens(file, source)) {}

const Token& TokenStream::take() {
  const Token& token = tokens_[at_];
  if (token.kind != TokenKind::End) ++at_;
  return token;
}

void TokenStream::skip_line() {
  const int line = tokens_[at_ - 1].line;
  while (peek().kind != TokenKind::End && peek().line == line) ++at_;
}

bool TokenStream::accept_mark(char mark) {
  if (!peek().is_mark(mark)) return false;
  take();
  return true;
}

void TokenStream::expect_mark(char mark) {
  if (!accept_mark(mark)) fail(std::string("'") + mark + "'");
}

void TokenStream::expect_begin(const std::string& allowed) {
  if (!peek().is_word("BEGIN") && !peek().is_mark('{')) fail(allowed);
  take();
}

bool TokenStream::accept_end() {
  if (!peek().is_word("END") && !peek().is_mark('}')) return false;
  take();
  return true;
}

std::u32string TokenStream::take_text(const std::string& allowed) {
  if (peek().kind != TokenKind::Text) fail(allowed);
  return take().text;
}

int TokenStream::take_number(const std::string& allowed, int low, int high) {
  const std::string range =
      allowed + " from " + std::to_string(low) + " to " + std::to_string(high);
  const bool negative = low < 0 && accept_mark('-');
  if (peek().kind != TokenKind::Number) fail(range);
  const std::int64_t size = peek().number;
  const std::int64_t number = negative ? -size : size;
  if (number < low || number > high) fail(range);
  take();
  return static_cast<int>(number);
}

int TokenStream::take_number_or_symbol(const SymbolTable& symbols, int low, int high) {
  const std::string allowed = "a symbol of the included header or a number";
  if (peek().kind != TokenKind::Word) return take_number(allowed, low, high);
  const auto found = symbols.find(peek().spelling);
  if (found == symbols.end() || found->second < low) fail(allowed);
  take();
  return found->second;
}

void TokenStream::fail(const std::string& allowed) const {
  fail_at(peek(), allowed);
}

void TokenStream::fail_at(const Token& token, const std::string& allowed) const {
  throw SourceError(file_, token.line, name_of(token), allowed);
}

}  // namespace resources
