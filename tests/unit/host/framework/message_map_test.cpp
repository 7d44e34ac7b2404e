// Which handler runs for what the user does.

#include "host/framework/message_map.h"

#include <gmock/gmock.h>

#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;
using testing::ElementsAre;
using testing::IsEmpty;

/// Handles the check box, the drop-down list and the list.
class BaseDialog : public SampleDialog {
 public:
  std::vector<std::string> notes;
  NMHDR lastHead{};
  int lastRow = -2;

 protected:
  void OnRib() { notes.emplace_back("base rib"); }
  void OnCode() { notes.emplace_back("base code"); }
  void OnRow(NMHDR* notification, LRESULT* result) { Note("base row", notification, result); }
  void OnRowClick(NMHDR* notification, LRESULT* result) {
    Note("base row click", notification, result);
  }
  void Note(const char* what, NMHDR* notification, LRESULT* result) {
    notes.emplace_back(what);
    lastHead = *notification;
    lastRow = reinterpret_cast<const NMLISTVIEW*>(notification)->iItem;
    *result = 1;
  }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BaseDialog, CDialog)
ON_BN_CLICKED(rib_check, &BaseDialog::OnRib)
ON_CBN_SELCHANGE(code_list, &BaseDialog::OnCode)
ON_NOTIFY(LVN_ITEMCHANGED, material_list, &BaseDialog::OnRow)
ON_NOTIFY(NM_CLICK, material_list, &BaseDialog::OnRowClick)
END_MESSAGE_MAP()

/// Handles the check box itself, twice, and leaves the rest to its base. A handler stands under the
/// number of the drop-down list for a click, which it never sends.
class DerivedDialog : public BaseDialog {
 public:
  static const AFX_MSGMAP& Map() { return *GetThisMessageMap(); }
  static const AFX_MSGMAP* BaseMap() { return BaseDialog::GetThisMessageMap(); }

 protected:
  void OnOwnRib() { notes.emplace_back("own rib"); }
  void OnSecond() { notes.emplace_back("second rib"); }
  void OnWrongCode() { notes.emplace_back("wrong code"); }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedDialog, BaseDialog)
ON_BN_CLICKED(code_list, &DerivedDialog::OnWrongCode)
ON_BN_CLICKED(rib_check, &DerivedDialog::OnOwnRib)
ON_BN_CLICKED(rib_check, &DerivedDialog::OnSecond)
END_MESSAGE_MAP()

/// Handles OK and Cancel by message map.
class ClosingDialog : public SampleDialog {
 public:
  std::vector<std::string> notes;

 protected:
  void OnOkClicked() { notes.emplace_back("ok"); }
  void OnCancelClicked() { notes.emplace_back("cancel"); }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ClosingDialog, CDialog)
ON_BN_CLICKED(ok_button, &ClosingDialog::OnOkClicked)
ON_BN_CLICKED(cancel_button, &ClosingDialog::OnCancelClicked)
END_MESSAGE_MAP()

class MessageMapTest : public dialog_test::SampleTest {
 protected:
  /// Opens a dialog whose lists have two entries and two rows.
  template <class DIALOG>
  void Open(DIALOG& dialog, std::function<void(DialogUser&)> script) {
    Run(dialog, [&](DialogUser& user) {
      dialog.materials.InsertColumn(0, L"ID");
      for (const wchar_t* text : {L"a", L"b"}) {
        dialog.code.AddString(text);
        dialog.materials.InsertItem(dialog.materials.GetItemCount(), text);
      }
      script(user);
    });
  }

  BaseDialog base_;
  DerivedDialog derived_;
};

TEST_F(MessageMapTest, AClickRunsItsHandler) {
  Open(base_, [](DialogUser& user) { user.click(rib_check); });
  EXPECT_THAT(base_.notes, ElementsAre("base rib"));
}

TEST_F(MessageMapTest, AChoiceRunsItsHandler) {
  Open(base_, [](DialogUser& user) { user.choose(code_list, 1); });
  EXPECT_THAT(base_.notes, ElementsAre("base code"));
}

