// What a program does with the controls of a dialog of widgets, without a user.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "tests/gui/sample_test.h"

namespace gui_test {
namespace {

using testing::IsEmpty;

class QtControls : public SampleDialog {};

TEST_F(QtControls, EveryIdentifierOfTheTemplateIsAControl) {
  for (const int id : {1, 101, 105, 112, 113, 120}) EXPECT_TRUE(dialog.HasControl(id)) << id;
  EXPECT_FALSE(dialog.HasControl(unknown_control));
}

TEST_F(QtControls, AControlWithoutIdentifierIsNotFound) {
  EXPECT_FALSE(dialog.HasControl(kNoControlId));
}

TEST_F(QtControls, TextsAreThoseOfTheTemplate) {
  EXPECT_EQ(dialog.Text(name_label), L"&Name:");
  EXPECT_EQ(dialog.Text(name_edit), L"Rafter");
  EXPECT_EQ(dialog.Text(class_box), L"&Class");
  EXPECT_EQ(dialog.Text(class_two), L"Two");
  EXPECT_EQ(dialog.Text(apply_button), L"&Apply");
}

TEST_F(QtControls, ATextIsReadBackAsItWasSet) {
  const CString text(L"\u94DD N/mm\u00B2 \U0001F4D0");
  for (const int id : {name_label, name_edit, rib_check, class_box, class_one, apply_button}) {
    dialog.SetText(id, text);
    EXPECT_EQ(dialog.Text(id), text) << id;
  }
}

TEST_F(QtControls, ALabelShowsMarkupAsItIs) {
  dialog.SetText(unit_label, L"<b>1</b>");
  const auto* label = dialog.window().findChild<QLabel*>(QString::number(unit_label));
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(QtControls, ATextIsNotSetOnADropDownList) {
  fill_choices();
  dialog.SelectChoice(code_list, 1);
  dialog.SetText(code_list, L"first");
  EXPECT_EQ(dialog.Text(code_list), L"second");
}

TEST_F(QtControls, ADropDownListCannotBeTypedInto) {
  EXPECT_FALSE(dialog.window().findChild<QComboBox*>(QString::number(code_list))->isEditable());
}

TEST_F(QtControls, FlagsOfTheTemplateHideAndDisable) {
  EXPECT_FALSE(dialog.IsShown(hidden_edit));
  EXPECT_TRUE(dialog.IsEnabled(hidden_edit));
  EXPECT_FALSE(dialog.IsEnabled(disabled_check));
  EXPECT_TRUE(dialog.IsShown(disabled_check));
  EXPECT_TRUE(dialog.IsShown(name_edit));
  EXPECT_TRUE(dialog.IsEnabled(name_edit));
}

TEST_F(QtControls, ControlsAreShownAndHidden) {
  dialog.Show(hidden_edit, true);
  dialog.Show(name_edit, false);
  EXPECT_TRUE(dialog.IsShown(hidden_edit));
  EXPECT_FALSE(dialog.IsShown(name_edit));
}

TEST_F(QtControls, ControlsAreEnabledAndDisabled) {
  dialog.Enable(disabled_check, true);
  dialog.Enable(name_edit, false);
  EXPECT_TRUE(dialog.IsEnabled(disabled_check));
  EXPECT_FALSE(dialog.IsEnabled(name_edit));
}

TEST_F(QtControls, ACheckIsSetAndTakenAway) {
  EXPECT_FALSE(dialog.IsChecked(rib_check));
  dialog.SetCheck(rib_check, true);
  EXPECT_TRUE(dialog.IsChecked(rib_check));
  dialog.SetCheck(rib_check, false);
  EXPECT_FALSE(dialog.IsChecked(rib_check));
}

TEST_F(QtControls, CheckingARadioButtonLeavesTheOthersOfItsGroup) {
  dialog.SetCheck(class_one, true);
  dialog.SetCheck(class_three, true);
  EXPECT_TRUE(dialog.IsChecked(class_one));
  dialog.SetCheck(class_one, false);
  dialog.SetCheck(class_three, false);
  EXPECT_FALSE(dialog.IsChecked(class_one) || dialog.IsChecked(class_three));
}

TEST_F(QtControls, APushButtonHasNoCheck) {
  dialog.SetCheck(apply_button, true);
  EXPECT_FALSE(dialog.IsChecked(apply_button));
}

TEST_F(QtControls, EntriesOfADropDownListKeepTheirOrder) {
  EXPECT_EQ(dialog.ChoiceCount(code_list), 0);
  EXPECT_EQ(dialog.AddChoice(code_list, L"b"), 0);
  EXPECT_EQ(dialog.AddChoice(code_list, L"a"), 1);
  EXPECT_EQ(dialog.ChoiceCount(code_list), 2);
  EXPECT_EQ(dialog.ChoiceText(code_list, 0), L"b");
  EXPECT_EQ(dialog.ChoiceText(code_list, 1), L"a");
  EXPECT_EQ(dialog.ChoiceText(code_list, 2), L"");
  EXPECT_EQ(dialog.ChoiceText(code_list, -1), L"");
}

TEST_F(QtControls, AnEntryThatIsAddedSelectsNothing) {
  fill_choices();
  EXPECT_EQ(dialog.SelectedChoice(code_list), -1);
  EXPECT_EQ(dialog.Text(code_list), L"");
}

TEST_F(QtControls, AnEntryIsSelectedByItsIndex) {
  fill_choices();
  dialog.SelectChoice(code_list, 2);
  EXPECT_EQ(dialog.SelectedChoice(code_list), 2);
  EXPECT_EQ(dialog.Text(code_list), L"third");
}

TEST_F(QtControls, AnIndexThatTheListDoesNotHaveSelectsNoEntry) {
  fill_choices();
  for (const int none : {-1, -5, 3}) {
    dialog.SelectChoice(code_list, 1);
    dialog.SelectChoice(code_list, none);
    EXPECT_EQ(dialog.SelectedChoice(code_list), -1) << none;
  }
}

TEST_F(QtControls, AClearedDropDownListIsEmpty) {
  fill_choices();
  dialog.SelectChoice(code_list, 1);
  dialog.ClearChoices(code_list);
  EXPECT_EQ(dialog.ChoiceCount(code_list), 0);
  EXPECT_EQ(dialog.SelectedChoice(code_list), -1);
}

TEST_F(QtControls, NothingThatTheProgramChangesIsAnEvent) {
  fill_choices();
  dialog.SelectChoice(code_list, 1);
  dialog.SetCheck(rib_check, true);
  dialog.SetCheck(class_two, true);
  dialog.SetText(name_edit, L"x");
  dialog.Enable(name_edit, false);
  dialog.Show(name_edit, false);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtControls, AnUnknownControlDoesNothingAndReturnsNothing) {
  dialog.SetText(unknown_control, L"x");
  dialog.Enable(unknown_control, true);
  dialog.Show(unknown_control, true);
  dialog.SetCheck(unknown_control, true);
  EXPECT_EQ(dialog.Text(unknown_control), L"");
  EXPECT_FALSE(dialog.IsEnabled(unknown_control));
  EXPECT_FALSE(dialog.IsShown(unknown_control));
  EXPECT_FALSE(dialog.IsChecked(unknown_control));
}

TEST_F(QtControls, ListOperationsOnAnotherKindReturnNothing) {
  for (const int id : {static_cast<int>(name_edit), static_cast<int>(unknown_control)}) {
    dialog.ClearChoices(id);
    dialog.SelectChoice(id, 0);
    EXPECT_EQ(dialog.AddChoice(id, L"x"), -1);
    EXPECT_EQ(dialog.ChoiceCount(id), 0);
    EXPECT_EQ(dialog.ChoiceText(id, 0), L"");
    EXPECT_EQ(dialog.SelectedChoice(id), -1);
    dialog.AddColumn(id, L"x", 10, true);
    dialog.SetCell(id, 0, 0, L"x");
    dialog.SelectRow(id, 0);
    dialog.SetFullRowSelect(id, true);
    EXPECT_EQ(dialog.ColumnCount(id), 0);
    EXPECT_EQ(dialog.ColumnHeader(id, 0), L"");
    EXPECT_EQ(dialog.ColumnWidth(id, 0), 0);
    EXPECT_EQ(dialog.InsertRow(id, 0), -1);
    EXPECT_EQ(dialog.RowCount(id), 0);
    EXPECT_EQ(dialog.Cell(id, 0, 0), L"");
    EXPECT_EQ(dialog.SelectedRow(id), -1);
    EXPECT_FALSE(dialog.IsFullRowSelect(id));
  }
}

}  // namespace
}  // namespace gui_test
