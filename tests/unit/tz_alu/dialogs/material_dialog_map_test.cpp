// Handlers that the dialog of the materials has, and those of its steps that others call.

#include <type_traits>

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using COMMAND = void (CDialog::*)();
using NOTIFY = void (CDialog::*)(NMHDR*, LRESULT*);

/// Opens what the dialog keeps to itself.
class OPENED_MATERIAL_DIALOG : public CDgnAluMatDlg {
 public:
  static const AFX_MSGMAP& Map() { return *GetThisMessageMap(); }
  static const AFX_MSGMAP* BaseMap() { return CDialogMove::GetThisMessageMap(); }
  static NOTIFY ItemChanged() {
    return static_cast<NOTIFY>(&OPENED_MATERIAL_DIALOG::OnItemchangedDgnSteelmatList);
  }
  static NOTIFY Click() {
    return static_cast<NOTIFY>(&OPENED_MATERIAL_DIALOG::OnClickDgnSteelmatList);
  }
  static COMMAND Standard() {
    return static_cast<COMMAND>(&OPENED_MATERIAL_DIALOG::OnSelchangeDgnSteelmatCode);
  }
  static COMMAND Grade() {
    return static_cast<COMMAND>(&OPENED_MATERIAL_DIALOG::OnSelchangeDgnSteelMat);
  }
  static COMMAND ModifyHandler() {
    return static_cast<COMMAND>(&OPENED_MATERIAL_DIALOG::OnDgnSteelmatModify);
  }
  const AFX_MSGMAP* UsedMap() const { return GetMessageMap(); }

  using CDgnAluMatDlg::EnableEditBox;
  using CDgnAluMatDlg::ErrorCheck;
  using CDgnAluMatDlg::Initial_MaterialCombo;
  using CDgnAluMatDlg::OnClickDgnSteelmatList;
  using CDgnAluMatDlg::OnItemchangedDgnSteelmatList;
  using CDgnAluMatDlg::OnSelchangeDgnSteelmatCode;
  using CDgnAluMatDlg::Write_ListCtrlBox;

  BOOL startResult = 0;

 protected:
  BOOL OnInitDialog() override { return startResult = CDgnAluMatDlg::OnInitDialog(); }
};

class MaterialDialogMapTest : public MaterialDialogTest {
 protected:
  void Open(std::function<void(DialogUser&)> script) {
    toolkit_.script(std::move(script));
    dialog_.DoModal();
  }

  OPENED_MATERIAL_DIALOG dialog_;
};

void ExpectEntry(int index, UINT message, int code, UINT id) {
  const AFX_MSGMAP_ENTRY& entry = OPENED_MATERIAL_DIALOG::Map().lpEntries[index];
  EXPECT_EQ(entry.nMessage, message) << index;
  EXPECT_EQ(entry.nCode, code) << index;
  EXPECT_EQ(entry.nID, id) << index;
}

TEST_F(MaterialDialogMapTest, EntriesStandInThisOrder) {
  ExpectEntry(0, WM_NOTIFY, LVN_ITEMCHANGED, 6681);
  ExpectEntry(1, WM_COMMAND, CBN_SELCHANGE, 6680);
  ExpectEntry(2, WM_COMMAND, BN_CLICKED, 6682);
  ExpectEntry(3, WM_COMMAND, CBN_SELCHANGE, 6654);
  ExpectEntry(4, WM_NOTIFY, NM_CLICK, 6681);
  EXPECT_EQ(OPENED_MATERIAL_DIALOG::Map().lpEntries[5].nMessage, 0U);
}

TEST_F(MaterialDialogMapTest, EachEntryHasItsHandler) {
  const AFX_MSGMAP_ENTRY* entries = OPENED_MATERIAL_DIALOG::Map().lpEntries;
  EXPECT_TRUE(entries[0].pNotify == OPENED_MATERIAL_DIALOG::ItemChanged());
  EXPECT_TRUE(entries[1].pCommand == OPENED_MATERIAL_DIALOG::Standard());
  EXPECT_TRUE(entries[2].pCommand == OPENED_MATERIAL_DIALOG::ModifyHandler());
  EXPECT_TRUE(entries[3].pCommand == OPENED_MATERIAL_DIALOG::Grade());
  EXPECT_TRUE(entries[4].pNotify == OPENED_MATERIAL_DIALOG::Click());
}

