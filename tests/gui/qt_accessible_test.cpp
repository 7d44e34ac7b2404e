// What a reader of the screen is told of a dialog of widgets.

#include <QAccessible>
#include <QLabel>

#include "tests/gui/sample_test.h"

namespace gui_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtAccessible : public SampleDialog {
 protected:
  std::string name(int id) { return text(id, QAccessible::Name); }
  std::string description(int id) { return text(id, QAccessible::Description); }
  /// The texts of the labels that a control is tied to.
  std::vector<std::string> labels(int id) {
    std::vector<std::string> texts;
    for (const auto& [other, relation] : of(id).relations(QAccessible::Label)) {
      texts.push_back(other->text(QAccessible::Name).toStdString());
    }
    return texts;
  }

 private:
  QAccessibleInterface& of(int id) {
    return *QAccessible::queryAccessibleInterface(
        dialog.window().findChild<QWidget*>(QString::number(id)));
  }
  std::string text(int id, QAccessible::Text what) { return of(id).text(what).toStdString(); }
};

TEST_F(QtAccessible, AFieldHasItsLabelsTextWithoutAcceleratorAndColon) {
  EXPECT_EQ(name(name_edit), "Name");
  EXPECT_EQ(description(name_edit), "Unit");
  EXPECT_THAT(labels(name_edit), ElementsAre("Name:"));
}

TEST_F(QtAccessible, AFieldBehindAUnitIsNotNamedByIt) {
  EXPECT_EQ(name(no_tab_edit), "");
  EXPECT_THAT(labels(no_tab_edit), IsEmpty());
  EXPECT_EQ(name(rib_check), "Rib");
  EXPECT_THAT(labels(rib_check), IsEmpty());
}

TEST_F(QtAccessible, ANewTextOfALabelIsTheFieldsNewName) {
  dialog.SetText(name_label, L"\u540D\u79F0\uFF1A");
  dialog.SetText(unit_label, L"mm");
  EXPECT_EQ(name(name_edit), "\u540D\u79F0");
  EXPECT_EQ(description(name_edit), "mm");
}

TEST_F(QtAccessible, OfTwoFieldsInOnePlaceTheLabelIsTiedToTheShownOne) {
  dialog.Show(hidden_edit, true);
  dialog.Show(name_edit, false);
  EXPECT_EQ(name(hidden_edit), "Name");
  EXPECT_THAT(labels(hidden_edit), ElementsAre("Name:"));
  EXPECT_THAT(labels(name_edit), IsEmpty());
}

TEST_F(QtAccessible, ARadioButtonIsDescribedByItsGroup) {
  EXPECT_EQ(name(class_two), "Two");
  EXPECT_EQ(description(class_two), "Class");
}

}  // namespace
}  // namespace gui_test
