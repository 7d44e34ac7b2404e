#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/framework/toolkit.h"

namespace aluframe::toolkit {

/// A dialog in memory. It answers the framework as a window does, and lets a script do what a user
/// can do: nothing happens on a control that is hidden, disabled or missing, and the script is told
/// so by an exception.
class HeadlessDialog : public host::DialogWindow {
 public:
  HeadlessDialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events);

  // --- what the user sees and does ---

  const DIALOG_TEMPLATE& dialog() const { return template_; }
  const CString& caption() const { return caption_; }
  /// True until the dialog has ended.
  bool is_open() const { return !result_; }
  /// What it ended with, or nothing.
  std::optional<int> result() const { return result_; }

  /// Clicks a button; a check box changes its check, a radio button takes it from its group.
  /// This and the other actions throw std::logic_error when a user could not do it.
  void click(int id);
  /// Types into an edit, in place of what it holds.
  void type(int id, const std::wstring& text);
  /// Chooses an entry of a drop-down list, by its text or its index.
  void choose(int id, const std::wstring& text);
  void choose(int id, int index);
  /// Clicks a row of a list, which selects it; -1 clicks beside the rows.
  void click_row(int id, int row);
  void press_enter() { events_.EnterPressed(); }
  void press_escape() { events_.EscapePressed(); }
  /// Every entry of a drop-down list.
  std::vector<std::wstring> choices(int id) const;

  // --- what the framework asks for ---

  int Run() override { return result_.value_or(0); }
  void End(int result) override { result_ = result; }
  void SetCaption(const CString& caption) override { caption_ = caption; }
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
  /// Whether a column's texts stand in its middle.
  bool is_centred(int id, int column) const;
  int InsertRow(int id, int row) override;
  int RowCount(int id) const override;
  void SetCell(int id, int row, int column, const CString& text) override;
  CString Cell(int id, int row, int column) const override;
  void SelectRow(int id, int row) override;
  int SelectedRow(int id) const override;
  void SetFullRowSelect(int id, bool on) override;
  bool IsFullRowSelect(int id) const override;

 private:
  struct Column {
    CString header;
    int width = 0;
    bool centred = false;
  };
  struct Control {
    const CONTROL_TEMPLATE* origin = nullptr;
    int group = 0;  ///< number of the group that it belongs to
    CString text;
    bool enabled = true;
    bool shown = true;
    bool checked = false;
    bool full_row = false;
    std::vector<CString> choices;
    int selected = -1;  ///< entry or row
    std::vector<Column> columns;
    std::vector<std::vector<CString>> rows;
  };

  const Control* find(int id) const;
  Control* find(int id);
  /// The control when it is of this kind, else null.
  const Control* find(int id, CONTROL_KIND kind) const;
  Control* find(int id, CONTROL_KIND kind);
  /// The control when a user could work it now. @throws std::logic_error otherwise
  Control& usable(int id);
  void check_alone(Control& radio_button);

  const DIALOG_TEMPLATE& template_;
  host::DialogEvents& events_;
  std::map<int, Control> controls_;
  CString caption_;
  std::optional<int> result_;
};

}  // namespace aluframe::toolkit
