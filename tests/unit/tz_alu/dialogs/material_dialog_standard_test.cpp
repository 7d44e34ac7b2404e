// Choosing a standard, and then a grade.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class MaterialDialogStandardTest : public MaterialDialogTest {};

TEST_F(MaterialDialogStandardTest, AStandardZeroesAndDisablesTheValues) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    EXPECT_THAT(Values(user), Each(L"0"));
    EXPECT_THAT(EnabledValues(user), Each(false));
  });
}

TEST_F(MaterialDialogStandardTest, AStandardOffersItsGradesWithoutSelectingOne) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"6061-T4", L"6061-T6"));
    EXPECT_EQ(user.SelectedChoice(IDC_DGN_STEEL_MAT), -1);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB-T");
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"5083"));
  });
}

TEST_F(MaterialDialogStandardTest, AStandardShowsTheGradesInsteadOfTheName) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownGradeRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    ExpectGradeIsChosen(user);
  });
}

TEST_F(MaterialDialogStandardTest, NoneKeepsAndEnablesTheValues) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"None");
    EXPECT_THAT(Values(user), ElementsAre(L"70500", L"0.32", L"266", L"242", L"243"));
    EXPECT_THAT(EnabledValues(user), Each(true));
  });
}

TEST_F(MaterialDialogStandardTest, NoneEnablesWhatAStandardDisabled) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T4");
    user.choose(IDC_DGN_STEELMAT_CODE, L"None");
    EXPECT_THAT(Values(user), ElementsAre(L"70000", L"0.3", L"180", L"110", L"111"));
    EXPECT_THAT(EnabledValues(user), Each(true));
  });
}

TEST_F(MaterialDialogStandardTest, NoneShowsTheNameInsteadOfTheGradesAndEmptiesThem) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"None");
    ExpectNameIsEntered(user);
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), IsEmpty());
  });
}

// A database may list a standard without a name.
TEST_F(MaterialDialogStandardTest, AnEmptyStandardZeroesAndEnablesTheValues) {
  host_.standards = {L"", L"GB"};
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.choose(IDC_DGN_STEELMAT_CODE, 1);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEELMAT_CODE), L"");
    EXPECT_THAT(Values(user), Each(L"0"));
    EXPECT_THAT(EnabledValues(user), Each(true));
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), IsEmpty());
    ExpectNameIsEntered(user);
  });
}

TEST_F(MaterialDialogStandardTest, AGradeShowsItsValues) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T6");
    EXPECT_THAT(Values(user), ElementsAre(L"70100", L"0.31", L"265", L"240", L"241"));
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T4");
    EXPECT_THAT(Values(user), ElementsAre(L"70000", L"0.3", L"180", L"110", L"111"));
  });
}

TEST_F(MaterialDialogStandardTest, AGradeLeavesTheValuesDisabled) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T6");
    EXPECT_THAT(EnabledValues(user), Each(false));
  });
}

TEST_F(MaterialDialogStandardTest, AGradeThatTheDatabaseCannotGiveChangesNothing) {
  Run([this](DialogUser& user) {
    ClickRow(user, kGradeRow);
    host_.alloys.clear();
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T4");
    EXPECT_THAT(Values(user), ElementsAre(L"70500", L"0.32", L"266", L"242", L"243"));
    EXPECT_THAT(host_.log.messages, IsEmpty());
    EXPECT_THAT(host_.log.assertions, IsEmpty());
  });
}

TEST_F(MaterialDialogStandardTest, TheNameOfValuesOfTheUserIsNoGrade) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEEL_MAT, L"own");
    EXPECT_THAT(Values(user), ElementsAre(L"68000", L"0.34", L"250.5", L"200", L"190"));
  });
}

TEST_F(MaterialDialogStandardTest, ChoosingStoresNothing) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T6");
  });
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddMatd")));
}

}  // namespace
