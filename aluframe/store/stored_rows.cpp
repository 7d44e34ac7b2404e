#include "aluframe/store/stored_rows.h"

#include <limits>
#include <optional>

#include "aluframe/store/stored_text.h"

namespace aluframe::store {

namespace {

std::optional<LargestForce> largest_force(SQLite::Statement& select) {
  if (select.getColumn(3).isNull()) return std::nullopt;
  return LargestForce{stored_line(select.getColumn(3)), select.getColumn(4).getDouble(),
                      select.getColumn(5).getInt(), select.getColumn(6).getUInt(),
                      select.getColumn(7).getInt()};
}

/// SQLite has no NaN: NULL stands for it.
double number(const SQLite::Column& column) {
  return column.isNull() ? std::numeric_limits<double>::quiet_NaN() : column.getDouble();
}

std::optional<double> number_or_none(const SQLite::Column& column) {
  return column.isNull() ? std::nullopt : std::optional(column.getDouble());
}

/// NULL: no check has a ratio. Where it is no number, the safe ratio is none either.
std::optional<double> code_ratio(const SQLite::Column& code, const SQLite::Column& safe) {
  if (code.isNull() && !safe.isNull()) return std::nullopt;
  return number(code);
}

}  // namespace

NotChecked not_checked_row(SQLite::Statement& select) {
  const SQLite::Column combination = select.getColumn(1);
  return {select.getColumn(0).getUInt(),
          combination.isNull() ? std::nullopt : std::optional(combination.getUInt()),
          stored_line(select.getColumn(2)), largest_force(select)};
}

SafeRow safe_row(SQLite::Statement& select) {
  return {.element = select.getColumn(0).getUInt(),
          .code = code_ratio(select.getColumn(1), select.getColumn(2)),
          .safe = number(select.getColumn(2)),
          .item = select.getColumn(3).getInt(),
          .rules = stored_line(select.getColumn(4)),
          .combination = select.getColumn(5).getUInt(),
          .min_side = select.getColumn(6).getInt(),
          .fraction = number_or_none(select.getColumn(7)),
          .from_start = select.getColumn(8).getDouble()};
}

UncheckedRow unchecked_row(SQLite::Statement& select) {
  UncheckedRow row{.kind = stored_line(select.getColumn(0)),
                   .magnitude = number(select.getColumn(1)),
                   .at = {select.getColumn(2).getUInt(), select.getColumn(3).getInt(),
                          number_or_none(select.getColumn(4))},
                   .ratio = {},
                   .ratio_at = {}};
  if (select.getColumn(6).isNull()) return row;
  row.ratio = number(select.getColumn(5));
  row.ratio_at = {select.getColumn(6).getUInt(), select.getColumn(7).getInt(),
                  number_or_none(select.getColumn(8))};
  return row;
}

}  // namespace aluframe::store
