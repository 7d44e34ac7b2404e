// Handlers and controls that the dialog of the design settings has.

#include <type_traits>

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using dialogs_test::DialogUser;

/// Opens what the dialog keeps to itself.
class OPENED_CODE_DIALOG : public CDgnAluCodeDlg {
 public:
  static const AFX_MSGMAP& Map() { return *GetThisMessageMap(); }
  static const AFX_MSGMAP* BaseMap() { return CDialogMove::GetThisMessageMap(); }
  static void (CDialog::* Enable())() {
    return static_cast<void (CDialog::*)()>(&OPENED_CODE_DIALOG::EnableCtrl);
  }
  const AFX_MSGMAP* UsedMap() const { return GetMessageMap(); }

  BOOL startResult = 0;

 protected:
  BOOL OnInitDialog() override { return startResult = CDgnAluCodeDlg::OnInitDialog(); }
};

class CodeDialogMapTest : public dialogs_test::CodeDialogTest {};

TEST_F(CodeDialogMapTest, ItIsADialogOfTheMakersBases) {
  EXPECT_TRUE((std::is_base_of_v<CDialogMove, CDgnAluCodeDlg>));
  EXPECT_TRUE((std::is_base_of_v<CInternationalDlg, CDialogMove>));
  EXPECT_TRUE((std::is_base_of_v<zel::frx::MDialog, CInternationalDlg>));
  EXPECT_TRUE((std::is_base_of_v<CDialog, zel::frx::MDialog>));
}

TEST_F(CodeDialogMapTest, BothChecksEnableInThisOrder) {
  const AFX_MSGMAP_ENTRY* entries = OPENED_CODE_DIALOG::Map().lpEntries;
  constexpr UINT kChecks[] = {3244, 3240};  // earthquake, ribs
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(entries[i].nMessage, WM_COMMAND) << i;
    EXPECT_EQ(entries[i].nCode, BN_CLICKED) << i;
    EXPECT_EQ(entries[i].nID, kChecks[i]) << i;
    EXPECT_TRUE(entries[i].pCommand == OPENED_CODE_DIALOG::Enable()) << i;
  }
  EXPECT_EQ(entries[2].nMessage, 0U);
}

TEST_F(CodeDialogMapTest, TheMapGoesOnInTheBases) {
  EXPECT_EQ(OPENED_CODE_DIALOG::Map().pBaseMap, OPENED_CODE_DIALOG::BaseMap());
  EXPECT_EQ(OPENED_CODE_DIALOG().UsedMap(), &OPENED_CODE_DIALOG::Map());
}

TEST_F(CodeDialogMapTest, ItStartsWithOne) {
  OPENED_CODE_DIALOG dialog;
  toolkit_.script([](DialogUser&) {});
  dialog.DoModal();
  EXPECT_EQ(dialog.startResult, 1);
}

TEST_F(CodeDialogMapTest, ItOpensOnItsTemplate) {
  Run([](DialogUser& user) { EXPECT_EQ(user.dialog().nId, 7963U); });
}

TEST_F(CodeDialogMapTest, ItKnowsItsParent) {
  CWnd parent;
  EXPECT_EQ(CDgnAluCodeDlg(&parent).GetParent(), &parent);
}

}  // namespace