TEST_F(MessageMapTest, ASelectionIsNotifiedWithItsRow) {
  Open(base_, [](DialogUser& user) { user.SelectRow(material_list, 1); });
  EXPECT_THAT(base_.notes, ElementsAre("base row"));
  EXPECT_EQ(base_.lastRow, 1);
  EXPECT_EQ(base_.lastHead.idFrom, static_cast<UINT>(material_list));
  EXPECT_EQ(base_.lastHead.code, LVN_ITEMCHANGED);
}

TEST_F(MessageMapTest, AClickOnARowSelectsItFirst) {
  Open(base_, [](DialogUser& user) { user.click_row(material_list, 1); });
  EXPECT_THAT(base_.notes, ElementsAre("base row", "base row click"));
  EXPECT_EQ(base_.lastRow, 1);
  EXPECT_EQ(base_.lastHead.code, NM_CLICK);
}

TEST_F(MessageMapTest, AClickBesideTheRowsHasNoRow) {
  Open(base_, [](DialogUser& user) { user.click_row(material_list, -1); });
  EXPECT_THAT(base_.notes, ElementsAre("base row click"));
  EXPECT_EQ(base_.lastRow, -1);
}

TEST_F(MessageMapTest, TheClassComesBeforeItsBaseAndTheFirstEntryBeforeTheSecond) {
  Open(derived_, [](DialogUser& user) { user.click(rib_check); });
  EXPECT_THAT(derived_.notes, ElementsAre("own rib"));
}

TEST_F(MessageMapTest, WhatTheClassLacksTheBaseHandles) {
  Open(derived_, [](DialogUser& user) {
    user.choose(code_list, 0);
    user.SelectRow(material_list, 0);
  });
  EXPECT_THAT(derived_.notes, ElementsAre("base code", "base row"));
}

TEST_F(MessageMapTest, WhatNobodyHandlesDoesNothing) {
  Open(derived_, [](DialogUser& user) {
    user.click(apply_button);
    user.click(class_one);
    EXPECT_TRUE(user.is_open());
  });
  EXPECT_THAT(derived_.notes, IsEmpty());
}

TEST_F(MessageMapTest, AProgramsOwnChangesRunNoHandler) {
  Open(base_, [this](DialogUser&) {
    base_.rib.SetCheck(BST_CHECKED);
    base_.code.SetCurSel(1);
    base_.SetDlgItemText(name_edit, L"text");
  });
  EXPECT_THAT(base_.notes, IsEmpty());
}

TEST_F(MessageMapTest, HandlersOfOkAndCancelTakeThePlaceOfClosing) {
  ClosingDialog dialog;
  Run(dialog, [](DialogUser& user) {
    user.click(ok_button);
    user.press_enter();
    user.click(cancel_button);
    user.press_escape();
    EXPECT_TRUE(user.is_open());
  });
  // The toolkit presses Escape once more, because the script left the dialog open.
  EXPECT_THAT(dialog.notes, ElementsAre("ok", "ok", "cancel", "cancel", "cancel"));
}

TEST_F(MessageMapTest, AMapIsItsEntriesInOrderBehindThoseOfTheBase) {
  const AFX_MSGMAP& map = DerivedDialog::Map();
  EXPECT_EQ(map.pBaseMap, DerivedDialog::BaseMap());
  EXPECT_EQ(map.lpEntries[0].nID, static_cast<UINT>(code_list));
  EXPECT_EQ(map.lpEntries[1].nID, static_cast<UINT>(rib_check));
  EXPECT_EQ(map.lpEntries[1].nMessage, WM_COMMAND);
  EXPECT_EQ(map.lpEntries[1].nCode, BN_CLICKED);
  EXPECT_EQ(map.lpEntries[3].nMessage, 0U);
}

TEST_F(MessageMapTest, AMapTellsCommandsFromNotifications) {
  const AFX_MSGMAP_ENTRY* entries = DerivedDialog::BaseMap()->lpEntries;
  EXPECT_EQ(entries[1].nCode, CBN_SELCHANGE);
  EXPECT_NE(entries[1].pCommand, nullptr);
  EXPECT_EQ(entries[1].pNotify, nullptr);
  EXPECT_EQ(entries[2].nMessage, WM_NOTIFY);
  EXPECT_EQ(entries[2].pCommand, nullptr);
  EXPECT_NE(entries[2].pNotify, nullptr);
}

}  // namespace
