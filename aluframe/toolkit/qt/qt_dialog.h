#pragma once

#include <exception>
#include <optional>
#include <unordered_map>
#include <vector>

#include "aluframe/toolkit/qt/accessible_names.h"
#include "aluframe/toolkit/qt/dialog_frame.h"
#include "aluframe/toolkit/qt/dialog_layout.h"
#include "aluframe/toolkit/qt/keyboard.h"
#include "aluframe/toolkit/qt/template_control.h"
#include "host/framework/toolkit.h"

class QAbstractButton;
class QComboBox;

namespace aluframe::toolkit {

class ReportList;

/// A dialog of real widgets. Every control is a widget whose object name is the control's
/// identifier.
///
/// What a handler throws does not pass through the event loop: the dialog closes, and `Run` throws
/// it on.
class QtDialog : public host::DialogWindow {
 public:
  /// @param parent window that the dialog belongs to; may be null
  QtDialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events, QWidget* parent);

  /// The window, for what goes beyond the framework.
  DialogFrame& window() { return window_; }

  int Run() override;
  void End(int result) override;
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

 private:
  const TemplateControl* find(int id) const;
  QComboBox* find_choices(int id) const;
  ReportList* find_list(int id) const;
  /// A check box or a radio button.
  QAbstractButton* find_check(int id) const;

  void connect(const TemplateControl& control);
  void connect_list(int id, ReportList& list);
  /// Tells the framework what the user does, unless the dialog has closed.
  template <class Event>
  void raise(const Event& event) noexcept;

  host::DialogEvents& events_;
  DialogFrame window_;
  const std::vector<TemplateControl> controls_;
  std::unordered_map<int, const TemplateControl*> by_id_;
  DialogLayout layout_;
  Keyboard keyboard_;
  AccessibleNames names_;
  std::optional<int> result_;
  std::exception_ptr failure_;
};

}  // namespace aluframe::toolkit
