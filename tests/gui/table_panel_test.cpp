// The tables of the desktop program.

#include "apps/desktop/table_panel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <sstream>

#include "apps/desktop/table_view.h"
#include "tests/gui/checked_model.h"
#include "tests/support/used_language.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::TableKind;
using desktop::TablePanel;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class TablePanelTest : public CheckedModelTest {
 protected:
  TablePanelTest() : panel(workspace) {
    panel.resize(panel.sizeHint());
    panel.show();
  }

  TablePanel panel;

  int rows() { return panel.view().order().rowCount(); }
  QString text(int row, int column) {
    return panel.view().order().index(row, column).data().toString();
  }
  int column(const QString& heading) {
    for (int i = 0; i < panel.view().table_model().columnCount(); ++i) {
      if (panel.view().table_model().heading(i) == heading) return i;
    }
    throw std::logic_error("no column " + heading.toStdString());
  }
  std::vector<std::string> column_texts(const QString& heading) {
    std::vector<std::string> texts;
    for (int i = 0; i < rows(); ++i) texts.push_back(text(i, column(heading)).toStdString());
    return texts;
  }
  void click_heading(const QString& heading) {
    QHeaderView& header = *panel.view().horizontalHeader();
    const int at = column(heading);
    panel.view().scrollTo(panel.view().order().index(0, at));
    QTest::mouseClick(
        header.viewport(), Qt::LeftButton, {},
        {header.sectionViewportPosition(at) + header.sectionSize(at) / 2, header.height() / 2});
  }
  void click_row(int row, Qt::KeyboardModifiers modifiers = {}) {
    const QModelIndex index = panel.view().order().index(row, 0);
    panel.view().scrollTo(index);
    QTest::mouseClick(panel.view().viewport(), Qt::LeftButton, modifiers,
                      panel.view().visualRect(index).center());
  }
  std::vector<model::Number> selected() {
    return {workspace.selection().begin(), workspace.selection().end()};
  }
  std::vector<std::string> labels() {
    std::vector<std::string> texts;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
      if (label->isVisible()) texts.push_back(label->text().toStdString());
    }
    return texts;
  }
  std::string content(const QString& name) {
    std::ostringstream out;
    out << std::ifstream(folder.filePath(name).toStdString(), std::ios::binary).rdbuf();
    return out.str();
  }
  std::filesystem::path path(const char* name) {
    return folder.filePath(QString::fromUtf8(name)).toStdString();
  }
};

TEST_F(TablePanelTest, WithoutResultsItSaysSo) {
  EXPECT_EQ(rows(), 0);
  EXPECT_THAT(labels(), Contains("There are no results yet: check the model."));
}

TEST_F(TablePanelTest, WithoutAModelItSaysSo) {
  desktop::Workspace none;
  TablePanel other(none);
  other.show();
  for (const TableKind kind : desktop::all_tables) {
    other.show_table(kind);
    EXPECT_EQ(other.view().table_model().rowCount(), 0);
  }
}

// The example has 22 nodes, a file that says so.
TEST_F(TablePanelTest, ShowsWhatTheModelConsistsOf) {
  panel.show_table(TableKind::nodes);
  EXPECT_EQ(rows(), 22);
  EXPECT_EQ(text(1, column("Z m")), "3.600");
  panel.show_table(TableKind::materials);
  EXPECT_EQ(text(0, column("grade")), "6061-T6");
}

// The example has no combination for serviceability.
TEST_F(TablePanelTest, EveryTableHasRowsAfterACheckOrSaysWhyNot) {
  check();
  panel.show_table(TableKind::displacements);
  EXPECT_EQ(rows(), 0);
  EXPECT_THAT(labels(),
              Contains("The model had no combination for serviceability when it was checked."));
  for (const TableKind kind : desktop::all_tables) {
    if (kind == TableKind::displacements) continue;
    panel.show_table(kind);
    EXPECT_GT(rows(), 0) << desktop::name_of(kind).toStdString();
  }
}

TEST_F(TablePanelTest, NumbersAreSortedAsNumbersAndRatiosFromTheLargest) {
  panel.show_table(TableKind::nodes);
  click_heading("Z m");
  EXPECT_EQ(text(0, column("Z m")), "0.000");
  EXPECT_EQ(text(rows() - 1, column("Z m")), "5.800");
  click_heading("node");
  EXPECT_EQ(text(8, 0), "9");
  EXPECT_EQ(text(9, 0), "10");
  check();
  panel.show_table(TableKind::overview);
  click_heading("worst");
  EXPECT_EQ(text(0, 0), "3");  // the bracket that fails on purpose
}

