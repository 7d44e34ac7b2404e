#include "aluframe/toolkit/qt/report_list.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace aluframe::toolkit {

namespace {

/// Cells with room above and below their text. They are drawn without focus, which looks like a
/// selection in some styles; the list itself shows where the keyboard is.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int room = 3;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * room);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
  }
};

}  // namespace

ReportList::ReportList(QWidget* parent) : QTreeWidget(parent) {
  setItemDelegate(new CellDelegate(this));
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
}

int ReportList::full_width() const {
  return header()->length() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void ReportList::notice_selection() {
  const int row = selected_row();
  const QTreeWidgetItem* item = topLevelItem(row);
  if (std::exchange(noticed_, item) != item && item != nullptr && row_selected) row_selected(row);
}

int ReportList::row_selected_by(const QKeyEvent& key) const {
  if (selected_row() >= 0 || topLevelItemCount() == 0) return -1;
  if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return -1;
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
      return std::max(currentIndex().row(), 0);
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return topLevelItemCount() - 1;
    default:
      return -1;
  }
}

void ReportList::copy_row() const {
  const int row = selected_row();
  if (row < 0) return;
  QStringList cells;
  for (int column = 0; column < columnCount(); ++column) cells << cell(row, column).trimmed();
  QGuiApplication::clipboard()->setText(cells.join(u'\t'));
}

void ReportList::keyPressEvent(QKeyEvent* event) {
  const int row = row_selected_by(*event);
  if (row >= 0) {
    select_row(row);
  } else if (event->matches(QKeySequence::Copy)) {
    copy_row();
  } else {
    QTreeWidget::keyPressEvent(event);
  }
}

void ReportList::paintEvent(QPaintEvent* event) {
  QTreeWidget::paintEvent(event);
  const QModelIndex current = currentIndex();
  if (!hasFocus() || !current.isValid() || selected_row() >= 0) return;
  QRect place = visualRect(current);
  if (is_full_row()) {
    place.setLeft(0);
    place.setWidth(header()->length());
  }
  QPainter painter(viewport());
  painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DotLine));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
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
