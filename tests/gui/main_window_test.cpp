// The desktop program's window.

#include "apps/desktop/main_window.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "tests/gui/desktop_test.h"
#include "tests/support/used_language.h"
#include "tz_alu/dialogs/resource.h"

namespace gui_test {
namespace {

using namespace aluframe;
using services::SettingsDialog;
using testing::Contains;
using testing::HasSubstr;

class MainWindowTest : public DesktopTest {
 protected:
  desktop::MainWindow window;

  void change_class() {
    with_user(
        [this] {
          window.open_settings(SettingsDialog::code);
          return 0;
        },
        [](DialogUser& user) {
          user.click(IDC_STATIC_ALU_SAFECLASS1);
          user.click(IDOK);
        });
  }
  std::vector<std::string> labels() {
    std::vector<std::string> texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      texts.push_back(label->text().toStdString());
    }
    return texts;
  }
  /// A menu's entry by its text without accelerator.
  QAction& entry(const QString& text) {
    for (QAction* action : window.findChildren<QAction*>()) {
      if (action->text().remove(u'&') == text) return *action;
    }
    throw std::logic_error("no entry " + text.toStdString());
  }
};

/// Answers the next message box by a button. @param text receives what it said
void answer_box(QMessageBox::StandardButton button, std::string* text = nullptr) {
  QTimer::singleShot(0, [button, text] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) {
      ADD_FAILURE() << "no message box opened";
      return;
    }
    if (text != nullptr) *text = box->text().toStdString();
    QTest::mouseClick(box->button(button), Qt::LeftButton);
  });
}

TEST_F(MainWindowTest, WithoutAModelThereIsNothingToSaveOrDesign) {
  EXPECT_FALSE(entry("Save").isEnabled());
  EXPECT_FALSE(entry("Design").isEnabled());
  EXPECT_THAT(labels(), Contains("Open a model to see its frame."));
}

TEST_F(MainWindowTest, ShowsTitleFileAndSettings) {
  window.open(file);
  const std::vector<std::string> shown = labels();
  EXPECT_THAT(shown, Contains("Workshop portal with crane brackets"));
  EXPECT_THAT(shown, Contains(HasSubstr(file.string())));
  EXPECT_THAT(shown, Contains("GB50429-2007"));
  EXPECT_THAT(shown, Contains("0.9"));
  EXPECT_EQ(window.windowTitle(), "portal.json[*] - AluFrame");
  EXPECT_TRUE(entry("Design").isEnabled());
}

// 6061-T6 in Table 4.3.4 of GB 50429-2007.
TEST_F(MainWindowTest, ShowsTheMaterials) {
  window.open(file);
  const auto* table = window.findChild<QTableWidget*>();
  std::vector<std::string> cells;
  for (int i = 0; i < table->columnCount(); ++i) {
    cells.push_back(table->item(0, i)->text().toStdString());
  }
  EXPECT_THAT(cells, testing::ElementsAre("1", "", "GB50429-07(A)", "6061-T6", "70000", "0.3",
                                          "265", "240", "240"));
}

TEST_F(MainWindowTest, ItsTextsCanBeChinese) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  const desktop::MainWindow chinese;
  EXPECT_EQ(chinese.menuBar()->actions()[3]->text(), u"\u8BBE\u8BA1(&D)");
}

TEST_F(MainWindowTest, AChangeIsMarkedUntilItIsSaved) {
  window.open(file);
  EXPECT_FALSE(window.isWindowModified());
  change_class();
  EXPECT_TRUE(window.isWindowModified());
  EXPECT_TRUE(entry("Save").isEnabled());
  EXPECT_EQ(model_of_file().design->safety_class, 2);
  entry("Save").trigger();
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_FALSE(entry("Save").isEnabled());
  EXPECT_EQ(model_of_file().design->safety_class, 1);
}

TEST_F(MainWindowTest, AChangeOfADialogCanBeUndone) {
  window.open(file);
  change_class();
  EXPECT_EQ(window.document()->model().design->safety_class, 1);
  entry("Undo design settings").trigger();
  EXPECT_EQ(window.document()->model().design->safety_class, 2);
  EXPECT_FALSE(window.isWindowModified());
  entry("Redo design settings").trigger();
  EXPECT_EQ(window.document()->model().design->safety_class, 1);
}

