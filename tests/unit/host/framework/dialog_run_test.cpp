// How dialogs open, exchange data and close.

#include <gmock/gmock.h>

#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;
using testing::ElementsAre;

class DialogRunTest : public dialog_test::SampleTest {
 protected:
  SampleDialog dialog_;
};

TEST_F(DialogRunTest, OkClosesWithOne) {
  EXPECT_EQ(Run(dialog_, [](DialogUser& user) { user.click(ok_button); }), 1);
}

TEST_F(DialogRunTest, CancelClosesWithTwo) {
  EXPECT_EQ(Run(dialog_, [](DialogUser& user) { user.click(cancel_button); }), 2);
}

TEST_F(DialogRunTest, EnterIsOk) {
  EXPECT_EQ(Run(dialog_, [](DialogUser& user) { user.press_enter(); }), CDialog::kOk);
}

TEST_F(DialogRunTest, EscapeIsCancel) {
  EXPECT_EQ(Run(dialog_, [](DialogUser& user) { user.press_escape(); }), CDialog::kCancel);
}

TEST_F(DialogRunTest, AButtonWithoutHandlerDoesNothing) {
  Run(dialog_, [](DialogUser& user) {
    user.click(apply_button);
    EXPECT_TRUE(user.is_open());
  });
}

TEST_F(DialogRunTest, ADialogEndsWithWhatItIsGiven) {
  const auto end = [this](DialogUser& user) {
    dialog_.EndDialog(77);
    EXPECT_FALSE(user.is_open());
  };
  EXPECT_EQ(Run(dialog_, end), 77);
}

TEST_F(DialogRunTest, ADialogThatEndsWhileItStartsIsNotRun) {
  dialog_.whenStarting = [this] { dialog_.EndDialog(55); };
  EXPECT_EQ(dialog_.DoModal(), 55);
}

TEST_F(DialogRunTest, MembersGoToTheControlsWhenItOpensAndComeBackWithOk) {
  Run(dialog_, [this](DialogUser& user) {
    EXPECT_THAT(dialog_.exchanges, ElementsAre(FALSE));
    user.click(ok_button);
  });
  EXPECT_THAT(dialog_.exchanges, ElementsAre(FALSE, TRUE));
}

TEST_F(DialogRunTest, CancelExchangesNothing) {
  Run(dialog_, [](DialogUser& user) { user.click(cancel_button); });
  EXPECT_THAT(dialog_.exchanges, ElementsAre(FALSE));
}

TEST_F(DialogRunTest, DataIsExchangedOnRequest) {
  Run(dialog_, [this](DialogUser&) {
    EXPECT_EQ(dialog_.UpdateData(), TRUE);
    EXPECT_EQ(dialog_.UpdateData(FALSE), TRUE);
    EXPECT_THAT(dialog_.exchanges, ElementsAre(FALSE, TRUE, FALSE));
  });
}

TEST_F(DialogRunTest, AnExchangeLeavesTheControls) {
  Run(dialog_, [this](DialogUser& user) {
    user.type(name_edit, L"typed");
    dialog_.UpdateData(TRUE);
    dialog_.UpdateData(FALSE);
    EXPECT_TRUE(dialog_.name.GetWindowText() == L"typed");
  });
}

TEST_F(DialogRunTest, ADialogOpensAsOftenAsOneLikesAndAnewEachTime) {
  for (int i = 0; i < 3; ++i) {
    const int result = Run(dialog_, [this](DialogUser& user) {
      EXPECT_TRUE(dialog_.name.GetWindowText() == L"Rafter");
      EXPECT_EQ(dialog_.code.GetCount(), 0);
      dialog_.code.AddString(L"GB");
      user.type(name_edit, L"changed");
      user.click(ok_button);
    });
    EXPECT_EQ(result, CDialog::kOk);
  }
}

TEST_F(DialogRunTest, ADialogOpensOverAnother) {
  SampleDialog inner(&dialog_);
  int innerResult = 0;
  const int result = Run(dialog_, [&](DialogUser& user) {
    innerResult = Run(inner, [&](DialogUser& innerUser) {
      inner.name.SetWindowText(L"inner");
      EXPECT_TRUE(innerUser.Text(name_edit) == L"inner");
      innerUser.click(ok_button);
    });
    EXPECT_TRUE(user.is_open());
    EXPECT_EQ(inner.name.GetDlgCtrlID(), 0);
    EXPECT_TRUE(dialog_.name.GetWindowText() == L"Rafter");
    user.click(cancel_button);
  });
  EXPECT_EQ(innerResult, CDialog::kOk);
  EXPECT_EQ(result, CDialog::kCancel);
}

TEST_F(DialogRunTest, ADialogDoesNotOpenOverItself) {
  const int result = Run(dialog_, [this](DialogUser& user) {
    EXPECT_EQ(dialog_.DoModal(), CDialog::kFailed);
    EXPECT_TRUE(dialog_.name.GetWindowText() == L"Rafter");
    user.click(ok_button);
  });
  EXPECT_EQ(result, CDialog::kOk);
}

TEST_F(DialogRunTest, ATemplateThatNoModuleCarriesDoesNotOpen) {
  SampleDialog unknown(nullptr, unknown_dialog_id);
  EXPECT_EQ(unknown.DoModal(), -1);
  EXPECT_TRUE(unknown.exchanges.empty());
}

TEST_F(DialogRunTest, WithoutAToolkitNoDialogOpens) {
  host_.toolkit = nullptr;
  EXPECT_EQ(dialog_.DoModal(), -1);
  EXPECT_TRUE(dialog_.exchanges.empty());
}

/// A toolkit without a display.
class NoDisplay : public host::Toolkit {
 public:
  std::unique_ptr<host::DialogWindow> Open(const DIALOG_TEMPLATE&, host::DialogEvents&) override {
    return nullptr;
  }
};

TEST_F(DialogRunTest, AToolkitThatCannotOpenOneFails) {
  NoDisplay toolkit;
  host_.toolkit = &toolkit;
  EXPECT_EQ(dialog_.DoModal(), -1);
  EXPECT_TRUE(dialog_.exchanges.empty());
}

}  // namespace
