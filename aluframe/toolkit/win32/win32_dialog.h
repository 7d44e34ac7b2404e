#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <unordered_map>

#include "aluframe/toolkit/win32/window_handle.h"
#include "host/framework/toolkit.h"

struct tagMSG;

namespace aluframe::toolkit {

/// A dialog of the system's own controls. Windows makes it from the dialog resource that has the
/// template's number; of the template itself only identifiers and kinds are used.
///
/// What a handler throws does not pass through the system's calls: the dialog closes, and `Run`
/// throws it on.
class Win32Dialog : public host::DialogWindow {
 public:
  /// @param dialog stands in the library or program whose resource is taken
  /// @param owner window that is disabled while the dialog runs; may be null
  Win32Dialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events, WindowHandle owner);
  Win32Dialog(const Win32Dialog&) = delete;
  Win32Dialog& operator=(const Win32Dialog&) = delete;
  ~Win32Dialog() override;

  /// Null when Windows did not open the dialog.
  WindowHandle window() const { return window_; }
  /// The window of a control; null when the dialog has none of this identifier.
  WindowHandle control(int id) const;
  /// What the dialog ended with, or nothing while it is open.
  std::optional<int> result() const { return result_; }

  int Run() override;
  void End(int result) override { result_ = result; }
  void SetCaption(const CString& caption) override;
  bool HasControl(int id) const override { return find(id) != nullptr; }
  void SetText(int id, const CString& text) override;
  CString Text(int id) const override;
  void Enable(int id, bool enable) override;
  bool IsEnabled(int id) const override;
  void Show(int id, bool show) override;
  bool IsShown(int id) const override;
  void SetCheck(int id, bool check) override;
  bool IsChecked(int id) const override;
  void ClearChoices(int id) override;
  int AddChoice(int id, const CString& text) override;
  int ChoiceCount(int id) const override;
  CString ChoiceText(int id, int index) const override;
  void SelectChoice(int id, int index) override;
  int SelectedChoice(int id) const override;
  void AddColumn(int id, const CString& header, int width, bool centred) override;
  int ColumnCount(int id) const override;
  CString ColumnHeader(int id, int column) const override;
  int ColumnWidth(int id, int column) const override;
  int InsertRow(int id, int row) override;
  int RowCount(int id) const override;
  void SetCell(int id, int row, int column, const CString& text) override;
  CString Cell(int id, int row, int column) const override;
  void SelectRow(int id, int row) override;
  int SelectedRow(int id) const override;
  void SetFullRowSelect(int id, bool on) override;
  bool IsFullRowSelect(int id) const override;

 protected:
  /// Gives a message of the queue to the dialog's keyboard, or to the window that it is for.
  void process(tagMSG& message);

 private:
  struct Procedure;

  const CONTROL_TEMPLATE* find(int id) const;
  /// The control's window when it is of this kind, else null.
  WindowHandle find(int id, CONTROL_KIND kind) const;
  /// The window of a check box or a radio button, else null.
  WindowHandle find_check(int id) const;

  void give_focus_to_first();
  void leave(WindowHandle control);
  void update_tab_stops();
  bool takes_enter(WindowHandle focused) const;
  void command(int id, int code);
  void notify(int id, unsigned code, std::intptr_t data);
  /// Tells the framework what the user does, unless the dialog has closed.
  template <class Event>
  void raise(const Event& event) noexcept;

  const DIALOG_TEMPLATE& template_;
  host::DialogEvents& events_;
  std::unordered_map<int, const CONTROL_TEMPLATE*> controls_;
  WindowHandle owner_;
  WindowHandle window_ = nullptr;
  std::uintptr_t key_ = 0;  ///< that is being handled; 0: none
  std::optional<int> result_;
  std::exception_ptr failure_;
};

}  // namespace aluframe::toolkit