TEST_F(TablePanelTest, CellsWithoutAnythingAreLastInBothOrders) {
  panel.show_table(TableKind::nodes);
  for (int click = 0; click < 2; ++click) {
    click_heading("restrained");
    EXPECT_EQ(text(0, column("restrained")), "Dx, Dy, Dz, Rz");
    EXPECT_EQ(text(rows() - 1, column("restrained")), "");
  }
}

TEST_F(TablePanelTest, AThirdClickGivesTheOrderOfTheFile) {
  panel.show_table(TableKind::nodes);
  for (int click = 0; click < 3; ++click) click_heading("Z m");
  EXPECT_EQ(text(0, 0), "1");
  EXPECT_EQ(text(16, 0), "17");
}

TEST_F(TablePanelTest, ARatioOverOneIsBoldAndHasASign) {
  check();
  panel.filter_by("element 3");
  ASSERT_EQ(rows(), 1);
  const QModelIndex worst = panel.view().order().index(0, column("worst"));
  EXPECT_TRUE(worst.data().toString().startsWith(u'\u25B2'));
  EXPECT_TRUE(worst.data(Qt::FontRole).value<QFont>().bold());
  panel.filter_by("element 1");
  const QModelIndex other = panel.view().order().index(0, column("worst"));
  EXPECT_FALSE(other.data().toString().startsWith(u'\u25B2'));
}

TEST_F(TablePanelTest, FiltersByATextInAnyColumn) {
  panel.show_table(TableKind::elements);
  panel.filter_by("BRACKET");
  EXPECT_THAT(column_texts("name"), testing::Each(HasSubstr("Bracket")));
  EXPECT_GT(rows(), 1);
  EXPECT_THAT(labels(), Contains(HasSubstr(" of ")));
  panel.filter_by("");
  EXPECT_EQ(static_cast<std::size_t>(rows()), workspace.model().elements.size());
}

TEST_F(TablePanelTest, FiltersByAPartOfANumber) {
  panel.show_table(TableKind::nodes);
  panel.filter_by("5.8");
  EXPECT_THAT(column_texts("node"), ElementsAre("17", "18"));
}

TEST_F(TablePanelTest, FiltersByNumbersOfAColumn) {
  panel.show_table(TableKind::elements);
  panel.filter_by("element 3-5, 9");
  EXPECT_THAT(column_texts("element"), ElementsAre("3", "4", "5", "9"));
  panel.show_table(TableKind::members);
  const int all = rows();
  panel.filter_by("elements 1");
  EXPECT_EQ(rows(), 1);
  EXPECT_GT(all, 1);
}

TEST_F(TablePanelTest, FiltersByComparing) {
  panel.show_table(TableKind::nodes);
  panel.filter_by("Z m > 5");
  EXPECT_THAT(column_texts("node"), ElementsAre("17", "18"));
  panel.filter_by(QStringLiteral(u"z_m ≥ 5"));
  EXPECT_EQ(rows(), 8);
  panel.filter_by("z m = 5.8");
  EXPECT_EQ(rows(), 2);
  check();
  panel.show_table(TableKind::overview);
  panel.filter_by("ratio > 1");
  EXPECT_THAT(column_texts("element"), Contains("3"));
}

TEST_F(TablePanelTest, ANewTableIsNotFiltered) {
  panel.show_table(TableKind::nodes);
  panel.filter_by("Z m > 5");
  panel.show_table(TableKind::sections);
  EXPECT_EQ(rows(), 7);
}

TEST_F(TablePanelTest, SelectedRowsSelectTheirElements) {
  panel.show_table(TableKind::elements);
  click_row(2);
  EXPECT_THAT(selected(), ElementsAre(3));
  click_row(4, Qt::ControlModifier);
  EXPECT_THAT(selected(), ElementsAre(3, 5));
  EXPECT_EQ(workspace.current(), 5U);
}

TEST_F(TablePanelTest, ARowOfANodeSelectsWhatMeetsThere) {
  panel.show_table(TableKind::nodes);
  click_row(1);  // of the column's two halves and the bracket
  EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
}

TEST_F(TablePanelTest, ARowOfALoadCaseLeavesTheSelection) {
  workspace.select({4});
  panel.show_table(TableKind::load_cases);
  click_row(0);
  EXPECT_THAT(selected(), ElementsAre(4));
}

TEST_F(TablePanelTest, WhatIsSelectedElsewhereIsMarkedAndScrolledTo) {
  panel.resize(panel.width(), panel.minimumSizeHint().height());
  panel.show_table(TableKind::elements);
  const auto last = workspace.model().elements[workspace.model().elements.size() - 1].number;
  workspace.select({1, last});
  EXPECT_EQ(panel.view().selected_rows().size(), 2U);
  const QModelIndex row = panel.view().order().index(rows() - 1, 0);
  EXPECT_TRUE(panel.view().viewport()->rect().intersects(panel.view().visualRect(row)));
  EXPECT_THAT(selected(), ElementsAre(1, last));
}

