// The history of what has happened.

#include "apps/desktop/history_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <fstream>
#include <sstream>

#include "apps/desktop/workspace.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {
namespace {

using namespace aluframe;

class HistoryPanelTest : public DesktopTest {
 protected:
  desktop::Workspace workspace;
  desktop::HistoryPanel panel{workspace};

  static void expect_form(const QString& text, const char* form) {
    EXPECT_TRUE(QRegularExpression(form).match(text).hasMatch()) << text.toStdString();
  }
};

TEST_F(HistoryPanelTest, ALineHasItsTimeOfDay) {
  workspace.tell("opened frame.json");
  expect_form(panel.text(), R"(^\d\d:\d\d:\d\d  opened frame\.json$)");
}

TEST_F(HistoryPanelTest, LinesOfOneTextStandBelowEachOther) {
  workspace.tell("one\ntwo\n");
  expect_form(panel.text(), R"(^\d\d:\d\d:\d\d  one\n          two$)");
}

TEST_F(HistoryPanelTest, ATextIsShownAsItIs) {
  workspace.tell("<b>a & b</b>");
  expect_form(panel.text(), "<b>a & b</b>$");
}

TEST_F(HistoryPanelTest, OnlyTheLastOfVeryManyLinesAreKept) {
  for (int i = 1; i <= desktop::HistoryPanel::most_lines + 5; ++i) {
    workspace.tell("line " + std::to_string(i));
  }
  const QStringList lines = panel.text().split('\n');
  EXPECT_EQ(lines.size(), desktop::HistoryPanel::most_lines);
  EXPECT_TRUE(lines.first().endsWith("line 6"));
}

TEST_F(HistoryPanelTest, ItCannotBeWrittenIn) {
  EXPECT_TRUE(panel.findChild<QPlainTextEdit*>()->isReadOnly());
}

TEST_F(HistoryPanelTest, IsCopiedSavedAndCleared) {
  const auto buttons = panel.findChildren<QPushButton*>();
  for (const QPushButton* button : buttons) EXPECT_FALSE(button->isEnabled());
  workspace.tell("first");
  workspace.tell("second");
  for (const QPushButton* button : buttons) EXPECT_TRUE(button->isEnabled());
  panel.copy();
  EXPECT_EQ(QApplication::clipboard()->text(), panel.text());
  const std::filesystem::path path = folder.filePath("history.txt").toStdString();
  ASSERT_TRUE(panel.save_as(path));
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  EXPECT_EQ(content.str(), panel.text().toStdString() + "\n");
  panel.clear();
  EXPECT_EQ(panel.text(), "");
}

}  // namespace
}  // namespace gui_test
