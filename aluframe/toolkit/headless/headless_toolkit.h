#pragma once

#include <deque>
#include <functional>

#include "aluframe/toolkit/headless/headless_dialog.h"

namespace aluframe::toolkit {

/// Dialogs without a display, worked by scripts. Each dialog that is run takes the next script;
/// when the script returns and has not closed the dialog, Escape is pressed for it.
///
///     HeadlessToolkit toolkit;
///     toolkit.script([](HeadlessDialog& dialog) {
///       dialog.type(IDC_EDIT, L"0.75");
///       dialog.click(IDOK);
///     });
///     CMyDlg().DoModal();
class HeadlessToolkit : public host::Toolkit {
 public:
  using Script = std::function<void(HeadlessDialog&)>;

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

}  // namespace aluframe::toolkit