TEST_F(TablePanelTest, ARowOfSeveralElementsIsMarkedWhenAllAreSelected) {
  panel.show_table(TableKind::nodes);
  workspace.select({1, 2});
  EXPECT_THAT(panel.view().selected_rows(), testing::Not(Contains(1U)));
  workspace.select({1, 2, 3});
  EXPECT_THAT(panel.view().selected_rows(), Contains(1U));
}

TEST_F(TablePanelTest, FilteringAndSortingLeaveTheSelection) {
  panel.show_table(TableKind::elements);
  click_row(2);
  panel.filter_by("element 7");
  EXPECT_THAT(selected(), ElementsAre(3));
  panel.filter_by("");
  click_heading("element");
  click_heading("element");
  EXPECT_THAT(selected(), ElementsAre(3));
  EXPECT_EQ(panel.view().selected_rows(), std::vector<std::size_t>{2});
}

TEST_F(TablePanelTest, OneChangeOfTheSelectionIsToldOnce) {
  panel.show_table(TableKind::elements);
  const QSignalSpy changes(&workspace, &desktop::Workspace::selection_changed);
  click_row(2);
  EXPECT_EQ(changes.count(), 1);
  workspace.select({5, 6});
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(TablePanelTest, CopiesSelectedRowsAsTheyAreShown) {
  panel.show_table(TableKind::nodes);
  click_row(0);
  click_row(1, Qt::ShiftModifier);
  QTest::keyClick(&panel.view(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "1\t\t0.000\t0.000\t0.000\tDx, Dy, Dz, Rz\t\n"
            "2\t\t0.000\t0.000\t3.600\t\t");
  panel.view().copy(true);
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("node\tname\tX m\t"));
  EXPECT_TRUE(panel.view().column_text(0).startsWith("1\n2\n3\n"));
}

TEST_F(TablePanelTest, SavesTheSameValuesAsTheCommandLine) {
  check();
  const QString model = QString::fromStdString(file.string());
  const auto compare = [&](TableKind kind, const QStringList& options) {
    panel.show_table(kind);
    ASSERT_TRUE(panel.save_as(path("table.csv")));
    EXPECT_EQ(content("table.csv"),
              output_of_program(QStringList{"results", model, "--format", "csv"} + options)
                  .toStdString());
  };
  compare(TableKind::checks, {});
  compare(TableKind::not_checked, {"--not-checked"});
  compare(TableKind::remarks, {"--remarks"});
}

TEST_F(TablePanelTest, SavesOnlyWhatIsShownInTheOrderInWhichItIsShown) {
  panel.show_table(TableKind::nodes);
  panel.filter_by("node 1-3");
  click_heading("node");
  click_heading("node");
  ASSERT_TRUE(panel.save_as(path("nodes.csv")));
  const QStringList lines = QString::fromStdString(content("nodes.csv")).split('\n');
  EXPECT_EQ(lines[0], "node,name,x_m,y_m,z_m,restrained,springs");
  EXPECT_EQ(lines[1], "3,,0,0,5,,");
  EXPECT_EQ(lines.size(), 5);  // headings, three rows, and nothing behind the last line's end
}

/// Closes the next message box. @param text receives what it said
void close_box(std::string& text) {
  QTimer::singleShot(0, [&text] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) {
      ADD_FAILURE() << "no message box opened";
      return;
    }
    text = box->text().toStdString();
    box->button(QMessageBox::Ok)->click();
  });
}

TEST_F(TablePanelTest, AProblemWithAFileIsToldOnce) {
  panel.show_table(TableKind::nodes);
  for (const char* name : {"missing/table.csv", "missing/table.xlsx", "table.txt"}) {
    std::string told;
    close_box(told);
    EXPECT_FALSE(panel.save_as(path(name)));
    EXPECT_THAT(told, HasSubstr(name));
    EXPECT_FALSE(std::filesystem::exists(path(name)));
  }
}

TEST_F(TablePanelTest, ATableDoesNotTakeThePlaceOfAModel) {
  std::filesystem::copy_file(file, path("other.csv"));
  panel.show_table(TableKind::nodes);
  std::string told;
  close_box(told);
  EXPECT_FALSE(panel.save_as(path("other.csv")));
  EXPECT_THAT(told, HasSubstr("other.csv"));
  EXPECT_EQ(content("other.csv"), text_of_file());
}

TEST_F(TablePanelTest, AnotherModelHasItsOwnTables) {
  check();
  EXPECT_GT(rows(), 0);
  open(write_row_of_beams(3));
  EXPECT_EQ(rows(), 0);
  panel.show_table(TableKind::elements);
  EXPECT_EQ(rows(), 3);
}

