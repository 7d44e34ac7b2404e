// The window as a whole: its panels in step, edits, and what it remembers.

#include <QMenu>
#include <QTreeView>

#include "tests/gui/window_fixture.h"

namespace gui_test {
namespace {

using namespace aluframe;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST_F(WindowTest, ViewTreeAndTableAreInStepWhenTheViewIsClicked) {
  tables().show_table(desktop::TableKind::elements);
  click_in_view(1);
  click_in_view(14, Qt::ControlModifier);
  EXPECT_THAT(selected(), ElementsAre(1, 14));
  EXPECT_THAT(selected_in_view(), ElementsAre(1, 14));
  EXPECT_THAT(selected_in_table(), ElementsAre("1", "14"));
  EXPECT_THAT(status(), Contains("2 elements selected"));
}

TEST_F(WindowTest, ViewAndTableAreInStepWhenTheTreeIsClicked) {
  tables().show_table(desktop::TableKind::elements);
  QTreeView& view = tree().view();
  QModelIndex sections = view.model()->index(0, 0);
  for (const char* text : {"Sections", "7 Tie rod 22"}) {
    const auto found = view.model()->match(view.model()->index(0, 0, sections), Qt::DisplayRole,
                                           QString::fromLatin1(text), 1, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << text;
    sections = found[0];
    view.expand(sections.parent());
  }
  view.scrollTo(sections);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(sections).center());
  EXPECT_THAT(selected_in_view(), ElementsAre(17, 18)) << "both ties";
  EXPECT_THAT(selected_in_table(), ElementsAre("17", "18"));
}

TEST_F(WindowTest, ViewIsInStepWhenTheTableIsClicked) {
  desktop::TableView& view = tables().view();
  tables().show_table(desktop::TableKind::elements);
  for (const int row : {4, 6}) {
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton,
                      row == 4 ? Qt::NoModifier : Qt::ControlModifier,
                      view.visualRect(index).center());
  }
  EXPECT_THAT(selected_in_view(), ElementsAre(5, 7));
}

TEST_F(WindowTest, AnEditOfTwoElementsIsUndoneUntilNothingIsModified) {
  workspace().select({3, 6});
  attributes().type(QStringLiteral("Effective length factors"), QStringLiteral("1.5"));
  EXPECT_TRUE(window().isWindowModified());
  EXPECT_EQ(element(6).design.length_factors->y, 1.5);
  entry("Undo Effective length factors").trigger();
  EXPECT_EQ(element(3).design.length_factors->y, 2.0);
  EXPECT_EQ(element(6).design.length_factors->y, 2.0);
  EXPECT_FALSE(window().isWindowModified());
  entry("Redo Effective length factors").trigger();
  EXPECT_TRUE(window().isWindowModified());
  EXPECT_EQ(element(6).design.length_factors->y, 1.5);
}

TEST_F(WindowTest, UndoLeadsBackToWhatWasSaved) {
  edit();
  ASSERT_TRUE(window().save());
  EXPECT_FALSE(window().isWindowModified());
  entry("Undo Effective length factors").trigger();
  EXPECT_TRUE(window().isWindowModified()) << "the file has 1.5";
  entry("Redo Effective length factors").trigger();
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(WindowTest, HidesIsolatesAndShowsFromTheMenu) {
  workspace().select({1, 2});
  entry("Hide selected").trigger();
  EXPECT_EQ(workspace().hidden_count(), 2U);
  EXPECT_THAT(selected(), IsEmpty());
  entry("Select all").trigger();
  EXPECT_EQ(selected().size(), 29U) << "what is shown";
  workspace().select({3});
  entry("Isolate selected").trigger();
  EXPECT_EQ(workspace().hidden_count(), 30U);
  entry("Show all").trigger();
  EXPECT_EQ(workspace().hidden_count(), 0U);
  entry("Select nothing").trigger();
  EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(WindowTest, TheLanguageIsRememberedForTheNextStart) {
  const BoxAnswer told(QMessageBox::Ok);
  entry(QString::fromUtf8("中文")).trigger();
  EXPECT_THAT(told.text(), HasSubstr("started again"));
  EXPECT_EQ(QSettings().value(QStringLiteral("language")).toString(), u"zh");
}

TEST_F(WindowTest, TheLayoutIsRemembered) {
  window().resize(1180, 790);
  dock("display").hide();
  window().addDockWidget(Qt::LeftDockWidgetArea, &dock("history"));
  EXPECT_TRUE(window().close());
  start();
  EXPECT_EQ(window().size(), QSize(1180, 790));
  auto* display = window().findChild<QDockWidget*>(QStringLiteral("display"));
  EXPECT_TRUE(display->isHidden());
  auto* history = window().findChild<QDockWidget*>(QStringLiteral("history"));
  EXPECT_EQ(window().dockWidgetArea(history), Qt::LeftDockWidgetArea);
}

TEST_F(WindowTest, AModelWithoutACheckIsShownAfterOneWithResults) {
  check_all();
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  std::filesystem::copy_file(file, other);
  window().open(other);
  EXPECT_THAT(status(), Contains("not checked yet"));
  EXPECT_THAT(status(), Not(Contains(HasSubstr("element fails"))));
}

}  // namespace
}  // namespace gui_test
