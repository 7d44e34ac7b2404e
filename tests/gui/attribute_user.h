#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QString>
#include <string>

namespace gui_test {

/// The user of the panel of design attributes: works it by mouse and keyboard, and reads it. An
/// attribute is named by its title, a field by its place among those of its kind.
class AttributeUser {
 public:
  explicit AttributeUser(QWidget& panel) : panel_(panel) {}

  /// @throws std::logic_error when there is none
  QGroupBox& group(const QString& title) const;
  QCheckBox& given(const QString& title) const;
  QLineEdit& line(const QString& title, int place = 0) const;
  QComboBox& box(const QString& title, int place = 0) const;
  std::string origin(const QString& title) const;

  void click_given(const QString& title) const;
  /// Types a text in place of what a field has, and stays there.
  void start_typing(const QString& title, const QString& text, int place = 0) const;
  /// Types a text in place of what a field has, and Enter.
  void type(const QString& title, const QString& text, int place = 0) const;
  /// Goes to a row of a list by Home and Down.
  void choose(const QString& title, int row, int place = 0) const;

 private:
  QWidget& panel_;
};

}  // namespace gui_test
