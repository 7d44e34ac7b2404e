// Controls of a dialog in memory: how they begin, and what the program reads and writes.

#include "tests/unit/aluframe/toolkit/headless_test.h"

namespace aluframe::toolkit {
namespace {

using namespace test_support;
using testing::IsEmpty;

class HeadlessControls : public HeadlessTest {};

TEST_F(HeadlessControls, BeginWithTheTextsOfTheTemplate) {
  EXPECT_TRUE(dialog.Text(name_label) == L"Name");
  EXPECT_TRUE(dialog.Text(name_edit) == L"Rafter");
  EXPECT_TRUE(dialog.Text(rib_check) == L"Rib");
}

TEST_F(HeadlessControls, BeginEnabledUnlessTheTemplateDisablesThem) {
  EXPECT_TRUE(dialog.IsEnabled(name_edit));
  EXPECT_FALSE(dialog.IsEnabled(disabled_button));
}

TEST_F(HeadlessControls, BeginShownUnlessTheTemplateHidesThem) {
  EXPECT_TRUE(dialog.IsShown(name_edit));
  EXPECT_FALSE(dialog.IsShown(hidden_edit));
}

TEST_F(HeadlessControls, BeginWithoutChecksEntriesAndRows) {
  EXPECT_FALSE(dialog.IsChecked(rib_check));
  EXPECT_FALSE(dialog.IsChecked(class_one));
  EXPECT_EQ(dialog.ChoiceCount(code_list), 0);
  EXPECT_EQ(dialog.SelectedChoice(code_list), -1);
  EXPECT_EQ(dialog.ColumnCount(material_list), 0);
  EXPECT_EQ(dialog.RowCount(material_list), 0);
  EXPECT_EQ(dialog.SelectedRow(material_list), -1);
  EXPECT_FALSE(dialog.IsFullRowSelect(material_list));
}

TEST_F(HeadlessControls, AreFoundByTheirIdentifiersOnly) {
  EXPECT_TRUE(dialog.HasControl(name_edit));
  EXPECT_FALSE(dialog.HasControl(unknown_id));
  EXPECT_FALSE(dialog.HasControl(kNoControlId));
}

TEST_F(HeadlessControls, TheTemplateIsTheOneThatWasOpened) {
  EXPECT_EQ(&dialog.dialog(), &sample_dialog());
}

TEST_F(HeadlessControls, TakeTextStateAndCheckOfTheProgram) {
  dialog.SetText(name_edit, L"Purlin");
  dialog.Enable(name_edit, false);
  dialog.Show(name_edit, false);
  dialog.SetCheck(rib_check, true);
  EXPECT_TRUE(dialog.Text(name_edit) == L"Purlin");
  EXPECT_FALSE(dialog.IsEnabled(name_edit));
  EXPECT_FALSE(dialog.IsShown(name_edit));
  EXPECT_TRUE(dialog.IsChecked(rib_check));
  dialog.Enable(name_edit, true);
  dialog.Show(name_edit, true);
  dialog.SetCheck(rib_check, false);
  EXPECT_TRUE(dialog.IsEnabled(name_edit));
  EXPECT_TRUE(dialog.IsShown(name_edit));
  EXPECT_FALSE(dialog.IsChecked(rib_check));
}

TEST_F(HeadlessControls, ChecksOfTheProgramLeaveTheGroup) {
  dialog.SetCheck(class_one, true);
  dialog.SetCheck(class_two, true);
  EXPECT_TRUE(dialog.IsChecked(class_one));
  EXPECT_TRUE(dialog.IsChecked(class_two));
}

TEST_F(HeadlessControls, OnlyButtonsWithAMarkAreChecked) {
  for (const int id : {ok_button, name_edit, code_list, name_label}) {
    dialog.SetCheck(id, true);
    EXPECT_FALSE(dialog.IsChecked(id)) << id;
  }
}

TEST_F(HeadlessControls, ThatAreMissingGiveNothing) {
  dialog.SetText(unknown_id, L"text");
  dialog.Enable(unknown_id, true);
  dialog.Show(unknown_id, true);
  dialog.SetCheck(unknown_id, true);
  EXPECT_TRUE(dialog.Text(unknown_id).IsEmpty());
  EXPECT_FALSE(dialog.IsEnabled(unknown_id));
  EXPECT_FALSE(dialog.IsShown(unknown_id));
  EXPECT_FALSE(dialog.IsChecked(unknown_id));
}

TEST_F(HeadlessControls, TellNothingOfTheProgramsChanges) {
  dialog.SetText(name_edit, L"Purlin");
  dialog.SetCheck(rib_check, true);
  dialog.AddChoice(code_list, L"GB");
  dialog.SelectChoice(code_list, 0);
  EXPECT_THAT(events.lines, IsEmpty());
}

}  // namespace
}  // namespace aluframe::toolkit
