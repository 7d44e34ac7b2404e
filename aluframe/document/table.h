#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/document/html_writer.h"

namespace aluframe::document {

enum class Align { left, right };

struct Column {
  std::string heading;  ///< with the unit of its numbers
  Align align = Align::right;
};

/// A cell; where nothing is known, a dash.
struct Cell {
  std::string text = {};
  bool is_failing = false;  ///< shown so in colour, beside what it says
};

/// Lines of a table as they come.
class TableRows {
 public:
  TableRows(HtmlWriter& html, const std::vector<Column>& columns)
      : html_(html), columns_(columns) {}

  /// A cell for each column, the first of which names the line.
  /// @param id that links lead to; empty: none do
  void add(const std::vector<Cell>& cells, const std::string& id = {});

 private:
  HtmlWriter& html_;
  const std::vector<Column>& columns_;
};

/// A table with its caption, whose head comes again on every page that it runs on to.
void write_table(HtmlWriter& html, std::string_view caption, const std::vector<Column>& columns,
                 const std::function<void(TableRows&)>& add_rows);

/// A table of names and what belongs to them, without a head.
void write_facts(HtmlWriter& html, std::string_view caption,
                 const std::vector<std::pair<std::string, std::string>>& facts);

}  // namespace aluframe::document
