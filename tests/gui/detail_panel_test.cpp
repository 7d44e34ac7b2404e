// Everything about one element: what the panel shows against what is stored, and against hand
// calculation.

#include "apps/desktop/detail_panel.h"

#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>
#include <QThreadPool>
#include <QTreeWidget>
#include <cmath>
#include <fstream>
#include <memory>
#include <sstream>

#include "aluframe/run/check.h"
#include "aluframe/run/results.h"
#include "aluframe/tables/result_tables.h"
#include "apps/desktop/force_plot.h"
#include "apps/desktop/workspace.h"
#include "tests/gui/desktop_test.h"
#include "tests/support/used_language.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::DetailPanel;
using desktop::ForcePlot;
using testing::HasSubstr;
using testing::Not;

/// Elements of the example, whose file has kN and m, and mm for sections.
constexpr model::Number column = 1, bracket = 3, tie = 17;

enum Tab { checks, steps, forces, section };

void replace_in_file(const std::filesystem::path& file, const std::string& from,
                     const std::string& to) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  std::string changed = text.str();
  const std::size_t at = changed.find(from);
  ASSERT_NE(at, std::string::npos) << from;
  changed.replace(at, from.size(), to);
  std::ofstream(file, std::ios::binary) << changed;
}

class DetailPanelTest : public DesktopTest {
 protected:
  DetailPanelTest() {
    panel->resize(600, 800);
    panel->show();
  }

  desktop::Workspace workspace;
  std::unique_ptr<DetailPanel> panel = std::make_unique<DetailPanel>(workspace);

  void check(const run::Selection& selection = {}) {
    const auto prepared = run::prepare({.model = file}, selection);
    run::CheckOptions options;
    options.results = run::result_path_of(file);
    run::check(std::get<run::Input>(prepared), options);
  }
  void open() {
    workspace.show_document(std::get<desktop::ModelDocument>(desktop::ModelDocument::open(file)));
  }
  void open_checked() {
    check();
    open();
  }
  void show_tab(Tab tab) { panel->findChild<QTabWidget*>()->setCurrentIndex(tab); }
  template <class Part>
  Part& part(Tab tab, const char* name) {
    auto* page = panel->findChild<QTabWidget*>()->widget(tab);
    auto* found = page->findChild<Part*>(QString::fromLatin1(name));
    if (found == nullptr) throw std::logic_error(std::string("no part ") + name);
    return *found;
  }
  template <class Part>
  Part& any_part(Tab tab) {
    return *panel->findChild<QTabWidget*>()->widget(tab)->findChild<Part*>();
  }
  std::string head(const char* name) {
    return panel->findChild<QLabel*>(QString::fromLatin1(name))->text().toStdString();
  }
  std::string cursor_text() { return part<QLabel>(forces, "cursor").text().toStdString(); }
  void wait_for_forces() {
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return !any_part<ForcePlot>(forces).cursor_text().isEmpty(); }, 20000));
  }
  void wait_for_steps() {
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return any_part<QTreeWidget>(steps).topLevelItemCount() > 0; }, 20000));
  }
  void choose_force(picture::ForceComponent component, model::Number combination) {
    const auto boxes = panel->findChild<QTabWidget*>()->widget(forces)->findChildren<QComboBox*>();
    boxes[0]->setCurrentIndex(static_cast<int>(component));
    boxes[1]->setCurrentIndex(boxes[1]->findData(combination));
  }
};

TEST_F(DetailPanelTest, WithoutAModelOrASelectionItSaysSo) {
  EXPECT_EQ(head("title"), "Nothing is selected.");
  open();
  EXPECT_EQ(head("title"), "Nothing is selected.");
  EXPECT_FALSE(panel->findChild<QTabWidget*>()->isVisible());
}

TEST_F(DetailPanelTest, TellsWhatTheElementIs) {
  open();
  workspace.select({column});
  EXPECT_EQ(head("title"), "Element 1  Column A1 below");
  EXPECT_EQ(head("Member"), "1 Column A1");
  EXPECT_EQ(head("Section"), "1 Column H 240x130/160");
  EXPECT_EQ(head("Material"), "1 6061-T6");
  EXPECT_EQ(head("Length"), "3.6 m");  // node 2 stands 3.6 m above node 1
  EXPECT_EQ(head("Kind"), "column");
}

