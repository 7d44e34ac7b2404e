// A selected row shows its material.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class MaterialDialogSelectionTest : public MaterialDialogTest {};

TEST_F(MaterialDialogSelectionTest, ValuesAreTheMaterialsOwn) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_THAT(Values(user), ElementsAre(L"70500", L"0.32", L"266", L"242", L"243"));
    ClickRow(user, kOwnRow);
    EXPECT_THAT(Values(user), ElementsAre(L"68000", L"0.34", L"250.5", L"200", L"190"));
  });
}

// Selecting by the keyboard is no click.
TEST_F(MaterialDialogSelectionTest, SelectingWithoutAClickShowsTheMaterial) {
  Run([](DialogUser& user) {
    user.SelectRow(IDC_DGN_STEELMAT_LIST, kOwnRow);
    EXPECT_THAT(Values(user), ElementsAre(L"68000", L"0.34", L"250.5", L"200", L"190"));
  });
}

TEST_F(MaterialDialogSelectionTest, AClickOnTheSelectedRowShowsItsMaterialAgain) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.type(IDC_DGN_STEEL_MATES, L"1");
    ClickRow(user, kOwnRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"68000");
  });
}

TEST_F(MaterialDialogSelectionTest, TheMaterialIsReadFromTheModel) {
  Run([this](DialogUser& user) {
    host_.model.materials[7].dElast = 65000;
    ClickRow(user, kOwnRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"65000");
  });
}

TEST_F(MaterialDialogSelectionTest, TheKeyIsTheOneThatTheRowShows) {
  host_.material_keys = {{9, 7}};
  host_.model.materials[1234567] = {L"far", L"", L"", 60000, 0.3, 1, 1, 1};
  host_.material_keys->push_back(1234567);
  Run([](DialogUser& user) {
    ClickRow(user, 0);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"67000");
    ClickRow(user, 2);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"60000");
  });
}

TEST_F(MaterialDialogSelectionTest, AMaterialThatIsGoneChangesNothing) {
  Run([this](DialogUser& user) {
    ClickRow(user, kGradeRow);
    host_.model.materials.erase(7);
    ClickRow(user, kOwnRow);
    EXPECT_THAT(Values(user), ElementsAre(L"70500", L"0.32", L"266", L"242", L"243"));
    EXPECT_EQ(TextOf(user, IDC_DGN_STEELMAT_CODE), L"GB");
  });
}

TEST_F(MaterialDialogSelectionTest, AClickBesideTheRowsChangesNothing) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    ClickRow(user, -1);
    EXPECT_THAT(Values(user), ElementsAre(L"70500", L"0.32", L"266", L"242", L"243"));
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MAT), L"6061-T6");
  });
}

TEST_F(MaterialDialogSelectionTest, StandardsAreNoneAndThoseThatAreDesignedBy) {
  host_.standards = {L"GB-T", L"foreign", L"GB"};
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_THAT(user.choices(IDC_DGN_STEELMAT_CODE), ElementsAre(L"None", L"GB-T", L"GB"));
  });
}

TEST_F(MaterialDialogSelectionTest, StandardsAreThoseOfTheAlloyDatabase) {
  host_.alloy_database = 77;
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_THAT(user.choices(IDC_DGN_STEELMAT_CODE), ElementsAre(L"None", L"GB", L"GB-T"));
  });
}

TEST_F(MaterialDialogSelectionTest, EachSelectionFillsTheListsAnew) {
  Run([](DialogUser& user) {
    for (const int row : {kGradeRow, kOwnRow, kGradeRow}) ClickRow(user, row);
    EXPECT_THAT(user.choices(IDC_DGN_STEELMAT_CODE), ElementsAre(L"None", L"GB", L"GB-T"));
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"6061-T4", L"6061-T6"));
  });
}

TEST_F(MaterialDialogSelectionTest, AGradeOfTheDatabaseIsSelectedAmongThoseOfItsStandard) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEELMAT_CODE), L"GB");
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"6061-T4", L"6061-T6"));
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEEL_MAT), 1);
    ExpectGradeIsChosen(user);
  });
}

TEST_F(MaterialDialogSelectionTest, ValuesOfTheUserHaveTheirNameAsOnlyGrade) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEELMAT_CODE), L"None");
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"own"));
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEEL_MAT), 0);
    ExpectGradeIsChosen(user);
  });
}

TEST_F(MaterialDialogSelectionTest, AnUnknownGradeIsANameToEnter) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownGradeRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEELMAT_CODE), L"GB");
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"6061-T4", L"6061-T6"));
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEEL_MAT), -1);
    ExpectNameIsEntered(user);
  });
}

TEST_F(MaterialDialogSelectionTest, GradesAreLookedUpExactly) {
  host_.model.materials[3].strGrade = L"6061-t6";
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEEL_MAT), -1);
  });
}

TEST_F(MaterialDialogSelectionTest, AnUnknownStandardSelectsNeitherStandardNorGrade) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownStandardRow);
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEELMAT_CODE), -1);
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), IsEmpty());
    ExpectNameIsEntered(user);
    EXPECT_THAT(Values(user), ElementsAre(L"67000", L"0.36", L"240", L"180", L"170"));
  });
}

TEST_F(MaterialDialogSelectionTest, AStandardThatIsNotDesignedByIsNotSelected) {
  host_.model.materials[3].strStandard = L"foreign";
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEELMAT_CODE), -1);
  });
}

TEST_F(MaterialDialogSelectionTest, AGradeAfterANameIsChosenAgain) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownGradeRow);
    ClickRow(user, kGradeRow);
    ExpectGradeIsChosen(user);
  });
}

TEST_F(MaterialDialogSelectionTest, ValuesStayEnabledWhateverIsSelected) {
  Run([](DialogUser& user) {
    for (const int row : {kGradeRow, kOwnRow, kUnknownGradeRow, kUnknownStandardRow}) {
      ClickRow(user, row);
      EXPECT_THAT(EnabledValues(user), Each(true)) << row;
    }
  });
}

TEST_F(MaterialDialogSelectionTest, ValuesThatAStandardDisabledStayDisabled) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB-T");
    ClickRow(user, kOwnRow);
    EXPECT_THAT(EnabledValues(user), Each(false));
  });
}

TEST_F(MaterialDialogSelectionTest, SelectingStoresNothing) {
  Run([](DialogUser& user) {
    for (const int row : {kGradeRow, kOwnRow}) ClickRow(user, row);
  });
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddMatd")));
}

}  // namespace
