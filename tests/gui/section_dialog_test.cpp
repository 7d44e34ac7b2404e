// The dimensions of sections, changed in their dialog.

#include "apps/desktop/section_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "tests/gui/desktop_test.h"

namespace gui_test {
namespace {

using namespace aluframe;
using testing::HasSubstr;

/// Section 1 is an H of 240 mm with flanges of 130 and 160 mm, web 6 mm.
class SectionDialogTest : public DesktopTest {
 protected:
  SectionDialogTest() {
    auto opened = desktop::ModelDocument::open(file);
    workspace.show_document(std::get<desktop::ModelDocument>(std::move(opened)));
    dialog = std::make_unique<desktop::SectionDialog>(nullptr, workspace, undo, 1);
    dialog->show();
  }

  QLineEdit& edit(int row) { return *dialog->findChildren<QLineEdit*>().at(row); }
  void type(int row, const char* text) {
    edit(row).selectAll();
    QTest::keyClicks(&edit(row), QString::fromLatin1(text));
  }
  QPushButton& ok() {
    return *dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  }
  std::string labels() {
    std::string all;
    for (const QLabel* label : dialog->findChildren<QLabel*>()) {
      all += label->text().toStdString() + '\n';
    }
    return all;
  }
  const model::Section& section() { return *workspace.model().sections.find(1); }

  desktop::Workspace workspace;
  QUndoStack undo;
  std::unique_ptr<desktop::SectionDialog> dialog;
};

TEST_F(SectionDialogTest, ShowsTheDimensionsInTheUnitOfSections) {
  EXPECT_EQ(edit(0).text(), "240");
  EXPECT_EQ(edit(1).text(), "130");
  EXPECT_EQ(edit(2).text(), "6");
  EXPECT_THAT(labels(), HasSubstr("Shape H"));
  EXPECT_THAT(labels(), HasSubstr("H, mm"));
}

TEST_F(SectionDialogTest, AChangeIsInTheModelAfterOkAndCanBeUndone) {
  type(0, "300");
  EXPECT_EQ(section().dimensions[0], 240.0);
  QTest::mouseClick(&ok(), Qt::LeftButton);
  EXPECT_EQ(section().dimensions[0], 300.0);
  EXPECT_TRUE(workspace.document()->is_modified());
  undo.undo();
  EXPECT_EQ(section().dimensions[0], 240.0);
  EXPECT_FALSE(workspace.document()->is_modified());
}

TEST_F(SectionDialogTest, WhatIsSavedReadsBack) {
  type(2, "8.5");
  QTest::mouseClick(&ok(), Qt::LeftButton);
  EXPECT_TRUE(workspace.document()->save().is_saved());
  EXPECT_EQ(model_of_file().sections.find(1)->dimensions[2], 8.5);
  EXPECT_EQ(model_of_file().sections.find(1)->name, section().name);
}

TEST_F(SectionDialogTest, WrongDimensionsAreToldAndNotTaken) {
  type(2, "500");
  EXPECT_FALSE(ok().isEnabled());
  EXPECT_THAT(labels(), HasSubstr("tw is 500 mm"));
  type(2, "thick");
  EXPECT_FALSE(ok().isEnabled());
  EXPECT_THAT(labels(), HasSubstr("tw is no number"));
  type(2, "7");
  EXPECT_TRUE(ok().isEnabled());
}

TEST_F(SectionDialogTest, CancelChangesNothing) {
  type(0, "300");
  dialog->reject();
  EXPECT_EQ(section().dimensions[0], 240.0);
  EXPECT_EQ(undo.count(), 0);
}

}  // namespace
}  // namespace gui_test
