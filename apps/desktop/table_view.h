#pragma once

#include <QTableView>
#include <functional>
#include <span>
#include <vector>

#include "apps/desktop/table_model.h"
#include "apps/desktop/table_order.h"

namespace aluframe::desktop {

/// A table to be read, sorted by its headings, and copied from; whole rows are selected.
class TableView : public QTableView {
  Q_OBJECT

 public:
  TableView();

  /// In the order of the table and with columns as wide as what stands in them.
  void show_table(tables::OutputTable table);
  const TableModel& table_model() const { return model_; }
  TableOrder& order() { return order_; }
  const TableOrder& order() const { return order_; }

  /// Rows of the table, not of the view, that are selected; the current one last.
  std::vector<std::size_t> selected_rows() const;
  /// Selects the rows of the table that are wanted, and tells nobody.
  void mark_rows(const std::function<bool(std::size_t row)>& is_wanted);
  /// Scrolls until a row of the table is to be seen, if it is shown.
  void show_row(std::size_t row);

  /// Selected rows as text: cells with tabs between them, as spreadsheets take them.
  QString selected_text(bool with_headings) const;
  /// A column of all rows that are shown.
  QString column_text(int column) const;
  void copy(bool with_headings) const;

 Q_SIGNALS:
  /// By the user.
  void rows_selected();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void fit_rows();
  void fit_columns();
  QString text_of_row(int row) const;

  TableModel model_;
  TableOrder order_;
  bool is_marking_ = false;
};

}  // namespace aluframe::desktop
