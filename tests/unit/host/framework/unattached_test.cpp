// Windows and controls that stand for nothing: they do nothing and give nothing.

#include <gtest/gtest.h>

#include "host/framework/dialog.h"
#include "host/framework/list_control.h"

namespace {

TEST(UnattachedTest, AWindowHasNoText) {
  CWnd window;
  window.SetWindowText(L"text");
  CString text = L"before";
  window.GetWindowText(text);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_TRUE(window.GetWindowText().IsEmpty());
}

TEST(UnattachedTest, AWindowIsNoControl) {
  EXPECT_EQ(CWnd().GetDlgCtrlID(), 0);
}

TEST(UnattachedTest, AWindowIsNeitherEnabledNorShown) {
  CWnd window;
  EXPECT_EQ(window.EnableWindow(TRUE), FALSE);
  EXPECT_EQ(window.IsWindowEnabled(), FALSE);
  EXPECT_EQ(window.ShowWindow(SW_SHOW), FALSE);
  EXPECT_EQ(window.IsWindowVisible(), FALSE);
}

TEST(UnattachedTest, AButtonIsNotChecked) {
  CButton button;
  button.SetCheck(BST_CHECKED);
  EXPECT_EQ(button.GetCheck(), BST_UNCHECKED);
}

TEST(UnattachedTest, ADropDownListHasNoEntries) {
  CComboBox combo;
  combo.ResetContent();
  EXPECT_EQ(combo.AddString(L"entry"), CB_ERR);
  EXPECT_EQ(combo.GetCount(), 0);
  CString text = L"before";
  combo.GetLBText(0, text);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(UnattachedTest, ADropDownListSelectsNothing) {
  CComboBox combo;
  EXPECT_EQ(combo.FindStringExact(-1, L""), CB_ERR);
  EXPECT_EQ(combo.SetCurSel(0), CB_ERR);
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
}

TEST(UnattachedTest, AListHasNoCells) {
  CListCtrl list;
  EXPECT_EQ(list.InsertColumn(0, L"ID"), -1);
  EXPECT_EQ(list.InsertItem(0, L"row"), -1);
  EXPECT_EQ(list.SetItemText(0, 0, L"cell"), FALSE);
  EXPECT_TRUE(list.GetItemText(0, 0).IsEmpty());
  EXPECT_EQ(list.GetItemCount(), 0);
}

TEST(UnattachedTest, AListHasNeitherSelectionNorStyle) {
  CListCtrl list;
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), -1);
  EXPECT_EQ(list.SetExtendedStyle(LVS_EX_FULLROWSELECT), 0U);
  EXPECT_EQ(list.GetExtendedStyle(), 0U);
}

TEST(UnattachedTest, ADialogThatIsNotOpenHasNoControls) {
  CDialog dialog(1);
  EXPECT_EQ(dialog.GetDlgItem(CDialog::kOk), nullptr);
  dialog.SetDlgItemText(CDialog::kOk, L"text");
  EXPECT_TRUE(dialog.GetDlgItemText(CDialog::kOk).IsEmpty());
  dialog.CheckDlgButton(CDialog::kOk, BST_CHECKED);
  EXPECT_EQ(dialog.IsDlgButtonChecked(CDialog::kOk), static_cast<UINT>(BST_UNCHECKED));
}

TEST(UnattachedTest, ADialogThatIsNotOpenCannotEnd) {
  CDialog dialog(1);
  dialog.EndDialog(CDialog::kOk);
  EXPECT_TRUE(dialog.GetWindowText().IsEmpty());
}

TEST(UnattachedTest, ADialogKnowsItsParentBeforeItOpens) {
  CWnd parent;
  EXPECT_EQ(CDialog(1, &parent).GetParent(), &parent);
  EXPECT_EQ(CDialog(1).GetParent(), nullptr);
}

TEST(UnattachedTest, BindingAControlOfAClosedDialogAttachesNothing) {
  CDialog dialog(1);
  CDataExchange exchange{&dialog, FALSE};
  CEdit edit;
  DDX_Control(&exchange, 5, edit);
  EXPECT_EQ(edit.GetDlgCtrlID(), 0);
}

}  // namespace