TEST_F(DetailPanelTest, OfSeveralSelectedElementsItShowsTheLastPicked) {
  open();
  workspace.select({column, bracket, tie});
  EXPECT_EQ(head("title"), "Element 17  Tie 1  (of 3 selected)");
  workspace.select({column}, desktop::Picking::add);
  EXPECT_EQ(head("title"), "Element 1  Column A1 below  (of 3 selected)");
  workspace.clear_selection();
  EXPECT_EQ(head("title"), "Nothing is selected.");
}

TEST_F(DetailPanelTest, TellsThatAnElementIsHidden) {
  open();
  workspace.select({bracket});
  workspace.hide_selected();
  workspace.select({bracket});
  EXPECT_THAT(head("notices"), HasSubstr("The element is hidden."));
  workspace.show_all();
  EXPECT_EQ(head("notices"), "");
}

TEST_F(DetailPanelTest, ChecksAreThoseOfTheResults) {
  open_checked();
  workspace.select({bracket});
  const auto& table = any_part<QTableWidget>(checks);
  const run::ElementResult& stored = *workspace.results()->find(bracket);
  ASSERT_EQ(table.rowCount(), static_cast<int>(stored.items.size()));
  for (int row = 0; row < table.rowCount(); ++row) {
    const store::GoverningRow& check = stored.items[static_cast<std::size_t>(row)];
    SCOPED_TRACE(tables::item_name(check.item));
    EXPECT_EQ(table.item(row, 0)->text().toStdString(), tables::item_name(check.item));
    EXPECT_NEAR(table.item(row, 3)->text().toDouble(), check.governing.dDemand, 5e-4);
    EXPECT_NEAR(table.item(row, 4)->text().toDouble(), check.governing.dCapacity, 5e-4);
    EXPECT_NEAR(table.item(row, 1)->text().toDouble(), check.governing.Ratio(), 5e-5);
    EXPECT_EQ(table.item(row, 2)->text().toStdString(),
              check.governing.Ratio() > 1.0 ? "✗ fails" : "✓ passes");
  }
}

// Bracket: cantilever of 0.5 m, k = 2, so that kl = 1000 mm; T 180x120, web 8, flange 10. About z
// it buckles in torsion as well, about y in bending alone. Of its rectangles 120x10 and 8x170:
//   A = 1200 + 1360 = 2560 mm², centroid (1200·5 + 1360·95) / 2560 = 52.8125 mm below the top,
//   Iyy = 120·10³/12 + 1200·47.8125² + 8·170³/12 + 1360·42.1875².
TEST_F(DetailPanelTest, SlendernessOfTheBracketIsThatOfAHandCalculation) {
  open_checked();
  workspace.select({bracket});
  const double area = 2560.0;
  const double iyy =
      120e3 / 12 + 1200 * 47.8125 * 47.8125 + 8.0 * 170 * 170 * 170 / 12 + 1360 * 42.1875 * 42.1875;
  const auto found = any_part<QTableWidget>(checks).findItems("slenderness y", Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1);
  const QTableWidgetItem* demand = found.front()->tableWidget()->item(found.front()->row(), 3);
  EXPECT_NEAR(demand->text().toDouble(), 1000.0 / std::sqrt(iyy / area), 5e-4);
}

TEST_F(DetailPanelTest, SecondOpinionAndRemarksStandBelowTheChecks) {
  open_checked();
  workspace.select({bracket});
  const std::string said = part<QLabel>(checks, "said").text().toStdString();
  const run::ShownResults& results = *workspace.results();
  const std::string safe = tables::safe_text(results.safe.at(bracket), results.info);
  EXPECT_THAT(said, HasSubstr(QString::fromStdString(safe).toHtmlEscaped().toStdString()));
  EXPECT_THAT(said, HasSubstr("Remarks"));
}

TEST_F(DetailPanelTest, WithoutResultsItSaysSo) {
  open();
  workspace.select({bracket});
  EXPECT_THAT(part<QLabel>(checks, "said").text().toStdString(), HasSubstr("has not been checked"));
  show_tab(steps);
  EXPECT_THAT(part<QLabel>(steps, "said").text().toStdString(), HasSubstr("has not been checked"));
  show_tab(forces);
  wait_for_forces();
  EXPECT_THAT(cursor_text(), Not(HasSubstr("ratio")));
}

