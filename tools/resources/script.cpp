#include "tools/resources/script.h"

#include <algorithm>
#include <set>
#include <utility>

#include "tools/resources/dialogs.h"
#include "tools/resources/token_stream.h"

namespace resources {

namespace {

constexpr int largest_id = 65535;

/// Reads the statements of a script that stand outside dialogs.
class ScriptReader {
 public:
  ScriptReader(const std::string& file, std::string_view source, const std::string& header,
               const std::vector<Symbol>& symbols)
      : stream_(file, source), header_(header), defined_(symbols) {}

  Script read() {
    while (stream_.peek().kind != TokenKind::End) {
      if (stream_.accept_mark('#')) {
        read_directive();
      } else {
        read_resource();
      }
    }
    return std::move(script_);
  }

 private:
  void read_directive() {
    if (!stream_.peek().is_word("include")) stream_.fail("include");
    stream_.take();
    if (stream_.peek().is_mark('<')) {
      stream_.skip_line();
      return;
    }
    const std::u32string expected(header_.begin(), header_.end());
    if (stream_.peek().text != expected) stream_.fail("\"" + header_ + "\"");
    stream_.take();
    for (const Symbol& symbol : defined_) symbols_.emplace(symbol.name, symbol.number);
  }

  void read_resource() {
    const Token first = stream_.peek();
    const auto id = static_cast<UINT>(stream_.take_number_or_symbol(symbols_, 1, largest_id));
    if (stream_.peek().is_word("DIALOGEX")) {
      refuse_second(first, dialog_ids_, id);
      stream_.take();
      script_.dialogs.push_back(read_dialog(stream_, symbols_));
      script_.dialogs.back().id = id;
    } else if (stream_.peek().is_word("BINARY")) {
      refuse_second(first, binary_ids_, id);
      read_binary(id);
    } else {
      stream_.fail("DIALOGEX or BINARY");
    }
  }

  void refuse_second(const Token& id_token, std::set<UINT>& ids, UINT id) const {
    if (ids.insert(id).second) return;
    stream_.fail_at(id_token, "a number that no other resource of this type has");
  }

  void read_binary(UINT id) {
    Binary binary{id, stream_.take().spelling, {}};
    if (stream_.peek().kind == TokenKind::Text) {
      binary.bytes = read_file_reference();
    } else {
      stream_.expect_begin("a file name in double quotes or BEGIN");
      while (!stream_.accept_end()) binary.bytes += read_bytes();
    }
    script_.binaries.push_back(std::move(binary));
  }

  std::string read_file_reference() {
    if (stream_.peek().text !=
        std::u32string(header_resource_file.begin(), header_resource_file.end())) {
      stream_.fail("\"" + std::string(header_resource_file) + "\"");
    }
    stream_.take();
    return header_resource(defined_);
  }

  std::string read_bytes() {
    const std::u32string& text = stream_.peek().text;
    const bool ascii = std::ranges::all_of(text, [](char32_t c) { return c < 0x80; });
    if (stream_.peek().kind != TokenKind::Text || !ascii) stream_.fail("an ASCII text or END");
    std::string bytes;
    for (const char32_t c : stream_.take().text) bytes += static_cast<char>(c);
    if (stream_.accept_mark(',') && stream_.peek().kind != TokenKind::Text) {
      stream_.fail("an ASCII text");
    }
    return bytes;
  }

  TokenStream stream_;
  std::string header_;
  const std::vector<Symbol>& defined_;
  SymbolTable symbols_;  ///< those that the script has included so far
  std::set<UINT> dialog_ids_;
  std::set<UINT> binary_ids_;
  Script script_;
};

}  // namespace

Script read_script(const std::string& file, std::string_view source, const std::string& header,
                   const std::vector<Symbol>& symbols) {
  return ScriptReader(file, source, header, symbols).read();
}

}  // namespace resources
