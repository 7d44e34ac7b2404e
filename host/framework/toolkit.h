#pragma once

#include <memory>

#include "host/framework/cstring.h"
#include "host/framework/resources.h"

// What the framework's dialogs need of a graphical toolkit. An application implements it over the
// toolkit of its windows, or in memory for scripts and tests.

namespace host {

/// What the user does in an open dialog. The toolkit calls it; changes that the program makes are
/// not events, but for the selection of a list row.
class DialogEvents {
 public:
  virtual ~DialogEvents() = default;
  /// A push button, check box or radio button was clicked; its check has changed already.
  virtual void ButtonClicked(int id) = 0;
  /// An entry of a drop-down list was chosen.
  virtual void ChoiceChanged(int id) = 0;
  /// A list's row was selected.
  virtual void RowSelected(int id, int row) = 0;
  /// A list was clicked; `row` is -1 beside the rows.
  virtual void RowClicked(int id, int row) = 0;
  /// Enter, where no push button takes it.
  virtual void EnterPressed() = 0;
  /// Escape, or the window was closed.
  virtual void EscapePressed() = 0;
};

/// An open dialog: its controls, by identifier. Operations on a control that the dialog does not
/// have, or that is of another kind, do nothing and return nothing ("", 0, false, -1).
class DialogWindow {
 public:
  virtual ~DialogWindow() = default;

  /// Shows the dialog until `End`. @return the result given to `End`
  virtual int Run() = 0;
  virtual void End(int result) = 0;
  /// Puts a text in the title bar, in place of the template's.
  virtual void SetCaption(const CString& caption) = 0;

  // --- any control ---
  virtual bool HasControl(int id) const = 0;
  virtual void SetText(int id, const CString& text) = 0;
  /// Of a drop-down list: of the selected entry.
  virtual CString Text(int id) const = 0;
  virtual void Enable(int id, bool enable) = 0;
  virtual bool IsEnabled(int id) const = 0;
  virtual void Show(int id, bool show) = 0;
  virtual bool IsShown(int id) const = 0;

  // --- check boxes and radio buttons ---
  /// Checking a radio button leaves the others of its group as they are.
  virtual void SetCheck(int id, bool check) = 0;
  virtual bool IsChecked(int id) const = 0;

  // --- drop-down lists; entries count from 0 ---
  virtual void ClearChoices(int id) = 0;
  /// Appends an entry. @return its index
  virtual int AddChoice(int id, const CString& text) = 0;
  virtual int ChoiceCount(int id) const = 0;
  virtual CString ChoiceText(int id, int index) const = 0;
  /// -1 selects none.
  virtual void SelectChoice(int id, int index) = 0;
  /// -1 when none is selected.
  virtual int SelectedChoice(int id) const = 0;

  // --- lists in columns; rows and columns count from 0 ---
  /// Appends a column; `width` in pixels at 100 %.
  virtual void AddColumn(int id, const CString& header, int width, bool centred) = 0;
  virtual int ColumnCount(int id) const = 0;
  virtual CString ColumnHeader(int id, int column) const = 0;
  virtual int ColumnWidth(int id, int column) const = 0;
  /// @return the new row's index
  virtual int InsertRow(int id, int row) = 0;
  virtual int RowCount(int id) const = 0;
  virtual void SetCell(int id, int row, int column, const CString& text) = 0;
  virtual CString Cell(int id, int row, int column) const = 0;
  /// -1 selects none. Selecting another row raises `RowSelected`.
  virtual void SelectRow(int id, int row) = 0;
  /// -1 when none is selected.
  virtual int SelectedRow(int id) const = 0;
  /// Whether a selected row is marked from end to end.
  virtual void SetFullRowSelect(int id, bool on) = 0;
  virtual bool IsFullRowSelect(int id) const = 0;
};

/// Opens dialogs.
class Toolkit {
 public:
  virtual ~Toolkit() = default;
  /// A dialog of `dialog`'s controls, not yet shown. Both arguments outlive it.
  /// @return null when no dialog can be opened
  virtual std::unique_ptr<DialogWindow> Open(const DIALOG_TEMPLATE& dialog,
                                             DialogEvents& events) = 0;
};

}  // namespace host
