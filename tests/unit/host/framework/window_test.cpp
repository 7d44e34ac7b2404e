// Windows and buttons that stand for a control of an open dialog.

#include "host/framework/window.h"

#include "host/tz_db/text_unit.h"
#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;

class WindowTest : public dialog_test::SampleTest {
 protected:
  SampleDialog dialog_;
};

TEST_F(WindowTest, AControlKnowsItsIdentifier) {
  Run(dialog_, [this](DialogUser&) { EXPECT_EQ(dialog_.name.GetDlgCtrlID(), name_edit); });
}

TEST_F(WindowTest, TextGoesToTheControl) {
  Run(dialog_, [this](DialogUser& user) {
    dialog_.name.SetWindowText(L"Purlin");
    EXPECT_TRUE(user.Text(name_edit) == L"Purlin");
    EXPECT_TRUE(user.Text(name_label) == L"Name");
  });
}

TEST_F(WindowTest, TextComesFromTheControlInBothWays) {
  Run(dialog_, [this](DialogUser& user) {
    user.type(name_edit, L"Column");
    EXPECT_TRUE(dialog_.name.GetWindowText() == L"Column");
    CString text;
    dialog_.name.GetWindowText(text);
    EXPECT_TRUE(text == L"Column");
  });
}

TEST_F(WindowTest, EnablingTellsWhetherItWasDisabled) {
  Run(dialog_, [this](DialogUser& user) {
    EXPECT_EQ(dialog_.name.EnableWindow(FALSE), FALSE);
    EXPECT_FALSE(user.IsEnabled(name_edit));
    EXPECT_EQ(dialog_.name.IsWindowEnabled(), FALSE);
    EXPECT_EQ(dialog_.name.EnableWindow(), TRUE);
    EXPECT_TRUE(user.IsEnabled(name_edit));
    EXPECT_EQ(dialog_.name.IsWindowEnabled(), TRUE);
  });
}

TEST_F(WindowTest, ShowingTellsWhetherItWasShown) {
  Run(dialog_, [this](DialogUser& user) {
    EXPECT_EQ(dialog_.name.ShowWindow(SW_HIDE), TRUE);
    EXPECT_FALSE(user.IsShown(name_edit));
    EXPECT_EQ(dialog_.name.IsWindowVisible(), FALSE);
    EXPECT_EQ(dialog_.name.ShowWindow(SW_SHOW), FALSE);
    EXPECT_TRUE(user.IsShown(name_edit));
    EXPECT_EQ(dialog_.name.IsWindowVisible(), TRUE);
  });
}

TEST_F(WindowTest, AHiddenControlStaysEnabled) {
  Run(dialog_, [this](DialogUser&) {
    dialog_.name.ShowWindow(SW_HIDE);
    EXPECT_EQ(dialog_.name.IsWindowEnabled(), TRUE);
  });
}

TEST_F(WindowTest, AButtonsCheckIsTheControls) {
  Run(dialog_, [this](DialogUser& user) {
    EXPECT_EQ(dialog_.rib.GetCheck(), BST_UNCHECKED);
    dialog_.rib.SetCheck(BST_CHECKED);
    EXPECT_TRUE(user.IsChecked(rib_check));
    EXPECT_EQ(dialog_.rib.GetCheck(), BST_CHECKED);
    user.click(rib_check);
    EXPECT_EQ(dialog_.rib.GetCheck(), BST_UNCHECKED);
    dialog_.rib.SetCheck(BST_CHECKED);
    dialog_.rib.SetCheck(BST_UNCHECKED);
    EXPECT_FALSE(user.IsChecked(rib_check));
  });
}

TEST_F(WindowTest, AnObjectCanBeDetached) {
  Run(dialog_, [this](DialogUser& user) {
    dialog_.name.Attach(nullptr, 0);
    dialog_.name.SetWindowText(L"lost");
    EXPECT_TRUE(user.Text(name_edit) == L"Rafter");
    EXPECT_EQ(dialog_.name.GetDlgCtrlID(), 0);
  });
}

TEST_F(WindowTest, AnObjectForAMissingControlGivesNothing) {
  Run(dialog_, [](DialogUser& user) {
    CEdit edit;
    edit.Attach(&user, unknown_id);
    edit.SetWindowText(L"text");
    EXPECT_TRUE(edit.GetWindowText().IsEmpty());
    EXPECT_EQ(edit.IsWindowEnabled(), FALSE);
    EXPECT_EQ(edit.IsWindowVisible(), FALSE);
  });
}

TEST_F(WindowTest, AUnitLabelShowsTheHostsTextOfItsType) {
  Run(dialog_, [](DialogUser& user) {
    CTextUnit unit;
    unit.Attach(&user, name_label);
    unit.SetUnitType(UNIT_TYPE_STRESS);
    EXPECT_TRUE(user.Text(name_label) == L"unit 17");
  });
}

}  // namespace
