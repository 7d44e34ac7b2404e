#include "tests/gui/attribute_user.h"

#include <QLabel>
#include <QTest>
#include <stdexcept>

namespace gui_test {

QGroupBox& AttributeUser::group(const QString& title) const {
  for (auto* group : panel_.findChildren<QGroupBox*>()) {
    if (group->title() == title) return *group;
  }
  throw std::logic_error("no attribute " + title.toStdString());
}

QCheckBox& AttributeUser::given(const QString& title) const {
  return *group(title).findChild<QCheckBox*>();
}

QLineEdit& AttributeUser::line(const QString& title, int place) const {
  return *group(title).findChildren<QLineEdit*>().at(place);
}

QComboBox& AttributeUser::box(const QString& title, int place) const {
  return *group(title).findChildren<QComboBox*>().at(place);
}

std::string AttributeUser::origin(const QString& title) const {
  return group(title).findChild<QLabel*>()->text().toStdString();
}

void AttributeUser::click_given(const QString& title) const {
  QCheckBox& box = given(title);
  QTest::mouseClick(&box, Qt::LeftButton, {}, {box.height() / 2, box.height() / 2});
}

void AttributeUser::start_typing(const QString& title, const QString& text, int place) const {
  QLineEdit& edit = line(title, place);
  edit.setFocus();
  edit.selectAll();
  QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, text);
}

void AttributeUser::type(const QString& title, const QString& text, int place) const {
  start_typing(title, text, place);
  QTest::keyClick(&line(title, place), Qt::Key_Return);
}

void AttributeUser::choose(const QString& title, int row, int place) const {
  QComboBox& list = box(title, place);
  QTest::keyClick(&list, Qt::Key_Home);
  for (int i = 0; i < row; ++i) QTest::keyClick(&list, Qt::Key_Down);
}

}  // namespace gui_test
