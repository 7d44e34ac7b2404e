// The keyboard in a dialog of widgets.

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "tests/gui/sample_test.h"

namespace gui_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtKeyboard : public SampleDialog {
 protected:
  /// Where the focus goes, from the control that has it when the dialog opens.
  std::vector<int> stops(Qt::Key key, int count) {
    std::vector<int> passed;
    run([&](DialogUser& user) {
      for (int i = 0; i < count; ++i) {
        passed.push_back(user.focus());
        user.press(key);
      }
    });
    return passed;
  }
};

/// The sample dialog without a default button.
class QtKeyboardWithoutDefault : public testing::Test {
 protected:
  EventLog log;
  aluframe::toolkit::QtDialog dialog{dialog_without_default(), log, nullptr};
};

TEST_F(QtKeyboard, TabGoesThroughTheTemplateInItsOrderAndAround) {
  EXPECT_THAT(stops(Qt::Key_Tab, 9),
              ElementsAre(name_edit, rib_check, class_one, side_left, code_list, material_list,
                          ok_button, apply_button, name_edit));
}

TEST_F(QtKeyboard, ShiftTabGoesBack) {
  EXPECT_THAT(stops(Qt::Key_Backtab, 4),
              ElementsAre(name_edit, apply_button, ok_button, material_list));
}

TEST_F(QtKeyboard, TabStopsAtTheCheckedRadioButton) {
  dialog.SetCheck(class_two, true);
  dialog.SetCheck(side_right, true);
  EXPECT_THAT(stops(Qt::Key_Tab, 5),
              ElementsAre(name_edit, rib_check, class_two, side_right, code_list));
}

TEST_F(QtKeyboard, TabPassesOverWhatIsDisabledOrHidden) {
  dialog.Enable(rib_check, false);
  dialog.Enable(class_one, false);
  dialog.Enable(class_two, false);
  dialog.Enable(class_three, false);
  dialog.Show(code_list, false);
  EXPECT_THAT(stops(Qt::Key_Tab, 3), ElementsAre(name_edit, side_left, material_list));
}

TEST_F(QtKeyboard, TabReachesWhatIsShownAndEnabledAfterwards) {
  dialog.Show(hidden_edit, true);
  dialog.Enable(disabled_check, true);
  EXPECT_THAT(stops(Qt::Key_Tab, 9),
              ElementsAre(name_edit, rib_check, class_one, side_left, code_list, material_list,
                          hidden_edit, disabled_check, ok_button));
}

TEST_F(QtKeyboard, TheFocusStartsAtTheFirstControlThatCanBeUsed) {
  dialog.Enable(name_edit, false);
  EXPECT_EQ(stops(Qt::Key_Tab, 1).front(), rib_check);
}

TEST_F(QtKeyboard, ArrowKeysCheckTheNextRadioButtonOfTheGroup) {
  dialog.SetCheck(class_one, true);
  run([](DialogUser& user) {
    user.widget(class_one).setFocus();
    user.press(Qt::Key_Down);
    EXPECT_EQ(user.focus(), class_two);
    user.press(Qt::Key_Right);
    EXPECT_EQ(user.focus(), class_three);
  });
  EXPECT_FALSE(dialog.IsChecked(class_one) || dialog.IsChecked(class_two));
  EXPECT_TRUE(dialog.IsChecked(class_three));
  EXPECT_THAT(log.lines, ElementsAre("click 107", "click 108"));
}

TEST_F(QtKeyboard, ArrowKeysGoAroundTheEndsOfTheGroup) {
  run([](DialogUser& user) {
    user.widget(class_one).setFocus();
    user.press(Qt::Key_Up);
    EXPECT_EQ(user.focus(), class_three);
    user.press(Qt::Key_Down);
    EXPECT_EQ(user.focus(), class_one);
    user.press(Qt::Key_Left);
    EXPECT_EQ(user.focus(), class_three);
  });
}

TEST_F(QtKeyboard, ArrowKeysPassOverADisabledRadioButton) {
  dialog.Enable(class_two, false);
  run([](DialogUser& user) {
    user.widget(class_one).setFocus();
    user.press(Qt::Key_Down);
    EXPECT_EQ(user.focus(), class_three);
  });
}

TEST_F(QtKeyboard, SpaceChangesACheckBox) {
  run([](DialogUser& user) {
    user.widget(rib_check).setFocus();
    user.press(Qt::Key_Space);
  });
  EXPECT_TRUE(dialog.IsChecked(rib_check));
  EXPECT_THAT(log.lines, ElementsAre("click 104"));
}

class QtKeyboardIn : public SampleDialog, public testing::WithParamInterface<SampleControl> {};

INSTANTIATE_TEST_SUITE_P(EveryKindOfControl, QtKeyboardIn,
                         testing::Values(name_edit, rib_check, class_one, code_list,
                                         material_list));

TEST_P(QtKeyboardIn, EnterPressesTheDefaultButton) {
  fill_list();
  run([](DialogUser& user) {
    user.widget(GetParam()).setFocus();
    user.press(Qt::Key_Return);
  });
  EXPECT_THAT(log.lines, ElementsAre("click 1"));
}

