#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <string>
#include <unordered_map>
#include <vector>

#include "aluframe/tables/output_table.h"

namespace aluframe::desktop {

/// Whether a cell holds a ratio over 1 (bool).
inline constexpr int over_role = Qt::UserRole;

/// A table of the project for a view, which asks for the cells that it shows. A ratio over 1 is
/// bold and has a sign in front.
class TableModel : public QAbstractTableModel {
 public:
  void show_table(tables::OutputTable table);
  const tables::OutputTable& table() const { return table_; }
  const tables::Cell& cell(int row, int column) const;

  /// What stands in a cell, without a sign; empty for nothing.
  QString text(int row, int column) const;
  QString heading(int column) const;
  /// Whether a text stands in a cell of the row, whatever its case.
  bool holds_text(int row, const QString& text) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool is_over(const QModelIndex& index) const;
  const QString& words(const tables::Column& column, const tables::Phrase& phrase) const;

  tables::OutputTable table_;
  std::vector<bool> is_numeric_;  ///< of columns
  /// Sentences by their English: they come again and again, and take time to put into words.
  mutable std::unordered_map<std::string, QString> words_;
};

}  // namespace aluframe::desktop
