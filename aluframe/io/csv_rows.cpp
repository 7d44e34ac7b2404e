#include "aluframe/io/csv_rows.h"

#include <algorithm>

#include "aluframe/io/failure.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

}  // namespace

bool CsvRows::next() {
  while (!at_end()) {
    read_row();
    const bool has_text = std::any_of(cells_.begin(), cells_.end(),
                                      [](const std::string& cell) { return !cell.empty(); });
    if (has_text) return true;
  }
  return false;
}

void CsvRows::read_row() {
  line_ = text_line_;
  std::size_t count = 0;
  while (true) {
    if (cells_.size() == count) cells_.emplace_back();
    read_cell(cells_[count++]);
    if (at_end() || text_[offset_] != ',') break;
    ++offset_;
  }
  cells_.resize(count);
  finish_line();
}

void CsvRows::read_cell(std::string& cell) {
  cell.clear();
  skip_blanks();
  if (!at_end() && text_[offset_] == '"') {
    read_quoted(cell);
    return;
  }
  const std::size_t begin = offset_;
  while (!at_cell_end()) ++offset_;
  std::size_t end = offset_;
  while (end > begin && is_blank(text_[end - 1])) --end;
  cell = text_.substr(begin, end - begin);
}

void CsvRows::read_quoted(std::string& cell) {
  const std::size_t quote_line = text_line_;
  const auto place = [](std::size_t line) { return texts::translated("line {}", line); };
  for (++offset_; true; ++offset_) {
    if (at_end())
      throw Failure{place(quote_line), texts::translated("a quote is opened and never closed")};
    const char c = text_[offset_];
    if (c == '"') {
      const bool is_doubled = offset_ + 1 < text_.size() && text_[offset_ + 1] == '"';
      if (!is_doubled) break;
      ++offset_;
    }
    if (c == '\n') ++text_line_;
    cell += c;
  }
  ++offset_;
  skip_blanks();
  if (!at_cell_end())
    throw Failure{place(text_line_), texts::translated("found text behind a closing quote")};
}

bool CsvRows::at_cell_end() const {
  if (at_end() || text_[offset_] == ',' || text_[offset_] == '\n') return true;
  return text_.substr(offset_).starts_with("\r\n") ||
         (text_[offset_] == '\r' && offset_ + 1 == text_.size());
}

void CsvRows::skip_blanks() {
  while (!at_end() && is_blank(text_[offset_])) ++offset_;
}

void CsvRows::finish_line() {
  if (!at_end() && text_[offset_] == '\r') ++offset_;
  if (at_end()) return;
  ++offset_;
  ++text_line_;
}

}  // namespace aluframe::io
