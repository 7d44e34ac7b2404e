#include "apps/desktop/table_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QtGlobal>
#include <algorithm>
#include <utility>

namespace aluframe::desktop {

namespace {

/// A ratio over 1 is red as well as bold, in a red that can be read on the ground that it has.
class OverDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.data(over_role).toBool()) return;
    constexpr int half_light = 128;
    const bool is_dark = option->palette.color(QPalette::Base).lightness() < half_light;
    option->palette.setColor(QPalette::Text, is_dark ? QColor(255, 138, 128) : QColor(176, 0, 32));
  }
};

}  // namespace

TableView::TableView() : order_(model_) {
  setModel(&order_);
  setItemDelegate(new OverDelegate(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setSortingEnabled(true);
  setHorizontalScrollMode(ScrollPerPixel);
  setContextMenuPolicy(Qt::CustomContextMenu);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSortIndicatorClearable(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsMovable(true);
  fit_rows();
}

void TableView::fit_rows() {
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 4 / 3);
}

void TableView::fit_columns() {
  constexpr int looked_at = 300;  // rows
  constexpr int widest = 48;      // characters
  horizontalHeader()->setResizeContentsPrecision(looked_at);
  resizeColumnsToContents();
  const int character = fontMetrics().averageCharWidth();
  for (int column = 0; column < model_.columnCount(); ++column) {
    setColumnWidth(column, std::min(columnWidth(column) + character, character * widest));
  }
}

void TableView::show_table(tables::OutputTable table) {
  const bool is_same = table.columns.size() == model_.table().columns.size() &&
                       std::ranges::equal(table.columns, model_.table().columns, {},
                                          &tables::Column::key, &tables::Column::key);
  // Whoever has sorted it keeps that when it is made again.
  if (!is_same) sortByColumn(-1, Qt::AscendingOrder);
  const QString filter = order_.filter_text();
  const QSignalBlocker blocked(this);
  model_.show_table(std::move(table));
  order_.filter_by(filter);
  if (!is_same) fit_columns();
}

std::vector<std::size_t> TableView::selected_rows() const {
  std::vector<std::size_t> rows;
  const auto add = [&](int row) {
    rows.push_back(static_cast<std::size_t>(order_.source_row(row)));
  };
  const QModelIndex current = currentIndex();
  bool has_current = false;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      if (current.isValid() && row == current.row()) {
        has_current = true;
      } else {
        add(row);
      }
    }
  }
  if (has_current) add(current.row());
  return rows;
}

void TableView::mark_rows(const std::function<bool(std::size_t row)>& is_wanted) {
  QItemSelection wanted;
  const int rows = order_.rowCount(), last_column = order_.columnCount() - 1;
  for (int first = 0; first < rows; ++first) {
    int end = first;
    while (end < rows && is_wanted(static_cast<std::size_t>(order_.source_row(end)))) ++end;
    if (end == first) continue;
    wanted.append(QItemSelectionRange(order_.index(first, 0), order_.index(end - 1, last_column)));
    first = end;
  }
  is_marking_ = true;
  selectionModel()->clearSelection();
  selectionModel()->select(wanted, QItemSelectionModel::Select);
  is_marking_ = false;
}

void TableView::show_row(std::size_t row) {
  const QModelIndex index = order_.mapFromSource(model_.index(static_cast<int>(row), 0));
  if (!index.isValid()) return;
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  const int across = horizontalScrollBar()->value();
  scrollTo(index);
  horizontalScrollBar()->setValue(across);
}

QString TableView::text_of_row(int row) const {
  QStringList cells;
  for (int column = 0; column < model_.columnCount(); ++column) {
    cells.push_back(model_.text(order_.source_row(row), column));
  }
  return cells.join(u'\t');
}

QString TableView::selected_text(bool with_headings) const {
  QStringList lines;
  if (with_headings) {
    QStringList headings;
    for (int column = 0; column < model_.columnCount(); ++column) {
      headings.push_back(model_.heading(column));
    }
    lines.push_back(headings.join(u'\t'));
  }
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::ranges::sort(rows);
  for (const int row : rows) lines.push_back(text_of_row(row));
  return lines.join(u'\n');
}

QString TableView::column_text(int column) const {
  QStringList lines;
  for (int row = 0; row < order_.rowCount(); ++row) {
    lines.push_back(model_.text(order_.source_row(row), column));
  }
  return lines.join(u'\n');
}

void TableView::copy(bool with_headings) const {
  if (selectionModel()->hasSelection()) {
    QApplication::clipboard()->setText(selected_text(with_headings));
  }
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    copy(false);
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

void TableView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) fit_rows();
}

void TableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!is_marking_) Q_EMIT rows_selected();
}

}  // namespace aluframe::desktop