TEST_F(MaterialDialogMapTest, TheMapGoesOnInTheBases) {
  EXPECT_EQ(OPENED_MATERIAL_DIALOG::Map().pBaseMap, OPENED_MATERIAL_DIALOG::BaseMap());
  EXPECT_EQ(dialog_.UsedMap(), &OPENED_MATERIAL_DIALOG::Map());
}

TEST_F(MaterialDialogMapTest, ItIsADialogOfTheMakersBases) {
  EXPECT_TRUE((std::is_base_of_v<CDialogMove, CDgnAluMatDlg>));
}

TEST_F(MaterialDialogMapTest, ItOpensOnItsTemplateAndStartsWithOne) {
  Open([](DialogUser& user) { EXPECT_EQ(user.dialog().nId, 7964U); });
  EXPECT_EQ(dialog_.startResult, 1);
}

TEST_F(MaterialDialogMapTest, BothListHandlersShowTheRowAndGiveZero) {
  Open([this](DialogUser& user) {
    NMLISTVIEW row{{6681, NM_CLICK}, kOwnRow};
    LRESULT result = 5;
    dialog_.OnClickDgnSteelmatList(&row.hdr, &result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"68000");
    row.iItem = kGradeRow;
    result = 5;
    dialog_.OnItemchangedDgnSteelmatList(&row.hdr, &result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"70500");
  });
}

TEST_F(MaterialDialogMapTest, TheFiveValuesAreEnabledTogether) {
  Open([this](DialogUser& user) {
    dialog_.EnableEditBox(FALSE);
    EXPECT_THAT(EnabledValues(user), Each(false));
    EXPECT_TRUE(user.IsEnabled(IDC_DGN_STEEL_MAT2));
    dialog_.EnableEditBox(TRUE);
    EXPECT_THAT(EnabledValues(user), Each(true));
  });
}

TEST_F(MaterialDialogMapTest, AnEmptyStandardIsNoneWithTheNameAsOnlyGrade) {
  Open([this](DialogUser& user) {
    dialog_.Initial_MaterialCombo(L"", L"mine");
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEELMAT_CODE), 0);
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"mine"));
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEEL_MAT), -1);
  });
}

TEST_F(MaterialDialogMapTest, AStandardIsSelectedWithItsGrades) {
  Open([this](DialogUser& user) {
    dialog_.Initial_MaterialCombo(L"GB", L"mine");
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEELMAT_CODE), 1);
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"6061-T4", L"6061-T6"));
  });
}

// Nothing is selected before a row is.
TEST_F(MaterialDialogMapTest, WithoutAStandardTheValuesAreZeroedAndEnabled) {
  Open([this](DialogUser& user) {
    dialog_.EnableEditBox(FALSE);
    dialog_.OnSelchangeDgnSteelmatCode();
    EXPECT_THAT(Values(user), Each(L"0"));
    EXPECT_THAT(EnabledValues(user), Each(true));
    ExpectNameIsEntered(user);
  });
}

TEST_F(MaterialDialogMapTest, ARowIsInsertedWithItsTexts) {
  Open([this](DialogUser& user) {
    dialog_.Write_ListCtrlBox(1, 12, L"new", 1.5, 2.5, 3.5, 4.5);
    EXPECT_THAT(Row(user, 1), ElementsAre(L"     12", L"new", L"1.5", L"2.5", L"3.5", L"4.5"));
    EXPECT_EQ(Row(user, 2)[0], L"      7");
  });
}

TEST_F(MaterialDialogMapTest, TheCheckTellsRightFromWrong) {
  Open([this](DialogUser&) {
    const T_MATD_D right{L"m", L"", L"", 1, 1, 1, 1, 1};
    EXPECT_EQ(dialog_.ErrorCheck(right), 1);
    EXPECT_THAT(host_.log.messages, IsEmpty());
    EXPECT_EQ(dialog_.ErrorCheck(T_MATD_D()), 0);
    EXPECT_THAT(host_.log.messages, testing::SizeIs(1));
  });
}

}  // namespace
