#pragma once

#include <QTreeWidget>
#include <functional>

namespace aluframe::toolkit {

/// A list in columns with headers, not editable, as a dialog's report list behaves: no row is
/// selected until the user or the program selects one, and a click beside the rows selects none.
/// While none is, the row that the keyboard is at has a dotted line around it, and the arrow keys
/// select it. Ctrl+C copies the selected row, its cells apart by tabs.
class ReportList : public QTreeWidget {
 public:
  explicit ReportList(QWidget* parent);

  /// Called with the row that was selected, by the user or by the program.
  std::function<void(int row)> row_selected;
  /// Called after a click with the left button; -1 is beside the rows.
  std::function<void(int row)> row_clicked;

  /// Appends a column; `width` in device-independent pixels.
  void add_column(const QString& header, int width, bool centred);
  QString header_text(int column) const;
  /// @return the new row; a place beyond the rows is at their end
  int insert_row(int row);
  /// No effect where the list has no such cell; empty text, likewise.
  void set_cell(int row, int column, const QString& text);
  QString cell(int row, int column) const;
  /// -1, or a row that the list does not have, selects none.
  void select_row(int row);
  /// -1 when none is selected.
  int selected_row() const;
  /// Marks the selected row from end to end, or only its selected cell.
  void set_full_row(bool on);
  bool is_full_row() const { return selectionBehavior() == SelectRows; }
  /// Width that shows all columns beside a vertical scroll bar.
  int full_width() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void notice_selection();
  /// The row that a key selects while none is selected; -1: the key selects none.
  int row_selected_by(const QKeyEvent& key) const;
  void copy_row() const;

  const QTreeWidgetItem* noticed_ = nullptr;  ///< of the row that was told last
  bool pressed_beside_ = false;
};

}  // namespace aluframe::toolkit
