// The dialog of the design settings by the keyboard alone.

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using test_support::Key;
using testing::ElementsAre;

class CodeDialogKeyboardTest : public dialogs_test::CodeDialogTest {
 protected:
  /// Where the focus is at the start and after each Tab.
  static std::vector<int> Stops(DialogUser& user, int count) {
    std::vector<int> stops;
    for (int i = 0; i < count; ++i) {
      stops.push_back(user.focus());
      user.press(Key::tab);
    }
    return stops;
  }
  static void TabTo(DialogUser& user, int id) {
    for (int i = 0; i < 20 && user.focus() != id; ++i) user.press(Key::tab);
    ASSERT_EQ(user.focus(), id);
  }
};

// The template's order; the classes are one stop, at the one that is checked.
TEST_F(CodeDialogKeyboardTest, TabGoesThroughTheTemplateAndAround) {
  host_.model.settings = OtherSettings();
  host_.model.settings->bRib = 1;
  Run([](DialogUser& user) {
    EXPECT_THAT(Stops(user, 11),
                ElementsAre(7960, 1, 2, 3240, 7958, 7962, 3244, 7964, 7966, 1001, 7960));
  });
}

TEST_F(CodeDialogKeyboardTest, TabPassesWhatIsDisabled) {
  Run([](DialogUser& user) {
    user.click(IDC_CHECK_ALU_SECT_RIB);
    user.press(Key::tab);
    EXPECT_THAT(Stops(user, 4), ElementsAre(7957, 7962, 3244, 7960));
  });
}

TEST_F(CodeDialogKeyboardTest, WithoutACheckedClassTabStopsAtTheFirst) {
  host_.model.settings = OtherSettings();
  host_.model.settings->nSafetyClass = 7;
  Run([](DialogUser& user) {
    EXPECT_THAT(Stops(user, 6), ElementsAre(7960, 1, 2, 3240, 7956, 7962));
  });
}

TEST_F(CodeDialogKeyboardTest, ArrowsChooseAmongTheClassesAndStayThere) {
  Run([](DialogUser& user) {
    TabTo(user, 7957);
    user.press(Key::down);
    EXPECT_THAT(CheckedClasses(user), ElementsAre(false, false, true));
    user.press(Key::down);
    EXPECT_THAT(CheckedClasses(user), ElementsAre(true, false, false));
    user.press(Key::up);
    EXPECT_EQ(user.focus(), 7958);
    user.press(Key::tab);
    EXPECT_EQ(user.focus(), 7962);
  });
}

TEST_F(CodeDialogKeyboardTest, SpaceChangesACheckBoxAndEnablesItsEdits) {
  Run([](DialogUser& user) {
    TabTo(user, IDC_CHECK_ALU_CONSIDE_SESI);
    user.press(Key::space);
    EXPECT_TRUE(user.IsChecked(IDC_CHECK_ALU_CONSIDE_SESI));
    EXPECT_TRUE(user.IsEnabled(IDC_EDIT_ALU_GAMARE_STRENGTH));
    user.press(Key::tab);
    EXPECT_EQ(user.focus(), IDC_EDIT_ALU_GAMARE_STRENGTH);
  });
}

TEST_F(CodeDialogKeyboardTest, EnterInAnEditIsOk) {
  const int result = Run([](DialogUser& user) {
    TabTo(user, IDC_EDIT_ALU_SECTSTENGTH);
    user.press(Key::enter);
  });
  EXPECT_EQ(result, CDialog::kOk);
  EXPECT_EQ(host_.stored_settings.size(), 1U);
}

TEST_F(CodeDialogKeyboardTest, EnterPressesTheButtonWithTheFocus) {
  const int result = Run([](DialogUser& user) {
    TabTo(user, IDCANCEL);
    user.press(Key::enter);
  });
  EXPECT_EQ(result, CDialog::kCancel);
  EXPECT_TRUE(host_.stored_settings.empty());
}

TEST_F(CodeDialogKeyboardTest, EscapeClosesWithoutStoring) {
  EXPECT_EQ(Run([](DialogUser& user) { user.press(Key::escape); }), CDialog::kCancel);
  EXPECT_TRUE(host_.stored_settings.empty());
}

}  // namespace
