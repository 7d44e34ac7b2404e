#include "apps/desktop/table_order.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <variant>

#include "apps/desktop/table_model.h"

namespace aluframe::desktop {

namespace {

/// What a number is sorted by: no number at all comes behind infinity.
struct SortedNumber {
  bool is_unknown = false;
  double value = 0.0;
};

std::optional<SortedNumber> number_in(const tables::Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
    return SortedNumber{false, static_cast<double>(*whole)};
  }
  if (const auto* is_true = std::get_if<bool>(&cell)) {
    return SortedNumber{false, *is_true ? 1.0 : 0.0};
  }
  const auto* number = std::get_if<double>(&cell);
  if (number == nullptr) return std::nullopt;
  return std::isnan(*number) ? SortedNumber{true, 0.0} : SortedNumber{false, *number};
}

bool is_less(const SortedNumber& left, const SortedNumber& right) {
  if (left.is_unknown != right.is_unknown) return right.is_unknown;
  return left.value < right.value;
}

}  // namespace

TableOrder::TableOrder(TableModel& model) : table_(model) {
  collator_.setNumericMode(true);
  collator_.setCaseSensitivity(Qt::CaseInsensitive);
  setSourceModel(&model);
}

void TableOrder::filter_by(const QString& text) {
  text_ = text;
  filter_ = RowFilter(text, table_);
  // All at once: to take out rows one stretch after another takes seconds when they are very many.
  invalidate();
}

int TableOrder::source_row(int row) const {
  return mapToSource(index(row, 0)).row();
}

tables::OutputTable TableOrder::shown_table() const {
  tables::OutputTable shown{table_.table().columns, {}};
  for (int row = 0; row < rowCount(); ++row) {
    shown.rows.push_back(table_.table().rows[static_cast<std::size_t>(source_row(row))]);
  }
  return shown;
}

bool TableOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const tables::Cell& one = table_.cell(left.row(), left.column());
  const tables::Cell& other = table_.cell(right.row(), right.column());
  const bool is_empty = std::holds_alternative<std::monostate>(one);
  if (is_empty != std::holds_alternative<std::monostate>(other)) {
    // The view turns the order round.
    return is_empty == (sortOrder() == Qt::DescendingOrder);
  }
  const auto number = number_in(one), other_number = number_in(other);
  if (number && other_number) return is_less(*number, *other_number);
  if (number || other_number) return number.has_value();  // numbers stand before texts
  return collator_.compare(table_.text(left.row(), left.column()),
                           table_.text(right.row(), right.column())) < 0;
}

bool TableOrder::filterAcceptsRow(int row, const QModelIndex&) const {
  return filter_.accepts(table_, row);
}

}  // namespace aluframe::desktop
