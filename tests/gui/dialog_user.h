#pragma once

#include <QDialog>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace gui_test {

/// The user of an open dialog: works its widgets with mouse and keyboard, and reads what they show.
/// A control is named by its identifier. What a user could not do, because the control is missing,
/// hidden or disabled, throws std::logic_error.
class DialogUser {
 public:
  explicit DialogUser(QDialog& window) : window_(window) {}

  QDialog& window() { return window_; }
  bool is_open() const { return window_.isVisible(); }

  /// Any widget, whether it can be used or not.
  QWidget& widget(int id) const;
  template <class Widget>
  Widget& as(int id) const {
    return dynamic_cast<Widget&>(widget(id));
  }

  /// Clicks the middle of a button's face.
  void click(int id);
  /// Replaces what an edit holds, key by key.
  void type(int id, const QString& text);
  /// Opens a drop-down list and takes an entry.
  void choose(int id, const QString& text);
  /// -1: beside the rows.
  void click_row(int id, int row);
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void close_window();

  std::wstring text(int id) const;
  bool is_checked(int id) const;
  bool is_shown(int id) const { return widget(id).isVisible(); }
  bool is_enabled(int id) const { return widget(id).isEnabled(); }
  std::vector<std::wstring> choices(int id) const;
  /// All cells of a row.
  std::vector<std::wstring> row(int id, int row) const;
  int row_count(int id) const;
  /// Identifier of the control that has the focus; 0 when none has.
  int focus() const;

 private:
  QWidget& usable(int id) const;

  QDialog& window_;
};

/// Runs `open`, which opens a modal dialog and returns when it has closed. Meanwhile `script` works
/// the dialog; when that has not closed it, Escape does, and if that does not either, it is closed
/// from outside and the test fails.
template <class Open>
auto with_user(const Open& open, const std::function<void(DialogUser&)>& script);

void schedule_user(const std::function<void(DialogUser&)>& script);

template <class Open>
auto with_user(const Open& open, const std::function<void(DialogUser&)>& script) {
  schedule_user(script);
  return open();
}

}  // namespace gui_test
