// What the dialog of the materials opens with: its list, its units, the state of its controls.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using dialogs_test::DialogUser;
using dialogs_test::EnabledValues;
using dialogs_test::Row;
using dialogs_test::TextOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class MaterialDialogListTest : public dialogs_test::MaterialDialogTest {
 protected:
  /// Keys that the rows show.
  std::vector<std::wstring> Keys() {
    std::vector<std::wstring> keys;
    Run([&](DialogUser& user) {
      for (int i = 0; i < user.RowCount(IDC_DGN_STEELMAT_LIST); ++i) {
        keys.push_back(Row(user, i)[0]);
      }
    });
    return keys;
  }
  /// The row of the only material, which has this key and these values.
  std::vector<std::wstring> RowOf(UINT key, double es, double fu, double fy1, double fy2) {
    host_.model.materials = {{key, {L"m", L"", L"", es, 0.3, fu, fy1, fy2}}};
    std::vector<std::wstring> row;
    Run([&](DialogUser& user) { row = Row(user, 0); });
    return row;
  }
};

TEST_F(MaterialDialogListTest, ColumnsHaveTheirHeaders) {
  Run([](DialogUser& user) {
    std::vector<std::wstring> headers;
    for (int i = 0; i < user.ColumnCount(6681); ++i) {
      headers.emplace_back(user.ColumnHeader(6681, i).GetString());
    }
    EXPECT_THAT(headers, ElementsAre(L"ID", L"[IDS_DGN_LIST_NAME]", L"Es", L"fu", L"fy1", L"fy2"));
  });
}

TEST_F(MaterialDialogListTest, ColumnsHaveTheirWidthsAndAreCentred) {
  Run([](DialogUser& user) {
    std::vector<int> widths;
    for (int i = 0; i < user.ColumnCount(6681); ++i) {
      widths.push_back(user.ColumnWidth(6681, i));
      EXPECT_TRUE(user.is_centred(6681, i)) << i;
    }
    EXPECT_THAT(widths, ElementsAre(75, 75, 72, 68, 68, 68));
  });
}

TEST_F(MaterialDialogListTest, ASelectedRowIsMarkedFromEndToEnd) {
  Run([](DialogUser& user) { EXPECT_TRUE(user.IsFullRowSelect(6681)); });
}

TEST_F(MaterialDialogListTest, ARowShowsKeyNameModulusAndStrengths) {
  Run([](DialogUser& user) {
    EXPECT_THAT(Row(user, 0), ElementsAre(L"      3", L"girder", L"70500", L"266", L"242", L"243"));
    EXPECT_THAT(Row(user, 1), ElementsAre(L"      7", L"own", L"68000", L"250.5", L"200", L"190"));
  });
}

TEST_F(MaterialDialogListTest, RowsStandInTheModelsOrder) {
  host_.material_keys = {{9, 3, 8, 7}};
  EXPECT_THAT(Keys(), ElementsAre(L"      9", L"      3", L"      8", L"      7"));
}

TEST_F(MaterialDialogListTest, OnlyAluminiumIsListed) {
  host_.other_materials = {3, 8};
  EXPECT_THAT(Keys(), ElementsAre(L"      7", L"      9"));
}

TEST_F(MaterialDialogListTest, AMaterialThatTheModelCannotGiveIsNotListed) {
  host_.material_keys = {{3, 4, 7}};
  EXPECT_THAT(Keys(), ElementsAre(L"      3", L"      7"));
}

TEST_F(MaterialDialogListTest, AModelWithoutAluminiumHasAnEmptyList) {
  host_.other_materials = {3, 7, 8, 9};
  EXPECT_THAT(Keys(), IsEmpty());
}

TEST_F(MaterialDialogListTest, AModelWithoutMaterialsHasAnEmptyList) {
  host_.model.materials.clear();
  EXPECT_THAT(Keys(), IsEmpty());
}

// As printf("%7d") prints them.
TEST_F(MaterialDialogListTest, AKeyIsRightAlignedInSevenPlacesAndNeverCut) {
  EXPECT_EQ(RowOf(1, 1, 1, 1, 1)[0], L"      1");
  EXPECT_EQ(RowOf(1234567, 1, 1, 1, 1)[0], L"1234567");
  EXPECT_EQ(RowOf(123456789, 1, 1, 1, 1)[0], L"123456789");
}

// As printf("%g") prints them.
TEST_F(MaterialDialogListTest, ValuesHaveAtMostSixDigits) {
  EXPECT_THAT(RowOf(1, 0.0001, 0.00001, 123456, 1234567),
              ElementsAre(testing::_, L"m", L"0.0001", L"1e-05", L"123456", L"1.23457e+06"));
  EXPECT_THAT(RowOf(1, 999999.5, 1.0 / 3.0, 0, -2.50),
              ElementsAre(testing::_, L"m", L"1e+06", L"0.333333", L"0", L"-2.5"));
}

TEST_F(MaterialDialogListTest, TheFourStressesShowTheUnitOfStresses) {
  Run([](DialogUser& user) {
    for (const int id : {6657, 7959, 7960, 7961}) EXPECT_EQ(TextOf(user, id), L"unit 17") << id;
  });
}

TEST_F(MaterialDialogListTest, NothingIsSelectedAtFirst) {
  Run([](DialogUser& user) {
    EXPECT_EQ(user.SelectedRow(IDC_DGN_STEELMAT_LIST), -1);
    EXPECT_THAT(dialogs_test::Values(user), Each(L""));
    EXPECT_THAT(user.choices(IDC_DGN_STEELMAT_CODE), IsEmpty());
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), IsEmpty());
  });
}

TEST_F(MaterialDialogListTest, ValuesAreEnabledAtFirst) {
  Run([](DialogUser& user) { EXPECT_THAT(EnabledValues(user), Each(true)); });
}

// 1001 is the edit of the name; what stands before the grades is "Grade:" until a row is selected.
TEST_F(MaterialDialogListTest, OnlyTheNameIsHiddenAtFirst) {
  Run([](DialogUser& user) {
    for (const CONTROL_TEMPLATE& control : user.dialog().controls) {
      EXPECT_EQ(user.IsShown(control.nId), control.nId != 1001) << control.nId;
    }
    EXPECT_EQ(TextOf(user, IDC_STATIC_MATNAME), L"Grade:");
  });
}

TEST_F(MaterialDialogListTest, OpeningASecondTimeListsEachMaterialOnce) {
  CDgnAluMatDlg dialog;
  for (int i = 0; i < 2; ++i) {
    toolkit_.script([](DialogUser& user) {
      EXPECT_EQ(user.RowCount(IDC_DGN_STEELMAT_LIST), 4);
      EXPECT_EQ(user.ColumnCount(IDC_DGN_STEELMAT_LIST), 6);
    });
    dialog.DoModal();
  }
}

TEST_F(MaterialDialogListTest, CloseEscapeAndEnterCloseItWithoutStoring) {
  EXPECT_EQ(Run([](DialogUser& user) { user.click(IDCANCEL); }), 2);
  EXPECT_EQ(Run([](DialogUser& user) { user.press_escape(); }), 2);
  EXPECT_EQ(Run([](DialogUser& user) { user.press_enter(); }), 1);
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddMatd")));
}

}  // namespace
