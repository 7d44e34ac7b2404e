#include "apps/desktop/table_model.h"

#include <QFont>
#include <algorithm>
#include <utility>
#include <variant>

namespace aluframe::desktop {

namespace {

using tables::Cell;

bool is_number(const Cell& cell) {
  return std::holds_alternative<double>(cell) || std::holds_alternative<std::int64_t>(cell);
}

bool is_text(const Cell& cell) {
  return std::holds_alternative<std::string>(cell) || std::holds_alternative<tables::Phrase>(cell);
}

/// Numbers and nothing else.
bool is_numeric(const tables::OutputTable& table, std::size_t column) {
  const auto of_column = [column](const auto& row) -> const Cell& { return row[column]; };
  return std::ranges::any_of(table.rows, is_number, of_column) &&
         std::ranges::none_of(table.rows, is_text, of_column);
}

/// "0.85", "-3", "2.1e-14", "nan", or a part of such.
bool can_stand_in_number(const QString& text) {
  return std::ranges::all_of(
      text, [](QChar c) { return QStringView(u"0123456789.-+einfa").contains(c.toLower()); });
}

std::size_t place(int value) {
  return static_cast<std::size_t>(value);
}

}  // namespace

void TableModel::show_table(tables::OutputTable table) {
  beginResetModel();
  table_ = std::move(table);
  is_numeric_.clear();
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    is_numeric_.push_back(is_numeric(table_, i));
  }
  words_.clear();
  endResetModel();
}

const Cell& TableModel::cell(int row, int column) const {
  return table_.rows[place(row)][place(column)];
}

const QString& TableModel::words(const tables::Column& column, const tables::Phrase& phrase) const {
  const auto [found, is_new] = words_.try_emplace(phrase.english);
  if (is_new) found->second = QString::fromStdString(tables::cell_text(column, phrase));
  return found->second;
}

QString TableModel::text(int row, int column) const {
  const Cell& of = cell(row, column);
  if (std::holds_alternative<std::monostate>(of)) return {};
  const tables::Column& in = table_.columns[place(column)];
  if (const auto* phrase = std::get_if<tables::Phrase>(&of)) return words(in, *phrase);
  return QString::fromStdString(tables::cell_text(in, of));
}

QString TableModel::heading(int column) const {
  return QString::fromStdString(tables::heading_text(table_.columns[place(column)]));
}

bool TableModel::holds_text(int row, const QString& text) const {
  // Numbers are most of a large table, and take the longest to be written.
  const bool may_be_number = can_stand_in_number(text);
  for (int column = 0; column < columnCount(); ++column) {
    if (!may_be_number && is_number(cell(row, column))) continue;
    if (this->text(row, column).contains(text, Qt::CaseInsensitive)) return true;
  }
  return false;
}

int TableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(table_.rows.size());
}

int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(table_.columns.size());
}

bool TableModel::is_over(const QModelIndex& index) const {
  return tables::is_over(table_.columns[place(index.column())], cell(index.row(), index.column()));
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole: {
      const QString shown = text(index.row(), index.column());
      return is_over(index) ? QStringLiteral("\u25B2 ") + shown : shown;
    }
    case Qt::ToolTipRole:
      // For what is wider than its column.
      return text(index.row(), index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(
          (is_numeric_[place(index.column())] ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::FontRole: {
      if (!is_over(index)) return {};
      QFont bold;
      bold.setBold(true);
      return bold;
    }
    case over_role:
      return is_over(index);
    default:
      return {};
  }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  const tables::Column& column = table_.columns[place(section)];
  if (role == Qt::DisplayRole) return heading(section);
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue((is_numeric_[place(section)] ? Qt::AlignRight : Qt::AlignLeft) |
                               Qt::AlignVCenter);
  }
  // Who sorts by ratios looks for the largest.
  if (role == Qt::InitialSortOrderRole && column.is_ratio) return Qt::DescendingOrder;
  return {};
}

}  // namespace aluframe::desktop