// The class is the one that holds where a file says none.
TEST_F(MainWindowTest, UndoAfterSavingBringsTheFileBackByteByByte) {
  const std::string before = text_of_file();
  ASSERT_THAT(before, HasSubstr("\"safety_class\": 2"));
  window.open(file);
  change_class();
  EXPECT_TRUE(window.save());
  entry("Undo design settings").trigger();
  EXPECT_TRUE(window.isWindowModified());
  EXPECT_TRUE(window.save());
  EXPECT_EQ(text_of_file(), before);
}

TEST_F(MainWindowTest, SettingsThatCameIntoAFileAreTheDefaultsAfterUndo) {
  std::string text = text_of_file();
  const std::size_t begin = text.find("  \"settings\""), end = text.find('\n', begin);
  std::ofstream(file) << text.erase(begin, end + 1 - begin);
  window.open(file);
  ASSERT_EQ(window.document()->model().design, std::nullopt);
  change_class();
  EXPECT_TRUE(window.save());
  entry("Undo design settings").trigger();
  EXPECT_TRUE(window.isWindowModified());
  EXPECT_TRUE(window.save());
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_EQ(model_of_file().design, model::DesignSettings());
}

TEST_F(MainWindowTest, AChangeShowsInTheOverview) {
  window.open(file);
  change_class();
  EXPECT_THAT(labels(), Contains("1"));
}

TEST_F(MainWindowTest, AProblemWithAFileIsToldAndTheOpenModelStays) {
  window.open(file);
  const std::filesystem::path broken = folder.filePath("broken.json").toStdString();
  std::ofstream(broken) << "{";
  std::string told;
  answer_box(QMessageBox::Ok, &told);
  window.open(broken);
  EXPECT_THAT(told, HasSubstr("broken.json"));
  ASSERT_NE(window.document(), nullptr);
  EXPECT_EQ(window.document()->path(), file);
}

TEST_F(MainWindowTest, AProblemWithSavingIsToldAndTheChangeStays) {
  window.open(file);
  change_class();
  std::filesystem::remove_all(folder.path().toStdString());
  std::string told;
  answer_box(QMessageBox::Ok, &told);
  EXPECT_FALSE(window.save());
  EXPECT_THAT(told, HasSubstr("portal.json"));
  EXPECT_TRUE(window.isWindowModified());
}

TEST_F(MainWindowTest, ClosingWithoutChangesAsksNothing) {
  window.open(file);
  window.show();
  EXPECT_TRUE(window.close());
}

TEST_F(MainWindowTest, ClosingMaySaveChanges) {
  window.open(file);
  change_class();
  window.show();
  answer_box(QMessageBox::Save);
  EXPECT_TRUE(window.close());
  EXPECT_EQ(model_of_file().design->safety_class, 1);
}

TEST_F(MainWindowTest, ClosingMayDropChanges) {
  window.open(file);
  change_class();
  window.show();
  answer_box(QMessageBox::Discard);
  EXPECT_TRUE(window.close());
  EXPECT_EQ(model_of_file().design->safety_class, 2);
}

TEST_F(MainWindowTest, ClosingMayBeTakenBack) {
  window.open(file);
  change_class();
  window.show();
  answer_box(QMessageBox::Cancel);
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(window.isWindowModified());
}

TEST_F(MainWindowTest, AnotherModelIsNotOpenedWhileTheUserKeepsTheChanges) {
  window.open(file);
  change_class();
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  std::filesystem::copy_file(file, other);
  answer_box(QMessageBox::Cancel);
  window.open(other);
  EXPECT_EQ(window.document()->path(), file);
}

// The message of the dialog about a wrong factor, in a real box over the dialog.
TEST_F(MainWindowTest, AMessageOfADialogIsABoxOverIt) {
  window.open(file);
  std::string told;
  with_user(
      [this] {
        window.open_settings(SettingsDialog::code);
        return 0;
      },
      [&](DialogUser& user) {
        user.type(IDC_EDIT_ALU_SECTSTENGTH, "0");
        answer_box(QMessageBox::Ok, &told);
        user.click(IDOK);
        EXPECT_TRUE(user.is_open());
      });
  EXPECT_EQ(QString::fromStdString(told).size(), 11);
  EXPECT_FALSE(window.isWindowModified());
}

}  // namespace
}  // namespace gui_test
