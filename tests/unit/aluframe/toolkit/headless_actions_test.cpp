// What a script does in the place of a user, and what it is refused.

#include <stdexcept>

#include "tests/unit/aluframe/toolkit/headless_test.h"

namespace aluframe::toolkit {
namespace {

using namespace test_support;
using testing::ElementsAre;
using testing::IsEmpty;

/// The drop-down list has the entries "GB" and "EN", the list one column and two rows.
class HeadlessActions : public HeadlessTest {
 protected:
  HeadlessActions() {
    for (const wchar_t* text : {L"GB", L"EN"}) dialog.AddChoice(code_list, text);
    dialog.AddColumn(material_list, L"ID", 75, true);
    for (int row = 0; row < 2; ++row) dialog.InsertRow(material_list, row);
  }
};

/// Notes whether the button was checked when its click was told.
class CheckWatch : public EventNotes {
 public:
  HeadlessDialog* dialog = nullptr;
  std::vector<bool> checked;
  void ButtonClicked(int id) override { checked.push_back(dialog->IsChecked(id)); }
};

TEST_F(HeadlessActions, AClickIsTold) {
  dialog.click(apply_button);
  EXPECT_THAT(events.lines, ElementsAre("click 111"));
}

TEST_F(HeadlessActions, AClickTurnsACheckBeforeItIsTold) {
  CheckWatch watch;
  HeadlessDialog watched(sample_dialog(), watch);
  watch.dialog = &watched;
  watched.click(rib_check);
  watched.click(rib_check);
  EXPECT_THAT(watch.checked, ElementsAre(true, false));
}

TEST_F(HeadlessActions, ARadioButtonTakesTheCheckOfItsGroupOnly) {
  dialog.click(class_one);
  dialog.click(side_right);
  dialog.click(class_two);
  EXPECT_FALSE(dialog.IsChecked(class_one));
  EXPECT_TRUE(dialog.IsChecked(class_two));
  EXPECT_FALSE(dialog.IsChecked(side_left));
  EXPECT_TRUE(dialog.IsChecked(side_right));
}

TEST_F(HeadlessActions, ARadioButtonLeavesOtherKindsChecked) {
  dialog.click(rib_check);
  dialog.click(class_one);
  EXPECT_TRUE(dialog.IsChecked(rib_check));
}

TEST_F(HeadlessActions, ACheckedRadioButtonStaysChecked) {
  dialog.click(class_one);
  dialog.click(class_one);
  EXPECT_TRUE(dialog.IsChecked(class_one));
}

TEST_F(HeadlessActions, TypingReplacesTheTextAndIsNotTold) {
  dialog.type(name_edit, L"Column");
  EXPECT_TRUE(dialog.Text(name_edit) == L"Column");
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(HeadlessActions, AChoiceIsSelectedAndTold) {
  dialog.choose(code_list, 1);
  EXPECT_EQ(dialog.SelectedChoice(code_list), 1);
  dialog.choose(code_list, L"GB");
  EXPECT_EQ(dialog.SelectedChoice(code_list), 0);
  EXPECT_THAT(events.lines, ElementsAre("choice 109", "choice 109"));
}

TEST_F(HeadlessActions, AClickOnARowSelectsItAndIsTold) {
  dialog.click_row(material_list, 1);
  EXPECT_EQ(dialog.SelectedRow(material_list), 1);
  EXPECT_THAT(events.lines, ElementsAre("row 110 1", "row click 110 1"));
}

TEST_F(HeadlessActions, AClickOnTheSelectedRowIsAClickOnly) {
  dialog.click_row(material_list, 1);
  events.lines.clear();
  dialog.click_row(material_list, 1);
  EXPECT_THAT(events.lines, ElementsAre("row click 110 1"));
}

TEST_F(HeadlessActions, AClickBesideTheRowsTakesTheSelectionAway) {
  dialog.click_row(material_list, 1);
  events.lines.clear();
  dialog.click_row(material_list, -1);
  EXPECT_EQ(dialog.SelectedRow(material_list), -1);
  EXPECT_THAT(events.lines, ElementsAre("row click 110 -1"));
}

TEST_F(HeadlessActions, KeysAreTold) {
  dialog.press_enter();
  dialog.press_escape();
  EXPECT_THAT(events.lines, ElementsAre("enter", "escape"));
}

TEST_F(HeadlessActions, WhatIsHiddenDisabledOrMissingIsRefused) {
  EXPECT_THROW(dialog.type(hidden_edit, L"x"), std::logic_error);
  EXPECT_THROW(dialog.click(disabled_button), std::logic_error);
  EXPECT_THROW(dialog.click(unknown_id), std::logic_error);
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(HeadlessActions, WhatTheProgramHidesOrDisablesIsRefused) {
  dialog.Enable(code_list, false);
  dialog.Show(material_list, false);
  EXPECT_THROW(dialog.choose(code_list, 0), std::logic_error);
  EXPECT_THROW(dialog.click_row(material_list, 0), std::logic_error);
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(HeadlessActions, AnActionOnAnotherKindIsRefused) {
  EXPECT_THROW(dialog.click(name_edit), std::logic_error);
  EXPECT_THROW(dialog.click(class_box), std::logic_error);
  EXPECT_THROW(dialog.type(name_label, L"x"), std::logic_error);
  EXPECT_THROW(dialog.choose(material_list, 0), std::logic_error);
  EXPECT_THROW(dialog.click_row(code_list, 0), std::logic_error);
}

TEST_F(HeadlessActions, AnEntryOrRowThatIsMissingIsRefused) {
  EXPECT_THROW(dialog.choose(code_list, 2), std::logic_error);
  EXPECT_THROW(dialog.choose(code_list, -1), std::logic_error);
  EXPECT_THROW(dialog.choose(code_list, L"gb"), std::logic_error);
  EXPECT_THROW(dialog.click_row(material_list, 2), std::logic_error);
  EXPECT_THROW(dialog.click_row(material_list, -2), std::logic_error);
  EXPECT_EQ(dialog.SelectedChoice(code_list), -1);
}

TEST_F(HeadlessActions, ARefusalNamesTheControlAndTheReason) {
  try {
    dialog.click(disabled_button);
    FAIL() << "the click was not refused";
  } catch (const std::logic_error& refusal) {
    EXPECT_STREQ(refusal.what(), "control 112 is disabled");
  }
}

TEST_F(HeadlessActions, NothingCanBeDoneInADialogThatHasEnded) {
  dialog.End(1);
  EXPECT_THROW(dialog.click(apply_button), std::logic_error);
  EXPECT_THROW(dialog.type(name_edit, L"x"), std::logic_error);
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(HeadlessActions, ADialogIsOpenUntilItEnds) {
  EXPECT_TRUE(dialog.is_open());
  EXPECT_FALSE(dialog.result().has_value());
  dialog.End(7);
  EXPECT_FALSE(dialog.is_open());
  EXPECT_EQ(dialog.result(), 7);
}

}  // namespace
}  // namespace aluframe::toolkit
