// Controls of an open dialog, by their identifiers.

#include "host/tz_common/dlg_util_ex.h"
#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;

class DialogControlsTest : public dialog_test::SampleTest {
 protected:
  SampleDialog dialog_;
};

TEST_F(DialogControlsTest, AControlIsHandedOutByItsIdentifier) {
  Run(dialog_, [this](DialogUser& user) {
    CWnd* const edit = dialog_.GetDlgItem(name_edit);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->GetDlgCtrlID(), name_edit);
    edit->SetWindowText(L"Purlin");
    EXPECT_TRUE(user.Text(name_edit) == L"Purlin");
  });
}

TEST_F(DialogControlsTest, AControlIsTheSameObjectEachTime) {
  Run(dialog_, [this](DialogUser&) {
    EXPECT_EQ(dialog_.GetDlgItem(name_edit), dialog_.GetDlgItem(name_edit));
    EXPECT_NE(dialog_.GetDlgItem(name_edit), dialog_.GetDlgItem(name_label));
  });
}

TEST_F(DialogControlsTest, AControlThatIsMissingIsNull) {
  Run(dialog_, [this](DialogUser&) {
    EXPECT_EQ(dialog_.GetDlgItem(unknown_id), nullptr);
    EXPECT_EQ(dialog_.GetDlgItem(kNoControlId), nullptr);
  });
}

TEST_F(DialogControlsTest, TextsAreReadAndWritten) {
  Run(dialog_, [this](DialogUser& user) {
    EXPECT_TRUE(dialog_.GetDlgItemText(name_edit) == L"Rafter");
    dialog_.SetDlgItemText(name_label, L"Grade");
    EXPECT_TRUE(user.Text(name_label) == L"Grade");
  });
}

TEST_F(DialogControlsTest, ChecksAreReadAndWritten) {
  Run(dialog_, [this](DialogUser& user) {
    EXPECT_EQ(dialog_.IsDlgButtonChecked(rib_check), static_cast<UINT>(BST_UNCHECKED));
    dialog_.CheckDlgButton(rib_check, BST_CHECKED);
    EXPECT_TRUE(user.IsChecked(rib_check));
    EXPECT_EQ(dialog_.IsDlgButtonChecked(rib_check), static_cast<UINT>(BST_CHECKED));
    dialog_.CheckDlgButton(rib_check, BST_UNCHECKED);
    EXPECT_FALSE(user.IsChecked(rib_check));
  });
}

TEST_F(DialogControlsTest, CheckingARadioButtonLeavesItsGroup) {
  Run(dialog_, [this](DialogUser& user) {
    dialog_.CheckDlgButton(class_one, BST_CHECKED);
    dialog_.CheckDlgButton(class_two, BST_CHECKED);
    EXPECT_TRUE(user.IsChecked(class_one));
    EXPECT_TRUE(user.IsChecked(class_two));
  });
}

TEST_F(DialogControlsTest, TheUtilityChecksAndReadsChecks) {
  Run(dialog_, [this](DialogUser& user) {
    CDlgUtilEx::CtrlCheck(&dialog_, rib_check, 5);
    EXPECT_TRUE(user.IsChecked(rib_check));
    EXPECT_EQ(CDlgUtilEx::CtrlIsCheck(&dialog_, rib_check), TRUE);
    CDlgUtilEx::CtrlCheck(&dialog_, rib_check, FALSE);
    EXPECT_FALSE(user.IsChecked(rib_check));
    EXPECT_EQ(CDlgUtilEx::CtrlIsCheck(&dialog_, rib_check), FALSE);
  });
}

TEST_F(DialogControlsTest, WhatTheDialogLacksGivesNothing) {
  Run(dialog_, [this](DialogUser&) {
    dialog_.SetDlgItemText(unknown_id, L"text");
    dialog_.CheckDlgButton(unknown_id, BST_CHECKED);
    EXPECT_TRUE(dialog_.GetDlgItemText(unknown_id).IsEmpty());
    EXPECT_EQ(dialog_.IsDlgButtonChecked(unknown_id), static_cast<UINT>(BST_UNCHECKED));
    EXPECT_EQ(CDlgUtilEx::GetWindowVal(&dialog_, unknown_id), 0.0);
  });
}

TEST_F(DialogControlsTest, MembersAreDetachedWhenTheDialogHasClosed) {
  CWnd* edit = nullptr;
  Run(dialog_, [&](DialogUser&) {
    edit = &dialog_.name;
    EXPECT_EQ(dialog_.code.AddString(L"GB"), 0);
  });
  EXPECT_EQ(edit->GetDlgCtrlID(), 0);
  EXPECT_TRUE(dialog_.name.GetWindowText().IsEmpty());
  EXPECT_EQ(dialog_.code.GetCount(), 0);
  EXPECT_EQ(dialog_.materials.GetItemCount(), 0);
  EXPECT_EQ(dialog_.rib.GetCheck(), BST_UNCHECKED);
}

// Another dialog stands in between, where the first opening had its window.
TEST_F(DialogControlsTest, EachOpeningHandsOutItsOwnControls) {
  Run(dialog_, [this](DialogUser&) { ASSERT_NE(dialog_.GetDlgItem(name_edit), nullptr); });
  SampleDialog other;
  Run(other, [this](DialogUser&) {
    Run(dialog_, [this](DialogUser& user) {
      dialog_.GetDlgItem(name_edit)->SetWindowText(L"second");
      EXPECT_TRUE(user.Text(name_edit) == L"second");
    });
  });
}

TEST_F(DialogControlsTest, AClosedDialogHandsOutNoControl) {
  Run(dialog_, [this](DialogUser&) { ASSERT_NE(dialog_.GetDlgItem(name_edit), nullptr); });
  EXPECT_EQ(dialog_.GetDlgItem(name_edit), nullptr);
  EXPECT_TRUE(dialog_.GetDlgItemText(name_edit).IsEmpty());
}

}  // namespace
