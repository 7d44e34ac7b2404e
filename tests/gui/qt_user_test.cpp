// What the toolkit tells the framework when a user works a dialog, and how a dialog opens and ends.

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <stdexcept>

#include "aluframe/toolkit/qt/qt_toolkit.h"
#include "tests/gui/sample_test.h"

namespace gui_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtUser : public SampleDialog {};

TEST_F(QtUser, AClickOnAPushButtonIsTold) {
  run([](DialogUser& user) { user.click(apply_button); });
  EXPECT_THAT(log.lines, ElementsAre("click 120"));
}

TEST_F(QtUser, ACheckBoxHasChangedItsCheckWhenItsClickIsTold) {
  bool checked = false;
  log.then = [&](const std::string&) { checked = dialog.IsChecked(rib_check); };
  run([](DialogUser& user) { user.click(rib_check); });
  EXPECT_TRUE(checked);
  EXPECT_THAT(log.lines, ElementsAre("click 104"));
}

TEST_F(QtUser, AClickOnARadioButtonChecksItAloneInItsGroup) {
  dialog.SetCheck(class_one, true);
  dialog.SetCheck(side_left, true);
  run([](DialogUser& user) { user.click(class_three); });
  EXPECT_FALSE(dialog.IsChecked(class_one));
  EXPECT_TRUE(dialog.IsChecked(class_three));
  EXPECT_TRUE(dialog.IsChecked(side_left));
  EXPECT_THAT(log.lines, ElementsAre("click 108"));
}

TEST_F(QtUser, AClickOnACheckedRadioButtonLeavesItChecked) {
  dialog.SetCheck(class_two, true);
  run([](DialogUser& user) { user.click(class_two); });
  EXPECT_TRUE(dialog.IsChecked(class_two));
}

TEST_F(QtUser, ADisabledControlTellsNoClick) {
  run([](DialogUser& user) {
    QTest::mouseClick(&user.widget(disabled_check), Qt::LeftButton);
    EXPECT_FALSE(user.is_checked(disabled_check));
  });
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtUser, AChosenEntryIsTold) {
  fill_choices();
  run([](DialogUser& user) { user.choose(code_list, "second"); });
  EXPECT_EQ(dialog.SelectedChoice(code_list), 1);
  EXPECT_THAT(log.lines, ElementsAre("choice 111"));
}

TEST_F(QtUser, TheArrowKeysChooseInAClosedDropDownList) {
  fill_choices();
  dialog.SelectChoice(code_list, 0);
  run([](DialogUser& user) {
    user.widget(code_list).setFocus();
    user.press(Qt::Key_Down);
  });
  EXPECT_EQ(dialog.SelectedChoice(code_list), 1);
  EXPECT_THAT(log.lines, ElementsAre("choice 111"));
}

TEST_F(QtUser, TypingIsNoEvent) {
  run([](DialogUser& user) { user.type(name_edit, "0.75"); });
  EXPECT_EQ(dialog.Text(name_edit), L"0.75");
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtUser, TheCloseButtonOfTheWindowIsEscape) {
  run([](DialogUser& user) {
    user.close_window();
    EXPECT_TRUE(user.is_open());
  });
  EXPECT_THAT(log.lines, ElementsAre("escape"));
}

TEST_F(QtUser, RunReturnsWhatTheDialogEndedWith) {
  log.then = [this](const std::string&) { dialog.End(5); };
  const int result = with_user([this] { return dialog.Run(); },
                               [](DialogUser& user) { user.click(apply_button); });
  EXPECT_EQ(result, 5);
}

TEST_F(QtUser, ADialogThatHasEndedBeforeItRanIsNotShown) {
  dialog.End(9);
  EXPECT_EQ(dialog.Run(), 9);
}

TEST_F(QtUser, NothingIsToldAfterTheDialogEnded) {
  fill_list();
  dialog.End(9);
  dialog.SelectRow(material_list, 1);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtUser, AnExceptionOfAHandlerClosesTheDialogAndLeavesRun) {
  log.then = [](const std::string&) { throw std::runtime_error("handler"); };
  const auto open = [this] {
    EXPECT_THROW(dialog.Run(), std::runtime_error);
    return 0;
  };
  with_user(open, [](DialogUser& user) {
    user.click(apply_button);
    EXPECT_FALSE(user.is_open());
  });
}

TEST_F(QtUser, TheWindowShowsTheCaptionAndIsModal) {
  run([](DialogUser& user) {
    EXPECT_EQ(user.window().windowTitle(), "Sample");
    EXPECT_TRUE(user.window().isModal());
  });
}

TEST_F(QtUser, TheWindowHasOneSizeOnly) {
  EXPECT_EQ(dialog.window().minimumSize(), dialog.window().maximumSize());
}

TEST(QtToolkit, OpensADialogThatBelongsToItsParent) {
  QWidget parent;
  aluframe::toolkit::QtToolkit toolkit(&parent);
  EventLog log;
  const auto dialog = toolkit.Open(sample_dialog(), log);
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->HasControl(name_edit));
  EXPECT_EQ(parent.findChildren<QDialog*>().size(), 1);
}

TEST(QtToolkit, ADialogOverADialogBelongsToIt) {
  aluframe::toolkit::QtToolkit toolkit;
  EventLog log;
  const auto lower = toolkit.Open(sample_dialog(), log);
  const auto open = [&] { return lower->Run(); };
  with_user(open, [&](DialogUser& user) {
    const auto upper = toolkit.Open(sample_dialog(), log);
    EXPECT_EQ(user.window().findChildren<QDialog*>().size(), 1);
    lower->End(0);
  });
}

}  // namespace
}  // namespace gui_test
