#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/toolkit/win32/win32_dialog.h"

namespace test_support {

class DialogUser;

/// Dialogs of the system's windows, worked by scripts. Each dialog that is run takes the next
/// script; when the script returns and has not closed the dialog, Escape is pressed for it.
class UserToolkit : public host::Toolkit {
 public:
  using Script = std::function<void(DialogUser&)>;

  /// Adds the script of a further dialog.
  void script(Script script) { scripts_.push_back(std::move(script)); }
  /// Scripts that no dialog has taken yet.
  std::size_t pending() const { return scripts_.size(); }

  /// @throws std::logic_error from the dialog's Run when no script is left
  std::unique_ptr<host::DialogWindow> Open(const DIALOG_TEMPLATE& dialog,
                                           host::DialogEvents& events) override;

 private:
  std::deque<Script> scripts_;
};

/// Keys by the numbers that Windows gives them.
enum class Key : unsigned {
  backspace = 0x08,
  tab = 0x09,
  enter = 0x0D,
  escape = 0x1B,
  space = 0x20,
  end = 0x23,
  up = 0x26,
  down = 0x28
};

/// An open dialog and its user, who works it by mouse and key messages of its queue. What a user
/// could not do, because the control is missing, hidden or disabled, throws std::logic_error.
class DialogUser : public aluframe::toolkit::Win32Dialog {
 public:
  DialogUser(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events,
             aluframe::toolkit::WindowHandle owner, std::deque<UserToolkit::Script>& scripts);

  const DIALOG_TEMPLATE& dialog() const { return template_; }
  bool is_open() const { return !result(); }

  /// Clicks the face of a button.
  void click(int id);
  /// Types into an edit, in place of what it holds.
  void type(int id, const std::wstring& text);
  /// Opens a drop-down list and clicks an entry.
  void choose(int id, const std::wstring& text);
  void choose(int id, int index);
  /// Clicks a row of a list; -1 clicks below the rows.
  void click_row(int id, int row);
  void press_enter();
  void press_escape();
  /// Presses a key where the focus is.
  void press(Key key);
  /// Identifier of the control that has the focus; 0 when none has.
  int focus() const;
  /// Every entry of a drop-down list.
  std::vector<std::wstring> choices(int id) const;
  /// Whether a column's texts stand in its middle.
  bool is_centred(int id, int column) const;

  int Run() override;

 private:
  struct Caller;

  aluframe::toolkit::WindowHandle usable(int id, const char* what, bool is_of_kind) const;
  CONTROL_KIND kind_of(int id) const;
  void click_at(aluframe::toolkit::WindowHandle window, int x, int y);
  void handle_messages();
  void work();

  const DIALOG_TEMPLATE& template_;
  std::deque<UserToolkit::Script>& scripts_;
  UserToolkit::Script script_;
  std::exception_ptr failure_;
};

}  // namespace test_support