TEST_P(QtKeyboardIn, EscapeIsTold) {
  fill_list();
  run([](DialogUser& user) {
    user.widget(GetParam()).setFocus();
    user.press(Qt::Key_Escape);
  });
  EXPECT_THAT(log.lines, ElementsAre("escape"));
}

TEST_F(QtKeyboard, EnterPressesTheFocusedButton) {
  run([](DialogUser& user) {
    user.widget(apply_button).setFocus();
    user.press(Qt::Key_Enter);
  });
  EXPECT_THAT(log.lines, ElementsAre("click 120"));
}

TEST_F(QtKeyboard, EnterDoesNothingWhileTheDefaultButtonIsDisabled) {
  dialog.Enable(ok_button, false);
  run([](DialogUser& user) { user.press(Qt::Key_Return); });
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtKeyboard, EnterDoesNothingWhileTheDefaultButtonIsHidden) {
  dialog.Show(ok_button, false);
  run([](DialogUser& user) { user.press(Qt::Key_Return); });
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtKeyboardWithoutDefault, NoButtonLooksLikeTheDefaultOne) {
  const auto open = [this] { return dialog.Run(); };
  with_user(open, [this](DialogUser& user) {
    EXPECT_FALSE(user.as<QPushButton>(ok_button).isDefault());
    EXPECT_FALSE(user.as<QPushButton>(apply_button).isDefault());
    dialog.End(0);
  });
}

TEST_F(QtKeyboardWithoutDefault, EnterIsToldAsItIs) {
  const auto open = [this] { return dialog.Run(); };
  with_user(open, [this](DialogUser& user) {
    user.press(Qt::Key_Return);
    dialog.End(0);
  });
  EXPECT_THAT(log.lines, ElementsAre("enter"));
}

TEST_F(QtKeyboardWithoutDefault, EnterPressesTheFocusedButton) {
  const auto open = [this] { return dialog.Run(); };
  with_user(open, [this](DialogUser& user) {
    user.widget(ok_button).setFocus();
    user.press(Qt::Key_Return);
    dialog.End(0);
  });
  EXPECT_THAT(log.lines, ElementsAre("click 1"));
}

TEST_F(QtKeyboard, TheAcceleratorOfALabelGoesToTheControlBehindIt) {
  run([](DialogUser& user) {
    user.widget(apply_button).setFocus();
    user.press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(user.focus(), name_edit);
  });
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtKeyboard, TheAcceleratorOfALabelPassesOverAHiddenControl) {
  dialog.Show(name_edit, false);
  run([](DialogUser& user) {
    user.widget(apply_button).setFocus();
    user.press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(user.focus(), rib_check);
  });
}

// A button that is told to click is down for a moment first.
TEST_F(QtKeyboard, TheAcceleratorOfALabelDoesNotClickTheButtonBehindIt) {
  dialog.Show(name_edit, false);
  run([this](DialogUser& user) {
    user.press(Qt::Key_N, Qt::AltModifier);
    constexpr int longer_than_a_click = 200;
    QTest::qWait(longer_than_a_click);
    EXPECT_FALSE(dialog.IsChecked(rib_check));
  });
}

TEST(QtKeyboardOfLabels, AnAcceleratorWithoutControlBehindItIsDrawnAndGoesNowhere) {
  static constexpr CONTROL_TEMPLATE controls[] = {
      {CONTROL_KIND::Edit, 1, L"", 7, 7, 50, 16, CONTROL_TAB_STOP | CONTROL_BORDER},
      {CONTROL_KIND::Label, 2, L"&Last", 60, 7, 50, 16, 0}};
  static constexpr DIALOG_TEMPLATE label_at_end{504, L"", 120, 30, true, true, controls};
  EventLog log;
  aluframe::toolkit::QtDialog dialog(label_at_end, log, nullptr);
  const auto open = [&dialog] { return dialog.Run(); };
  with_user(open, [&dialog](DialogUser& user) {
    EXPECT_NE(user.as<QLabel>(2).buddy(), nullptr);
    user.press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(user.focus(), 1);
    dialog.End(0);
  });
}

TEST_F(QtKeyboard, TheAcceleratorOfAGroupBoxGoesToItsFirstControl) {
  run([](DialogUser& user) {
    user.press(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(user.focus(), class_one);
  });
}

// The button stays down for a moment before its click is told.
TEST_F(QtKeyboard, TheAcceleratorOfAButtonClicksIt) {
  run([this](DialogUser& user) {
    std::size_t told = 0;
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_R, Qt::Key_L}) {
      user.press(key, Qt::AltModifier);
      ++told;
      EXPECT_TRUE(QTest::qWaitFor([&] { return log.lines.size() == told; }));
    }
  });
  EXPECT_THAT(log.lines, ElementsAre("click 120", "click 104", "click 109"));
  EXPECT_TRUE(dialog.IsChecked(rib_check));
  EXPECT_TRUE(dialog.IsChecked(side_left));
}

}  // namespace
}  // namespace gui_test
