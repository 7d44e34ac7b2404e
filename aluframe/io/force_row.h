#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "aluframe/io/csv_rows.h"
#include "aluframe/model/table.h"

namespace aluframe::io {

/// Columns of a force table in CSV. The first three say which forces, the others are those of
/// model::SectionForces.
inline constexpr auto force_columns = std::to_array<std::string_view>(
    {"element", "case", "position", "N", "Fy", "Fz", "Mx", "My", "Mz"});
inline constexpr std::size_t element_column = 0;
inline constexpr std::size_t case_column = 1;
inline constexpr std::size_t position_column = 2;
inline constexpr std::size_t first_component_column = 3;

/// Where each of the columns is in the rows of a file.
using ColumnOrder = std::array<std::size_t, force_columns.size()>;

/// Reads the order of the columns from the header, the row that `rows` is at; names in any case.
/// Throws Failure at an unknown, a repeated or a missing column.
ColumnOrder read_header(const CsvRows& rows);

/// The row that `rows` is at, by its columns. Throws Failure with the line for cells that are no
/// number or out of range, and for a row of another length than the header. Both arguments must
/// outlive it.
class ForceRow {
 public:
  ForceRow(const CsvRows& rows, const ColumnOrder& order);

  /// A number with a decimal point, whatever the user's language.
  double number(std::size_t column) const;
  model::Number whole(std::size_t column, model::Number low, model::Number high) const;
  std::size_t line() const { return rows_.line(); }
  /// Throws Failure at the line.
  [[noreturn]] void fail(std::string text) const;

 private:
  [[noreturn]] void fail_with(std::size_t column, std::string_view allowed) const;
  const std::string& cell(std::size_t column) const { return rows_.cells()[order_[column]]; }

  const CsvRows& rows_;
  const ColumnOrder& order_;
};

}  // namespace aluframe::io
