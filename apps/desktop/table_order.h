#pragma once

#include <QCollator>
#include <QSortFilterProxyModel>

#include "aluframe/tables/output_table.h"
#include "apps/desktop/row_filter.h"

namespace aluframe::desktop {

class TableModel;

/// The rows of a table that a filter lets through, in the order that the user has chosen: numbers
/// as numbers, a ratio that is no number beyond all others, cells without anything always last.
class TableOrder : public QSortFilterProxyModel {
 public:
  explicit TableOrder(TableModel& model);

  /// Goes by the columns that the table has now.
  void filter_by(const QString& text);
  const QString& filter_text() const { return text_; }
  /// Row of the table that is shown in a row.
  int source_row(int row) const;
  /// The rows that are shown, as they are shown.
  tables::OutputTable shown_table() const;

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  TableModel& table_;
  QString text_;
  RowFilter filter_;
  QCollator collator_;
};

}  // namespace aluframe::desktop
