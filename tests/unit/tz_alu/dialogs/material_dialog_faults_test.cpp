// A service that fails is told to the user, and nothing is stored.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using testing::IsEmpty;
using testing::SizeIs;

class FaultsTest : public MaterialDialogTest, public testing::WithParamInterface<const char*> {
 protected:
  /// Expects one message that tells of the failed service.
  void ExpectToldOnce() {
    ASSERT_THAT(host_.log.messages, SizeIs(1));
    const std::string service = GetParam();
    EXPECT_EQ(host_.log.messages[0].text,
              std::wstring(service.begin(), service.end()) + L" failed");
    EXPECT_EQ(host_.log.messages[0].type, 0x30U);  // OK and an exclamation mark
    EXPECT_THAT(host_.stored_materials, IsEmpty());
  }
  /// Expects that an action, with the service failing, is told and leaves the dialog open.
  void ExpectToldAt(const std::function<void(DialogUser&)>& preparation,
                    const std::function<void(DialogUser&)>& action) {
    Run([&](DialogUser& user) {
      preparation(user);
      host_.failing_service = GetParam();
      action(user);
      EXPECT_TRUE(user.is_open());
    });
    ExpectToldOnce();
  }
};

std::string ServiceName(const testing::TestParamInfo<const char*>& test) {
  return test.param;
}

void SelectOwn(DialogUser& user) {
  ClickRow(user, kOwnRow);
}

class MaterialDialogStartFaultsTest : public FaultsTest {};

TEST_P(MaterialDialogStartFaultsTest, AFailingServiceKeepsTheDialogFromOpening) {
  host_.failing_service = GetParam();
  CDgnAluMatDlg dialog;
  EXPECT_EQ(dialog.DoModal(), CDialog::kFailed);
  EXPECT_EQ(dialog.GetDlgItem(IDCANCEL), nullptr);
  ExpectToldOnce();
}

INSTANTIATE_TEST_SUITE_P(EachService, MaterialDialogStartFaultsTest,
                         testing::Values("GetDocPoint", "MessageText", "GetMatlKeyList",
                                         "GetMatlDesign", "IsAluMatl", "GetUnitText"),
                         ServiceName);

class MaterialDialogRowFaultsTest : public FaultsTest {};

TEST_P(MaterialDialogRowFaultsTest, AFailingServiceIsToldWhenARowIsSelected) {
  ExpectToldAt([](DialogUser&) {},
               [](DialogUser& user) { user.SelectRow(IDC_DGN_STEELMAT_LIST, kGradeRow); });
}

INSTANTIATE_TEST_SUITE_P(EachService, MaterialDialogRowFaultsTest,
                         testing::Values("GetMatlDesign", "GetDgnAluMatlDBType",
                                         "GetDesignCodeList", "IsAluMatlCode_CH",
                                         "GetAluminumNameList", "MessageText"),
                         ServiceName);

class MaterialDialogStandardFaultsTest : public FaultsTest {};

TEST_P(MaterialDialogStandardFaultsTest, AFailingServiceIsToldWhenAStandardIsChosen) {
  ExpectToldAt(SelectOwn, [](DialogUser& user) { user.choose(IDC_DGN_STEELMAT_CODE, L"GB"); });
}

INSTANTIATE_TEST_SUITE_P(EachService, MaterialDialogStandardFaultsTest,
                         testing::Values("MessageText", "GetAluminumNameList"), ServiceName);

class MaterialDialogGradeFaultsTest : public FaultsTest {};

TEST_P(MaterialDialogGradeFaultsTest, AFailingServiceIsToldWhenAGradeIsChosen) {
  ExpectToldAt([](DialogUser& user) { ClickRow(user, kGradeRow); },
               [](DialogUser& user) { user.choose(IDC_DGN_STEEL_MAT, L"6061-T4"); });
}

INSTANTIATE_TEST_SUITE_P(EachService, MaterialDialogGradeFaultsTest,
                         testing::Values("GetAluminumData"), ServiceName);

class MaterialDialogModifyFaultsTest : public FaultsTest {};

TEST_P(MaterialDialogModifyFaultsTest, AFailingServiceIsToldWhenAMaterialIsModified) {
  ExpectToldAt([](DialogUser& user) { ClickRow(user, kGradeRow); },
               [](DialogUser& user) {
                 user.click(IDC_DGN_STEELMAT_MODIFY);
                 EXPECT_EQ(Row(user, kGradeRow)[1], L"girder");
               });
}

TEST_P(MaterialDialogModifyFaultsTest, AfterTheFailureModifyStores) {
  Run([this](DialogUser& user) {
    ClickRow(user, kGradeRow);
    host_.failing_service = GetParam();
    user.click(IDC_DGN_STEELMAT_MODIFY);
    host_.failing_service.clear();
    user.click(IDC_DGN_STEELMAT_MODIFY);
    EXPECT_EQ(Row(user, kGradeRow)[1], L"6061-T6");
  });
  EXPECT_THAT(host_.stored_materials, SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(EachService, MaterialDialogModifyFaultsTest,
                         testing::Values("GetMatlDesign", "GetAluminumData", "AddMatd"),
                         ServiceName);

class MaterialDialogMessageFaultsTest : public FaultsTest {};

TEST_P(MaterialDialogMessageFaultsTest, AFailingServiceIsToldWhenThereIsAProblemToTell) {
  ExpectToldAt(
      [](DialogUser& user) {
        SelectOwn(user);
        user.type(IDC_DGN_STEEL_MATES, L"0");
      },
      [](DialogUser& user) { user.click(IDC_DGN_STEELMAT_MODIFY); });
}

INSTANTIATE_TEST_SUITE_P(EachService, MaterialDialogMessageFaultsTest,
                         testing::Values("MessageText"), ServiceName);

}  // namespace
