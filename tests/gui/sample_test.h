#pragma once

#include <gmock/gmock.h>

#include "aluframe/toolkit/qt/qt_dialog.h"
#include "tests/gui/dialog_user.h"
#include "tests/gui/sample_dialog.h"

namespace gui_test {

/// The sample dialog, its events in `log`, and a user who works it.
class SampleDialog : public testing::Test {
 protected:
  SampleDialog() : dialog(sample_dialog(), log, nullptr) {}

  /// Shows the dialog for a script; OK, Enter and Escape do not close it.
  int run(const std::function<void(DialogUser&)>& script) {
    return with_user([this] { return dialog.Run(); },
                     [this, &script](DialogUser& user) {
                       script(user);
                       dialog.End(closed_by_test);
                     });
  }
  /// Gives the list three columns and three rows.
  void fill_list() {
    for (const wchar_t* header : {L"ID", L"Name", L"Es"}) {
      dialog.AddColumn(material_list, header, 60, true);
    }
    for (int row = 0; row < 3; ++row) {
      dialog.InsertRow(material_list, row);
      dialog.SetCell(material_list, row, 0, std::to_wstring(row + 1));
    }
  }
  void fill_choices() {
    for (const wchar_t* text : {L"first", L"second", L"third"}) dialog.AddChoice(code_list, text);
  }

  static constexpr int closed_by_test = 77;
  EventLog log;
  aluframe::toolkit::QtDialog dialog;
};

}  // namespace gui_test
