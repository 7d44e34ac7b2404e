// Where controls stand in a dialog of widgets, and that no text is cut.

#include <QAbstractButton>
#include <QLabel>

#include "aluframe/toolkit/qt/dialog_units.h"
#include "tests/gui/sample_test.h"

namespace gui_test {
namespace {

using aluframe::toolkit::average_character_width;
using aluframe::toolkit::DialogUnits;

class QtLayout : public SampleDialog {
 protected:
  QRect place(int id) {
    return dialog.window().findChild<QWidget*>(QString::number(id))->geometry();
  }
};

/// A label and a button, too narrow for a long text, and an edit that is aligned with the button.
constexpr CONTROL_TEMPLATE narrow_controls[] = {
    {CONTROL_KIND::Label, 1, L"x", 10, 10, 10, 12, 0},
    {CONTROL_KIND::PushButton, 2, L"x", 60, 10, 80, 20, CONTROL_TAB_STOP},
    {CONTROL_KIND::Edit, 3, L"", 60, 40, 80, 20, CONTROL_TAB_STOP | CONTROL_BORDER},
};
constexpr DIALOG_TEMPLATE narrow_dialog{502, L"", 150, 70, true, true, narrow_controls};

TEST(DialogUnits, AreAQuarterOfTheAverageWidthByAnEighthOfTheHeight) {
  const QFontMetrics font{QFont()};
  const DialogUnits units(font);
  EXPECT_EQ(units.width(4), average_character_width(font));
  EXPECT_EQ(units.height(8), font.height());
  EXPECT_EQ(units.width(400), 100 * average_character_width(font));
  EXPECT_EQ(units.height(80), 10 * font.height());
}

// All letters of a fixed-pitch font are as wide as any of them.
TEST(DialogUnits, TakeTheMeanOfTheLetters) {
  QFont font(QStringLiteral("DejaVu Sans Mono"));
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  const QFontMetrics metrics(font);
  EXPECT_NEAR(average_character_width(metrics), metrics.horizontalAdvance(u'x'), 1);
}

TEST(DialogUnits, NeighboursMeetInPixelsWhateverTheirRounding) {
  const DialogUnits units{QFontMetrics(QFont())};
  for (int x = 0; x < 50; ++x) {
    const QRect left = units.rect(x, 0, 13, 8);
    const QRect right = units.rect(x + 13, 0, 7, 8);
    EXPECT_EQ(left.x() + left.width(), right.x()) << x;
  }
}

TEST(DialogUnits, AreStretchedInBothDirections) {
  DialogUnits units{QFontMetrics(QFont())};
  const int width = units.width(400);
  const int height = units.height(80);
  units.stretch(1.5, 2.0);
  EXPECT_EQ(units.width(400), width * 3 / 2);
  EXPECT_EQ(units.height(80), height * 2);
}

TEST_F(QtLayout, ControlsAlignedInTheTemplateAreAlignedOnTheScreen) {
  EXPECT_EQ(place(class_one).left(), place(class_two).left());
  EXPECT_EQ(place(class_one).width(), place(class_two).width());
  EXPECT_EQ(place(ok_button).top(), place(apply_button).top());
}

TEST_F(QtLayout, TwoControlsMayShareAPlace) {
  EXPECT_EQ(place(name_edit), place(hidden_edit));
}

TEST_F(QtLayout, AClosedDropDownListIsNotAsHighAsAnOpenOne) {
  EXPECT_EQ(place(code_list).height(), DialogUnits(dialog.window().fontMetrics()).height(14));
}

TEST_F(QtLayout, EveryControlLiesInsideTheWindow) {
  const QRect window(QPoint(0, 0), dialog.window().maximumSize());
  for (const QWidget* widget :
       dialog.window().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    EXPECT_TRUE(window.contains(widget->geometry())) << widget->objectName().toStdString();
  }
}

TEST_F(QtLayout, GroupBoxesLieBehindTheirControls) {
  run([](DialogUser& user) {
    const QPoint inside = user.widget(class_two).geometry().center();
    EXPECT_EQ(user.window().childAt(inside), &user.widget(class_two));
    const QPoint in_a_box_without_name = user.widget(side_right).geometry().center();
    EXPECT_EQ(user.window().childAt(in_a_box_without_name), &user.widget(side_right));
  });
}

TEST(QtStretch, ALongerTextStretchesTheWholeDialog) {
  EventLog log;
  aluframe::toolkit::QtDialog dialog(narrow_dialog, log, nullptr);
  const int before = dialog.window().width();
  dialog.SetText(1, L"A text that is far wider than its label");
  auto* label = dialog.window().findChild<QLabel*>("1");
  auto* button = dialog.window().findChild<QAbstractButton*>("2");
  auto* edit = dialog.window().findChild<QWidget*>("3");
  EXPECT_GE(label->width(), label->sizeHint().width());
  EXPECT_GT(dialog.window().width(), before);
  EXPECT_EQ(button->x(), edit->x());
  EXPECT_EQ(button->width(), edit->width());
  // 10 + 10 of 60 units behind the label's left edge, in the template and on the screen.
  EXPECT_LT(label->geometry().right(), button->x());
}

TEST(QtStretch, AShorterTextLeavesTheDialogAsItHasGrown) {
  EventLog log;
  aluframe::toolkit::QtDialog dialog(narrow_dialog, log, nullptr);
  dialog.SetText(1, L"A text that is far wider than its label");
  const int grown = dialog.window().width();
  dialog.SetText(1, L"x");
  EXPECT_EQ(dialog.window().width(), grown);
}

TEST(QtStretch, AListThatDoesNotHoldItsColumnsStretchesTheDialog) {
  static constexpr CONTROL_TEMPLATE list[] = {
      {CONTROL_KIND::List, 1, L"", 0, 0, 50, 50, CONTROL_REPORT_VIEW}};
  static constexpr DIALOG_TEMPLATE with_list{503, L"", 50, 50, true, true, list};
  EventLog log;
  aluframe::toolkit::QtDialog dialog(with_list, log, nullptr);
  dialog.AddColumn(1, L"a", 300, true);
  dialog.AddColumn(1, L"b", 300, true);
  EXPECT_GE(dialog.window().width(), 600);
}

}  // namespace
}  // namespace gui_test
