// A service that fails is told to the user, and nothing is stored.

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using dialogs_test::DialogUser;
using testing::IsEmpty;
using testing::SizeIs;

class CodeDialogFaultsTest : public dialogs_test::CodeDialogTest,
                             public testing::WithParamInterface<const char*> {
 protected:
  /// Expects one message that tells of the failed service.
  void ExpectToldOnce() {
    ASSERT_THAT(host_.log.messages, SizeIs(1));
    const std::string service = GetParam();
    EXPECT_EQ(host_.log.messages[0].text,
              std::wstring(service.begin(), service.end()) + L" failed");
    EXPECT_EQ(host_.log.messages[0].type, 0x30U);  // OK and an exclamation mark
    EXPECT_THAT(host_.stored_settings, IsEmpty());
  }
};

class CodeDialogStartFaultsTest : public CodeDialogFaultsTest {};

TEST_P(CodeDialogStartFaultsTest, AFailingServiceKeepsTheDialogFromOpening) {
  host_.failing_service = GetParam();
  CDgnAluCodeDlg dialog;
  EXPECT_EQ(dialog.DoModal(), CDialog::kFailed);
  EXPECT_EQ(dialog.GetDlgItem(IDOK), nullptr);
  ExpectToldOnce();
}

INSTANTIATE_TEST_SUITE_P(EachService, CodeDialogStartFaultsTest,
                         testing::Values("GetDocPoint", "GetAluCodeNameList", "ViewConvertCodeName",
                                         "GetDalu", "GetPreference"),
                         [](const auto& test) { return std::string(test.param); });

class CodeDialogOkFaultsTest : public CodeDialogFaultsTest {};

TEST_P(CodeDialogOkFaultsTest, AFailingServiceKeepsTheDialogOpen) {
  host_.model.settings = OtherSettings();
  Run([this](DialogUser& user) {
    host_.failing_service = GetParam();
    user.click(IDOK);
    EXPECT_TRUE(user.is_open());
  });
  ExpectToldOnce();
}

TEST_P(CodeDialogOkFaultsTest, AfterTheFailureOkStores) {
  host_.model.settings = OtherSettings();
  const int result = Run([this](DialogUser& user) {
    host_.failing_service = GetParam();
    user.click(IDOK);
    host_.failing_service.clear();
    user.click(IDOK);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_THAT(host_.stored_settings, SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(EachService, CodeDialogOkFaultsTest,
                         testing::Values("ExistDalu", "GetDalu", "GetConvertCodeName", "AddDalu"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
