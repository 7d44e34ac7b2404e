#include "aluframe/io/force_row.h"

#include <cmath>
#include <utility>

#include "aluframe/io/csv_number.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/suggestion.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// Place of a name among the columns; their number when it is none of them.
std::size_t column_of(std::string_view name) {
  std::size_t column = 0;
  while (column < force_columns.size() && !equal_but_for_case(force_columns[column], name)) {
    ++column;
  }
  return column;
}

}  // namespace

ColumnOrder read_header(const CsvRows& rows) {
  const auto fail = [&](std::string text) {
    throw Failure{texts::translated("line {}", rows.line()), std::move(text)};
  };
  ColumnOrder order;
  order.fill(nowhere);
  for (std::size_t cell = 0; cell < rows.cells().size(); ++cell) {
    const std::string& name = rows.cells()[cell];
    const std::size_t column = column_of(name);
    if (column == force_columns.size()) {
      fail(unknown_name_text(texts::translated("column {}", in_quotes(name)), name, force_columns));
    }
    if (order[column] != nowhere) {
      fail(texts::translated("column \"{}\" is given twice", force_columns[column]));
    }
    order[column] = cell;
  }
  for (std::size_t column = 0; column < order.size(); ++column) {
    if (order[column] == nowhere)
      fail(texts::translated("missing column \"{}\"", force_columns[column]));
  }
  return order;
}

ForceRow::ForceRow(const CsvRows& rows, const ColumnOrder& order) : rows_(rows), order_(order) {
  if (rows.cells().size() != order.size()) {
    fail(texts::translated("found {} cells, the header has {}", rows.cells().size(), order.size()));
  }
}

double ForceRow::number(std::size_t column) const {
  const auto [value, fault] = parse_number(cell(column));
  if (!fault.empty()) fail_with(column, texts::translation_of(fault));
  return value;
}

model::Number ForceRow::whole(std::size_t column, model::Number low, model::Number high) const {
  const double value = number(column);
  if (!(value >= low && value <= high) || value != std::floor(value)) {
    fail_with(column, texts::translated("must be a whole number from {} to {}", low, high));
  }
  return static_cast<model::Number>(value);
}

void ForceRow::fail(std::string text) const {
  throw Failure{texts::translated("line {}", rows_.line()), std::move(text)};
}

void ForceRow::fail_with(std::size_t column, std::string_view allowed) const {
  fail(texts::translated("{}: found {}, {}", force_columns[column], in_quotes(cell(column)),
                         allowed));
}

}  // namespace aluframe::io
