#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace aluframe::io {

/// Rows of comma-separated values (RFC 4180): cells may be quoted, quotes inside a quoted cell are
/// doubled, and a quoted cell may run over several lines. Lines end with LF or CRLF. Blanks around
/// a cell are dropped; rows without any text (empty lines, and the rows of commas that spreadsheets
/// write) are skipped.
///
///     CsvRows rows(text);
///     while (rows.next()) use(rows.line(), rows.cells());
class CsvRows {
 public:
  /// The text must outlive the rows.
  explicit CsvRows(std::string_view text) : text_(text) {}

  /// Goes to the next row. @return false at the end. Throws Failure with the line of a quote that
  /// is never closed or of text behind a closing quote.
  bool next();
  /// Line on which the row begins, from 1.
  std::size_t line() const { return line_; }
  const std::vector<std::string>& cells() const { return cells_; }

 private:
  void read_row();
  void read_cell(std::string& cell);
  void read_quoted(std::string& cell);
  bool at_end() const { return offset_ == text_.size(); }
  bool at_cell_end() const;
  void skip_blanks();
  void finish_line();

  std::string_view text_;
  std::size_t offset_ = 0;
  std::size_t line_ = 0;       ///< of the row
  std::size_t text_line_ = 1;  ///< of the offset
  std::vector<std::string> cells_;
};

}  // namespace aluframe::io
