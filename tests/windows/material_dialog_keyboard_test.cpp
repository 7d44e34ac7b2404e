// The dialog of the materials by the keyboard alone.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using test_support::Key;
using testing::ElementsAre;

class MaterialDialogKeyboardTest : public dialogs_test::MaterialDialogTest {};

TEST_F(MaterialDialogKeyboardTest, TabGoesThroughTheTemplateAndAround) {
  Run([](DialogUser& user) {
    std::vector<int> stops;
    for (int i = 0; i < 11; ++i) {
      stops.push_back(user.focus());
      user.press(Key::tab);
    }
    EXPECT_THAT(stops, ElementsAre(6681, 6680, 6654, 6656, 6672, 7956, 7957, 7958, 6682, 2, 6681));
  });
}

// While nothing is selected the first arrow takes the row that the list begins with.
TEST_F(MaterialDialogKeyboardTest, ArrowsSelectRowsAndShowThem) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"70500");
    user.press(Key::down);
    EXPECT_EQ(user.SelectedRow(IDC_DGN_STEELMAT_LIST), kOwnRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"68000");
  });
}

TEST_F(MaterialDialogKeyboardTest, TheNameEditTakesThePlaceOfTheGrades) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownGradeRow);
    user.press(Key::tab);
    user.press(Key::tab);
    EXPECT_EQ(user.focus(), IDC_DGN_STEEL_MAT2);
  });
}

TEST_F(MaterialDialogKeyboardTest, SpaceOnModifyStores) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.type(IDC_DGN_STEEL_MATF02, L"199");
    user.press(Key::tab);
    EXPECT_EQ(user.focus(), IDC_DGN_STEELMAT_MODIFY);
    user.press(Key::space);
  });
  ASSERT_EQ(host_.stored_materials.size(), 1U);
  EXPECT_EQ(host_.stored_materials[0].second.dF02Thick, 199.0);
}

TEST_F(MaterialDialogKeyboardTest, EnterClosesAndEscapeToo) {
  EXPECT_EQ(Run([](DialogUser& user) { user.press(Key::enter); }), CDialog::kOk);
  EXPECT_EQ(Run([](DialogUser& user) { user.press(Key::escape); }), CDialog::kCancel);
}

}  // namespace
