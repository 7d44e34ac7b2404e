#include "tools/resources/symbols.h"

#include <set>

#include "tools/resources/token_stream.h"

namespace resources {

namespace {

constexpr int largest_symbol = 65535;

Symbol take_symbol(TokenStream& stream, std::set<std::string>& names) {
  const int line = stream.peek().line;
  if (stream.peek().kind != TokenKind::Word) stream.fail("a symbol");
  if (names.contains(stream.peek().spelling)) stream.fail("a symbol that is not defined yet");
  Symbol symbol{stream.take().spelling, 0};
  names.insert(symbol.name);
  if (stream.peek().line != line) stream.fail("the number of " + symbol.name + " on its line");
  symbol.number = stream.take_number("the number of " + symbol.name, 0, largest_symbol);
  const Token& next = stream.peek();
  if (next.kind != TokenKind::End && next.line == line) stream.fail("the end of the line");
  return symbol;
}

}  // namespace

std::vector<Symbol> read_symbols(const std::string& file, std::string_view source) {
  TokenStream stream(file, source);
  std::vector<Symbol> symbols;
  std::set<std::string> names;
  while (stream.peek().kind != TokenKind::End) {
    stream.expect_mark('#');
    if (stream.peek().is_word("pragma")) {
      stream.skip_line();
    } else if (stream.peek().is_word("define")) {
      stream.take();
      symbols.push_back(take_symbol(stream, names));
    } else {
      stream.fail("define or pragma");
    }
  }
  return symbols;
}

std::string header_resource(const std::vector<Symbol>& symbols) {
  std::string lines;
  for (const Symbol& symbol : symbols) {
    lines += "#define " + symbol.name + " " + std::to_string(symbol.number) + "\r\n";
  }
  std::string bytes = "\xFF\xFE";
  for (const char c : lines) {
    bytes += c;
    bytes += '\0';
  }
  return bytes;
}

}  // namespace resources
