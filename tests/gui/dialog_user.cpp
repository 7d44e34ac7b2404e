#include "tests/gui/dialog_user.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace gui_test {

namespace {

// Where a click on a check box or a radio button is sure to meet it: its indicator is at its left.
QPoint face_of(const QAbstractButton& button) {
  const QPoint middle = button.rect().center();
  return button.isCheckable() ? QPoint(button.height() / 2, middle.y()) : middle;
}

void close_from_outside(DialogUser& user) {
  if (!user.is_open()) return;
  user.press(Qt::Key_Escape);
  if (!user.is_open()) return;
  ADD_FAILURE() << "the dialog stayed open after Escape";
  user.window().done(-1);
}

void run_script(const std::function<void(DialogUser&)>& script) {
  auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (window == nullptr) {
    ADD_FAILURE() << "no dialog opened";
    return;
  }
  EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  DialogUser user(*window);
  try {
    script(user);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
  close_from_outside(user);
}

}  // namespace

void schedule_user(const std::function<void(DialogUser&)>& script) {
  QTimer::singleShot(0, [script] { run_script(script); });
}

QWidget& DialogUser::widget(int id) const {
  auto* found = window_.findChild<QWidget*>(QString::number(id));
  if (found == nullptr) throw std::logic_error("no control " + std::to_string(id));
  return *found;
}

QWidget& DialogUser::usable(int id) const {
  QWidget& found = widget(id);
  if (!found.isVisible()) throw std::logic_error("hidden: control " + std::to_string(id));
  if (!found.isEnabled()) throw std::logic_error("disabled: control " + std::to_string(id));
  return found;
}

void DialogUser::click(int id) {
  auto& button = dynamic_cast<QAbstractButton&>(usable(id));
  QTest::mouseClick(&button, Qt::LeftButton, {}, face_of(button));
}

void DialogUser::type(int id, const QString& text) {
  auto& edit = dynamic_cast<QLineEdit&>(usable(id));
  QTest::mouseClick(&edit, Qt::LeftButton);
  QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, text);
}

void DialogUser::choose(int id, const QString& text) {
  auto& list = dynamic_cast<QComboBox&>(usable(id));
  const int index = list.findText(text);
  if (index < 0) throw std::logic_error("not offered: " + text.toStdString());
  list.showPopup();
  QTest::keyClick(list.view(), Qt::Key_Home);
  for (int i = 0; i < index; ++i) QTest::keyClick(list.view(), Qt::Key_Down);
  QTest::keyClick(list.view(), Qt::Key_Return);
}

void DialogUser::click_row(int id, int row) {
  auto& list = dynamic_cast<QTreeWidget&>(usable(id));
  const QPoint beside(5, list.viewport()->height() - 3);
  const QPoint place = row < 0 ? beside : list.visualItemRect(list.topLevelItem(row)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
}

void DialogUser::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* focused = window_.focusWidget();
  QTest::keyClick(focused != nullptr ? focused : &window_, key, modifiers);
}

void DialogUser::close_window() {
  window_.close();
}

std::wstring DialogUser::text(int id) const {
  QWidget& found = widget(id);
  if (auto* label = qobject_cast<QLabel*>(&found)) return label->text().toStdWString();
  if (auto* edit = qobject_cast<QLineEdit*>(&found)) return edit->text().toStdWString();
  if (auto* list = qobject_cast<QComboBox*>(&found)) return list->currentText().toStdWString();
  if (auto* box = qobject_cast<QGroupBox*>(&found)) return box->title().toStdWString();
  return as<QAbstractButton>(id).text().toStdWString();
}

bool DialogUser::is_checked(int id) const {
  return as<QAbstractButton>(id).isChecked();
}

std::vector<std::wstring> DialogUser::choices(int id) const {
  const auto& list = as<QComboBox>(id);
  std::vector<std::wstring> texts;
  for (int i = 0; i < list.count(); ++i) texts.push_back(list.itemText(i).toStdWString());
  return texts;
}

std::vector<std::wstring> DialogUser::row(int id, int row) const {
  const auto& list = as<QTreeWidget>(id);
  std::vector<std::wstring> cells;
  for (int i = 0; i < list.columnCount(); ++i) {
    cells.push_back(list.topLevelItem(row)->text(i).toStdWString());
  }
  return cells;
}

int DialogUser::row_count(int id) const {
  return as<QTreeWidget>(id).topLevelItemCount();
}

int DialogUser::focus() const {
  const QWidget* focused = window_.focusWidget();
  return focused != nullptr ? focused->objectName().toInt() : 0;
}

}  // namespace gui_test
