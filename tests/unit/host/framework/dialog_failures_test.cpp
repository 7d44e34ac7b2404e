// Exceptions do not leave a dialog: they are told to the user.

#include <gmock/gmock.h>

#include <stdexcept>

#include "host/framework/messagebox.h"

#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;
using testing::IsEmpty;
using testing::SizeIs;

/// Every handler throws what the dialog is told to.
class FailingDialog : public SampleDialog {
 public:
  std::string failure = "the handler failed";
  bool failsToExchange = false;

 protected:
  void DoDataExchange(CDataExchange* exchange) override {
    SampleDialog::DoDataExchange(exchange);
    if (failsToExchange) Fail();
  }
  void OnOK() override { Fail(); }
  void OnCancel() override {
    if (m_bMayClose) return SampleDialog::OnCancel();
    m_bMayClose = true;
    Fail();
  }
  void Fail() { throw std::runtime_error(failure); }
  void FailNotify(NMHDR*, LRESULT*) { Fail(); }

  DECLARE_MESSAGE_MAP()

 private:
  bool m_bMayClose = false;
};

BEGIN_MESSAGE_MAP(FailingDialog, CDialog)
ON_BN_CLICKED(apply_button, &FailingDialog::Fail)
ON_CBN_SELCHANGE(code_list, &FailingDialog::Fail)
ON_NOTIFY(LVN_ITEMCHANGED, material_list, &FailingDialog::FailNotify)
ON_NOTIFY(NM_CLICK, material_list, &FailingDialog::FailNotify)
END_MESSAGE_MAP()

class DialogFailuresTest : public dialog_test::SampleTest {
 protected:
  /// Expects that what a user does shows one message box and leaves the dialog open.
  void ExpectMessage(const std::function<void(DialogUser&)>& action) {
    Run(dialog_, [&](DialogUser& user) {
      dialog_.code.AddString(L"GB");
      action(user);
      EXPECT_TRUE(user.is_open());
      ASSERT_THAT(host_.log.messages, SizeIs(1));
      EXPECT_EQ(host_.log.messages[0].text, L"the handler failed");
      EXPECT_EQ(host_.log.messages[0].type, MB_OK | MB_ICONEXCLAMATION);
    });
  }
  /// Text of the message of a handler's exception.
  std::wstring MessageOf(const std::string& failure) {
    dialog_.failure = failure;
    Run(dialog_, [](DialogUser& user) { user.click(apply_button); });
    return host_.log.messages.at(0).text;
  }

  FailingDialog dialog_;
};

TEST_F(DialogFailuresTest, OfAClickIsTold) {
  ExpectMessage([](DialogUser& user) { user.click(apply_button); });
}

TEST_F(DialogFailuresTest, OfAChoiceIsTold) {
  ExpectMessage([](DialogUser& user) { user.choose(code_list, 0); });
}

TEST_F(DialogFailuresTest, OfASelectionIsTold) {
  ExpectMessage([this](DialogUser& user) {
    dialog_.materials.InsertItem(0, L"row");
    user.SelectRow(material_list, 0);
  });
}

TEST_F(DialogFailuresTest, OfAClickBesideTheRowsIsTold) {
  ExpectMessage([](DialogUser& user) { user.click_row(material_list, -1); });
}

TEST_F(DialogFailuresTest, OfOkIsTold) {
  ExpectMessage([](DialogUser& user) { user.click(ok_button); });
}

TEST_F(DialogFailuresTest, OfEnterIsTold) {
  ExpectMessage([](DialogUser& user) { user.press_enter(); });
}

TEST_F(DialogFailuresTest, OfCancelIsTold) {
  ExpectMessage([](DialogUser& user) { user.click(cancel_button); });
}

TEST_F(DialogFailuresTest, OfEscapeIsTold) {
  ExpectMessage([](DialogUser& user) { user.press_escape(); });
}

TEST_F(DialogFailuresTest, AfterAFailureTheDialogGoesOn) {
  const int result = Run(dialog_, [](DialogUser& user) {
    user.click(apply_button);
    user.click(cancel_button);
    user.click(cancel_button);
  });
  EXPECT_EQ(result, CDialog::kCancel);
}

TEST_F(DialogFailuresTest, OfTheStartIsToldAndTheDialogDoesNotOpen) {
  dialog_.whenStarting = [] { throw std::runtime_error("no start"); };
  toolkit_.script([](DialogUser&) { FAIL() << "the dialog was run"; });
  EXPECT_EQ(dialog_.DoModal(), -1);
  ASSERT_THAT(host_.log.messages, SizeIs(1));
  EXPECT_EQ(host_.log.messages[0].text, L"no start");
}

TEST_F(DialogFailuresTest, OfTheFirstExchangeIsToldAndTheDialogDoesNotOpen) {
  dialog_.failsToExchange = true;
  EXPECT_EQ(dialog_.DoModal(), -1);
  EXPECT_THAT(host_.log.messages, SizeIs(1));
}

TEST_F(DialogFailuresTest, AfterAFailedStartMembersAreDetached) {
  dialog_.whenStarting = [] { throw std::runtime_error("no start"); };
  dialog_.DoModal();
  EXPECT_EQ(dialog_.name.GetDlgCtrlID(), 0);
  EXPECT_EQ(dialog_.GetDlgItem(name_edit), nullptr);
}

TEST_F(DialogFailuresTest, AfterAFailedStartTheDialogOpensAgain) {
  dialog_.whenStarting = [] { throw std::runtime_error("no start"); };
  dialog_.DoModal();
  dialog_.whenStarting = nullptr;
  const int result = Run(dialog_, [](DialogUser& user) {
    user.click(cancel_button);
    user.click(cancel_button);
  });
  EXPECT_EQ(result, CDialog::kCancel);
}

TEST_F(DialogFailuresTest, AMessageInUtf8IsShownInItsCharacters) {
  EXPECT_EQ(MessageOf("\xE9\x93\x9D 6061"), L"\u94DD 6061");
}

TEST_F(DialogFailuresTest, AMessageThatIsNoUtf8IsShownAllTheSame) {
  EXPECT_EQ(MessageOf("bad \xFF").substr(0, 4), L"bad ");
}

TEST_F(DialogFailuresTest, WithoutAFailureNothingIsTold) {
  SampleDialog dialog;
  Run(dialog, [](DialogUser& user) { user.click(apply_button); });
  EXPECT_THAT(host_.log.messages, IsEmpty());
}

// What a toolkit throws while it runs is the host's affair, but the dialog is closed first.
TEST_F(DialogFailuresTest, OfTheToolkitReachesTheCallerOfAClosedDialog) {
  EXPECT_THROW(dialog_.DoModal(), std::logic_error);
  EXPECT_EQ(dialog_.name.GetDlgCtrlID(), 0);
}

}  // namespace