TEST_F(DetailPanelTest, AnElementThatTheRunLeftOutIsNotCovered) {
  run::Selection few;
  few.elements = std::get<model::NumberRanges>(model::parse_number_ranges("1-3"));
  check(few);
  open();
  workspace.select({tie});
  EXPECT_THAT(part<QLabel>(checks, "said").text().toStdString(), HasSubstr("do not cover"));
  show_tab(steps);
  EXPECT_THAT(part<QLabel>(steps, "said").text().toStdString(), HasSubstr("no check"));
  EXPECT_EQ(any_part<QComboBox>(steps).count(), 0);
}

// Element 1 in combination 2, 1.3 G + 1.5 S, by the forces of the file:
//   N at I: 1.3·(−8.892992) + 1.5·(−10.117617) = −26.737 kN,
//   My at J: 1.3·(−3.87792) + 1.5·(−5.185681) = −12.820 kN·m.
TEST_F(DetailPanelTest, ForcesAtTheCursorAreThoseOfTheCombination) {
  open_checked();
  workspace.select({column});
  show_tab(forces);
  wait_for_forces();
  choose_force(picture::ForceComponent::n, 2);
  wait_for_forces();
  auto& plot = any_part<ForcePlot>(forces);
  plot.set_cursor(0.0);
  EXPECT_THAT(cursor_text(), HasSubstr("x = 0 m (I)"));
  EXPECT_THAT(cursor_text(), HasSubstr("N −26.7 kN"));
  choose_force(picture::ForceComponent::my, 2);
  plot.set_cursor(1.0);
  EXPECT_THAT(cursor_text(), HasSubstr("x = 3.6 m (J)"));
  EXPECT_THAT(cursor_text(), HasSubstr("My −12.8 kN·m"));
}

// Element 1 in combination 5, combination 2 with 0.7 of the envelope of 1.5 crane A and 1.5 crane
// B:
//   N at I, largest: −26.737 + 0.7·1.5·(−3.709266) = −30.632 kN,
//   smallest: −26.737 + 0.7·1.5·(−13.048037) = −40.438 kN.
TEST_F(DetailPanelTest, OfAnEnvelopeBothSidesAreShown) {
  open();
  workspace.select({column});
  show_tab(forces);
  wait_for_forces();
  choose_force(picture::ForceComponent::n, 5);
  wait_for_forces();
  any_part<ForcePlot>(forces).set_cursor(0.0);
  EXPECT_THAT(cursor_text(), HasSubstr("N largest −30.6 kN, smallest −40.4 kN"));
}

TEST_F(DetailPanelTest, TellsThatChangesAreNotSaved) {
  open_checked();
  workspace.select({column});
  EXPECT_THAT(head("notices"), Not(HasSubstr("not saved")));
  workspace.document()->editable().design->strength_ratio = 0.5;
  workspace.tell_edited();
  EXPECT_THAT(head("notices"), HasSubstr("not saved"));
  show_tab(forces);
  wait_for_forces();
  EXPECT_THAT(part<QLabel>(forces, "said").text().toStdString(), HasSubstr("not saved"));
}

TEST_F(DetailPanelTest, RatiosAtTheCursorAreTheLargestStored) {
  open_checked();
  workspace.select({bracket});
  show_tab(forces);
  wait_for_forces();
  any_part<ForcePlot>(forces).set_cursor(0.0);
  const auto reader = store::ResultReader::open(workspace.results()->file);
  const T_RALU_D record = *reader->read(bracket, 0, 0);
  double largest = 0.0;
  for (const T_RALU_RLT& check : record.aSect[0].aItem) {
    if (check.dCapacity != 0.0) largest = std::max(largest, check.dDemand / check.dCapacity);
  }
  EXPECT_GT(largest, 1.0);  // the bracket comes out over 1
  EXPECT_THAT(cursor_text(), HasSubstr("at I: " + tables::short_number(largest)));
}

