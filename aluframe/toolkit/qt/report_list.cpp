#include "aluframe/toolkit/qt/report_list.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace aluframe::toolkit {

ReportList::ReportList(QWidget* parent) : QTreeWidget(parent) {
  setColumnCount(0);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  set_full_row(false);
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
  header()->setMinimumSectionSize(1);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { notice_selection(); });
  connect(this, &QTreeWidget::clicked, this, [this](const QModelIndex& index) {
    if (row_clicked) row_clicked(index.row());
  });
}

void ReportList::add_column(const QString& header_text, int width, bool centred) {
  const int column = columnCount();
  setColumnCount(column + 1);
  const Qt::Alignment alignment = Qt::AlignVCenter | (centred ? Qt::AlignHCenter : Qt::AlignLeft);
  headerItem()->setText(column, header_text);
  headerItem()->setTextAlignment(column, alignment);
  for (int row = 0; row < topLevelItemCount(); ++row) {
    topLevelItem(row)->setTextAlignment(column, alignment);
  }
  if (width >= 0) header()->resizeSection(column, width);
}

QString ReportList::header_text(int column) const {
  return column >= 0 && column < columnCount() ? headerItem()->text(column) : QString();
}

int ReportList::insert_row(int row) {
  const int place = std::clamp(row, 0, topLevelItemCount());
  auto* item = new QTreeWidgetItem;
  for (int column = 0; column < columnCount(); ++column) {
    item->setText(column, QString());
    item->setTextAlignment(column, Qt::Alignment(headerItem()->textAlignment(column)));
  }
  insertTopLevelItem(place, item);
  return place;
}

void ReportList::set_cell(int row, int column, const QString& text) {
  QTreeWidgetItem* item = topLevelItem(row);
  if (item != nullptr && column >= 0 && column < columnCount()) item->setText(column, text);
}

QString ReportList::cell(int row, int column) const {
  const QTreeWidgetItem* item = topLevelItem(row);
  if (item == nullptr || column < 0 || column >= columnCount()) return {};
  return item->text(column);
}

void ReportList::select_row(int row) {
  QTreeWidgetItem* item = topLevelItem(row);
  if (item == nullptr) {
    clearSelection();
    setCurrentItem(nullptr);
    return;
  }
  setCurrentItem(item, 0,
                 QItemSelectionModel::ClearAndSelect |
                     (is_full_row() ? QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate));
}

int ReportList::selected_row() const {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  const auto first = std::ranges::min_element(selected, {}, &QModelIndex::row);
  return first != selected.end() ? first->row() : -1;
}

void ReportList::set_full_row(bool on) {
  setSelectionBehavior(on ? SelectRows : SelectItems);
  setAllColumnsShowFocus(on);
}

int ReportList::full_width() const {
  return header()->length() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void ReportList::notice_selection() {
  const int row = selected_row();
  const QTreeWidgetItem* item = topLevelItem(row);
  if (std::exchange(noticed_, item) != item && item != nullptr && row_selected) row_selected(row);
}

void ReportList::mousePressEvent(QMouseEvent* event) {
  pressed_beside_ =
      event->button() == Qt::LeftButton && !indexAt(event->position().toPoint()).isValid();
  QTreeWidget::mousePressEvent(event);
}

void ReportList::mouseReleaseEvent(QMouseEvent* event) {
  QTreeWidget::mouseReleaseEvent(event);
  const bool beside = event->button() == Qt::LeftButton && std::exchange(pressed_beside_, false) &&
                      !indexAt(event->position().toPoint()).isValid();
  if (beside && row_clicked) row_clicked(-1);
}

}  // namespace aluframe::toolkit