TEST_F(TablePanelTest, IsMadeAgainWhenResultsCome) {
  EXPECT_EQ(rows(), 0);
  check();
  EXPECT_EQ(static_cast<std::size_t>(rows()), workspace.results()->elements.size());
}

TEST_F(TablePanelTest, IsMadeAgainAfterAnEditAndKeepsItsOrderAndFilter) {
  panel.show_table(TableKind::materials);
  panel.filter_by("6061");
  click_heading("material");
  model::Material material = *workspace.model().materials.find(1);
  material.name = "Mine";
  workspace.document()->editable().materials.replace(material);
  workspace.tell_edited();
  EXPECT_EQ(text(0, column("name")), "Mine");
  EXPECT_EQ(panel.view().horizontalHeader()->sortIndicatorSection(), 0);
  EXPECT_EQ(rows(), 1);
}

TEST_F(TablePanelTest, AHiddenTableIsMadeWhenItIsSeen) {
  panel.hide();
  check();
  EXPECT_EQ(rows(), 0);
  panel.show();
  EXPECT_GT(rows(), 0);
}

TEST_F(TablePanelTest, GivenForcesNeedNoAnalysis) {
  panel.show_table(TableKind::forces);
  EXPECT_GT(rows(), 0);
  panel.choose_subject({.number = 1});
  EXPECT_EQ(text(0, column("case")), "1");
}

// A rod of 1 m that hangs and is pulled by 5 kN.
TEST_F(TablePanelTest, ForcesOfLoadsAreComputedOnDemand) {
  std::ofstream(path("rod.json")) << R"({"format": "aluframe-model", "version": 1,
"materials": [{"number": 1, "alloy": "6061-T6"}],
"sections": [{"number": 1, "shape": "SR", "dimensions": {"D": 30}}],
"nodes": [{"number": 1, "x": 0, "y": 0, "z": 1}, {"number": 2, "x": 0, "y": 0, "z": 0}],
"supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx", "Ry", "Rz"]}],
"elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1}],
"load_cases": [{"number": 1, "nodal": [{"nodes": [2], "Fz": -5}]}],
"combinations": [{"number": 1, "terms": [{"case": 1, "factor": 2}]}]})";
  open(path("rod.json"));
  panel.show_table(TableKind::forces);
  EXPECT_EQ(rows(), 0);
  EXPECT_THAT(labels(), Contains("These forces take an analysis: press Compute."));
  workspace.set_busy(true);
  panel.compute_forces();
  EXPECT_EQ(rows(), 0);
  workspace.set_busy(false);
  panel.findChild<QPushButton*>()->click();
  ASSERT_EQ(rows(), 5);
  EXPECT_EQ(text(0, column("N kN")), "10.000");
  panel.choose_subject({.number = 1});
  EXPECT_EQ(text(0, column("N kN")), "5.000");
}

TEST_F(TablePanelTest, ItsHeadingsAndSentencesCanBeChinese) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  check();
  TablePanel chinese(workspace);
  chinese.show();
  chinese.show_table(TableKind::elements);
  EXPECT_EQ(chinese.view().table_model().heading(0), u"\u5355\u5143");
  chinese.filter_by(QStringLiteral(u"\u5355\u5143 3-4"));
  EXPECT_EQ(chinese.view().order().rowCount(), 2);
  for (const TableKind kind : desktop::all_tables) {
    chinese.show_table(kind);
    for (int i = 0; i < chinese.view().table_model().columnCount(); ++i) {
      const QString heading = chinese.view().table_model().heading(i);
      EXPECT_FALSE(heading.contains(u'_')) << heading.toStdString();
    }
  }
}

// Widgets of rows would be as many as these.
TEST_F(TablePanelTest, TwentyThousandRowsHaveNoWidgetsOfTheirOwn) {
  constexpr int many = 20000;
  open(write_row_of_beams(many));
  panel.show_table(TableKind::elements);
  ASSERT_EQ(rows(), many);
  EXPECT_LT(panel.findChildren<QObject*>().size(), 200);
  click_heading("length m");
  panel.filter_by("section 2");
  EXPECT_EQ(rows(), many / 2);
  panel.filter_by("");
  std::vector<model::Number> odd;
  for (model::Number i = 1; i <= many; i += 2) odd.push_back(i);
  workspace.select(odd);
  EXPECT_EQ(panel.view().selected_rows().size(), odd.size());
  panel.view().selectAll();
  EXPECT_EQ(workspace.selection().size(), static_cast<std::size_t>(many));
}

}  // namespace
}  // namespace gui_test