TEST_F(DetailPanelTest, ArrowKeysMoveTheCursor) {
  open();
  workspace.select({column});
  show_tab(forces);
  wait_for_forces();
  auto& plot = any_part<ForcePlot>(forces);
  plot.setFocus();
  plot.set_cursor(0.0);
  QTest::keyClick(&plot, Qt::Key_Right);
  EXPECT_NEAR(plot.cursor(), 0.01, 1e-12);
  QTest::keyClick(&plot, Qt::Key_PageUp);
  EXPECT_NEAR(plot.cursor(), 0.25, 1e-12);
  QTest::keyClick(&plot, Qt::Key_PageUp);
  EXPECT_NEAR(plot.cursor(), 0.5, 1e-12);
  QTest::keyClick(&plot, Qt::Key_PageDown);
  EXPECT_NEAR(plot.cursor(), 0.25, 1e-12);
  QTest::keyClick(&plot, Qt::Key_End);
  EXPECT_EQ(plot.cursor(), 1.0);
  QTest::keyClick(&plot, Qt::Key_Right);
  EXPECT_EQ(plot.cursor(), 1.0);
  QTest::keyClick(&plot, Qt::Key_Home);
  EXPECT_EQ(plot.cursor(), 0.0);
}

TEST_F(DetailPanelTest, CursorFollowsTheMouse) {
  open();
  workspace.select({column});
  show_tab(forces);
  wait_for_forces();
  auto& plot = any_part<ForcePlot>(forces);
  const QPointF middle(plot.width() / 2.0, plot.height() / 3.0);
  QMouseEvent move(QEvent::MouseMove, middle, plot.mapToGlobal(middle), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(&plot, &move);
  // The element stands in the middle of the plot.
  EXPECT_NEAR(plot.cursor(), 0.5, 0.01);
}

TEST(ValuesAt, LieOnTheStraightLineBetweenNeighbours) {
  const std::vector<picture::Ordinate> line{{0.0, 0.0}, {0.5, 10.0}, {0.5, 4.0}, {1.0, 0.0}};
  EXPECT_THAT(desktop::values_at(line, 0.25), testing::ElementsAre(5.0));
  EXPECT_THAT(desktop::values_at(line, 0.75), testing::ElementsAre(2.0));
  EXPECT_THAT(desktop::values_at(line, 0.5), testing::ElementsAre(10.0, 4.0));
  EXPECT_TRUE(desktop::values_at({}, 0.5).empty());
}

TEST_F(DetailPanelTest, StepsEndInTheStoredRatio) {
  open_checked();
  workspace.select({bracket});
  show_tab(steps);
  wait_for_steps();
  auto& tree = any_part<QTreeWidget>(steps);
  auto& item = any_part<QComboBox>(steps);
  const run::ElementResult& stored = *workspace.results()->find(bracket);
  EXPECT_EQ(item.currentData().toInt(), stored.worst().item);
  for (int i = 0; i < item.count(); ++i) {
    item.setCurrentIndex(i);
    const store::GoverningRow& check = *stored.find(item.currentData().toInt());
    SCOPED_TRACE(tables::item_name(check.item));
    ASSERT_EQ(tree.topLevelItemCount(), 1);
    // Six significant digits are shown.
    EXPECT_NEAR(tree.topLevelItem(0)->text(1).toDouble(), check.governing.Ratio(),
                1e-5 * check.governing.Ratio());
  }
}

TEST_F(DetailPanelTest, EveryStepOpensToThoseItFollowsFrom) {
  open_checked();
  workspace.select({bracket});
  show_tab(steps);
  wait_for_steps();
  auto& tree = any_part<QTreeWidget>(steps);
  QTreeWidgetItem* ratio = tree.topLevelItem(0);
  ASSERT_GE(ratio->childCount(), 2);
  QTreeWidgetItem* demand = ratio->child(0);
  EXPECT_TRUE(demand->isExpanded());
  QTreeWidgetItem* below = nullptr;
  for (int i = 0; i < demand->childCount(); ++i) {
    QTreeWidgetItem* source = demand->child(i);
    if (source->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator) below = source;
  }
  ASSERT_NE(below, nullptr);
  EXPECT_EQ(below->childCount(), 0);
  below->setExpanded(true);
  EXPECT_GT(below->childCount(), 0);
  tree.setCurrentItem(demand);
  const std::string page = any_part<QTextBrowser>(steps).toPlainText().toStdString();
  EXPECT_THAT(page, HasSubstr(demand->text(0).toStdString() + " ="));
  EXPECT_THAT(page, HasSubstr(demand->text(1).toStdString()));
}

TEST_F(DetailPanelTest, ACheckOfTheListLeadsToItsSteps) {
  open_checked();
  workspace.select({bracket});
  auto& table = any_part<QTableWidget>(checks);
  table.setCurrentCell(table.rowCount() - 1, 0);
  const std::string chosen = table.item(table.rowCount() - 1, 0)->text().toStdString();
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_EQ(panel->findChild<QTabWidget*>()->currentIndex(), steps);
  wait_for_steps();
  EXPECT_THAT(any_part<QComboBox>(steps).currentText().toStdString(), testing::StartsWith(chosen));
}

TEST_F(DetailPanelTest, StepsWaitUntilARunHasEnded) {
  open_checked();
  workspace.select({bracket});
  workspace.set_busy(true);
  show_tab(steps);
  EXPECT_THAT(part<QLabel>(steps, "said").text().toStdString(), HasSubstr("going on"));
  EXPECT_FALSE(any_part<QTreeWidget>(steps).isVisible());
  workspace.set_busy(false);
  wait_for_steps();
}

TEST_F(DetailPanelTest, ResultsOfAnotherStateOfTheModelAreNotExplained) {
  check();
  replace_in_file(file, "\"strength_ratio\": 0.9", "\"strength_ratio\": 0.8");
  open();
  workspace.select({bracket});
  EXPECT_NE(head("notices"), "");
  show_tab(steps);
  auto& said = part<QLabel>(steps, "said");
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        return said.text().contains(QString::fromStdString(run::result_path_of(file).filename()));
      },
      20000))
      << said.text().toStdString();
  EXPECT_EQ(any_part<QTreeWidget>(steps).topLevelItemCount(), 0);
}

