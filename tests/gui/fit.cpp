#include "tests/gui/fit.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTreeWidget>

namespace gui_test {

namespace {

QList<QWidget*> controls_of(const QDialog& dialog) {
  return dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

bool is_cut(const QWidget& widget) {
  const QSize size = widget.size();
  if (qobject_cast<const QLabel*>(&widget) != nullptr ||
      qobject_cast<const QAbstractButton*>(&widget) != nullptr) {
    return size.width() < widget.sizeHint().width() || size.height() < widget.sizeHint().height();
  }
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) {
    return size.width() < box->fontMetrics().horizontalAdvance(box->title());
  }
  if (const auto* list = qobject_cast<const QTreeWidget*>(&widget)) {
    const int bar = list->verticalScrollBar()->sizeHint().width();
    return list->width() < list->header()->length() + bar;
  }
  return false;
}

bool is_frame(const QWidget* widget) {
  return qobject_cast<const QGroupBox*>(widget) != nullptr;
}

}  // namespace

std::vector<std::string> cut_texts(const QDialog& dialog) {
  std::vector<std::string> cut;
  for (const QWidget* widget : controls_of(dialog)) {
    if (is_cut(*widget)) cut.push_back(widget->objectName().toStdString());
  }
  return cut;
}

std::vector<std::string> overlaps(const QDialog& dialog) {
  std::vector<std::string> pairs;
  const QList<QWidget*> controls = controls_of(dialog);
  for (const QWidget* first : controls) {
    for (const QWidget* second : controls) {
      const bool ordered = first->objectName() < second->objectName();
      if (!ordered || is_frame(first) || is_frame(second)) continue;
      if (first->geometry().intersects(second->geometry())) {
        pairs.push_back((first->objectName() + u'/' + second->objectName()).toStdString());
      }
    }
  }
  return pairs;
}

}  // namespace gui_test