TEST_F(DetailPanelTest, AModelThatCannotBeReadAnyMoreHasNoForces) {
  open();
  std::ofstream(file) << "{";
  workspace.select({column});
  show_tab(forces);
  auto& said = part<QLabel>(forces, "said");
  ASSERT_TRUE(QTest::qWaitFor(
      [&] { return said.text().contains(QString::fromStdString(file.filename())); }, 20000))
      << said.text().toStdString();
  EXPECT_EQ(cursor_text(), "");
}

TEST_F(DetailPanelTest, CanBeDestroyedWhileItComputes) {
  open_checked();
  workspace.select({bracket});
  show_tab(forces);
  QTest::qWait(1);  // the computation begins
  EXPECT_THAT(cursor_text(), testing::IsEmpty());
  panel.reset();
  QThreadPool::globalInstance()->waitForDone();
  QCoreApplication::processEvents();
}

TEST_F(DetailPanelTest, AnotherModelReplacesWhatIsBeingComputed) {
  open();
  workspace.select({column});
  show_tab(forces);
  QTest::qWait(1);
  replace_in_file(file, "\"z\": 3.6", "\"z\": 3.5");  // node 2, the head of the column
  open();
  wait_for_forces();
  any_part<ForcePlot>(forces).set_cursor(1.0);
  EXPECT_THAT(cursor_text(), HasSubstr("x = 3.5 m"));
}

// Column H 240x130/160, flanges 10 and 12, web 6: A = 1300 + 1920 + 6·218 = 4528 mm².
TEST_F(DetailPanelTest, AreaOfTheSectionIsThatOfAHandCalculation) {
  open();
  workspace.select({column});
  show_tab(section);
  EXPECT_EQ(part<QLabel>(section, "A").text().toStdString(), "4528 mm²");
  EXPECT_THAT(part<QLabel>(section, "Dimensions").text().toStdString(),
              HasSubstr("H 240, B1 130,\ntw 6, tf1 10,\nB2 160, tf2 12"));
}

TEST_F(DetailPanelTest, SpeaksChinese) {
  const test_support::UsedLanguage chinese(texts::Language::chinese);
  panel = std::make_unique<DetailPanel>(workspace);
  panel->resize(600, 800);
  panel->show();
  open_checked();
  workspace.select({bracket});
  EXPECT_THAT(head("title"), testing::StartsWith("单元"));
  const auto& table = any_part<QTableWidget>(checks);
  EXPECT_EQ(table.horizontalHeaderItem(1)->text().toStdString(), "应力比");
  show_tab(steps);
  wait_for_steps();
  EXPECT_EQ(any_part<QTreeWidget>(steps).topLevelItem(0)->text(2).toStdString(), "应力比");
  show_tab(forces);
  wait_for_forces();
  EXPECT_THAT(cursor_text(), HasSubstr("处最大应力比"));
}

}  // namespace
}  // namespace gui_test
