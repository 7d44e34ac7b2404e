// The tree of the model.

#include "apps/desktop/model_tree.h"

#include <QTest>
#include <QTreeView>

#include "tests/gui/checked_model.h"
#include "tests/support/used_language.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::ModelTree;
using testing::ElementsAre;
using testing::IsEmpty;

class ModelTreeTest : public CheckedModelTest {
 protected:
  ModelTreeTest() : tree(workspace) {
    tree.resize(tree.sizeHint());
    tree.show();
  }

  ModelTree tree;

  QAbstractItemModel& lines() { return *tree.view().model(); }
  /// A line by the texts on the way to it, below the model's title.
  QModelIndex find(const QStringList& path) {
    QModelIndex at = lines().index(0, 0);
    for (const QString& text : path) {
      QModelIndex next;
      for (int row = 0; row < lines().rowCount(at); ++row) {
        if (lines().index(row, 0, at).data().toString() == text) next = lines().index(row, 0, at);
      }
      if (!next.isValid()) throw std::logic_error("no line " + text.toStdString());
      at = next;
    }
    return at;
  }
  static QString count(const QModelIndex& line) {
    return line.siblingAtColumn(1).data().toString();
  }
  void click(const QModelIndex& line, Qt::KeyboardModifiers modifiers = {}) {
    tree.view().expand(line.parent());
    tree.view().scrollTo(line);
    QTest::mouseClick(tree.view().viewport(), Qt::LeftButton, modifiers,
                      tree.view().visualRect(line).center());
  }
  std::vector<model::Number> selected() {
    return {workspace.selection().begin(), workspace.selection().end()};
  }
  std::vector<model::Number> with_section(model::Number section) {
    std::vector<model::Number> numbers;
    for (const model::Element& element : workspace.model().elements) {
      if (element.section == section) numbers.push_back(element.number);
    }
    return numbers;
  }
  bool is_bold(const QModelIndex& line) { return line.data(Qt::FontRole).value<QFont>().bold(); }
};

// What the file of the example has.
TEST_F(ModelTreeTest, CountsWhatTheModelConsistsOf) {
  EXPECT_EQ(lines().index(0, 0).data().toString(), "Workshop portal with crane brackets");
  EXPECT_EQ(count(find({"Sections"})), "7");
  EXPECT_EQ(count(find({"Sections", "4 Bracket T 180x120"})),
            QString::number(with_section(4).size()));
  EXPECT_EQ(count(find({"Materials", "1 6061-T6"})),
            QString::number(workspace.model().elements.size()));
  EXPECT_EQ(count(find({"Combinations"})), "9");
}

TEST_F(ModelTreeTest, AClickSelectsTheElementsOfALine) {
  click(find({"Sections", "4 Bracket T 180x120"}));
  EXPECT_EQ(selected(), with_section(4));
  click(find({"Sections", "7 Tie rod 22"}));
  EXPECT_EQ(selected(), with_section(7));
}

TEST_F(ModelTreeTest, WithCtrlItAddsThem) {
  workspace.select({1});
  click(find({"Sections", "7 Tie rod 22"}), Qt::ControlModifier);
  EXPECT_EQ(workspace.selection().size(), 1 + with_section(7).size());
  EXPECT_TRUE(workspace.is_selected(1));
}

TEST_F(ModelTreeTest, EnterDoesAsAClick) {
  tree.view().setCurrentIndex(find({"Sections", "7 Tie rod 22"}));
  QTest::keyClick(&tree.view(), Qt::Key_Return);
  EXPECT_EQ(selected(), with_section(7));
}

TEST_F(ModelTreeTest, ALineWithoutElementsLeavesTheSelection) {
  workspace.select({1});
  click(find({"Sections"}));
  click(find({"Load cases"}));
  EXPECT_THAT(selected(), ElementsAre(1));
}

TEST_F(ModelTreeTest, LinesThatHoldTheWholeSelectionAreBold) {
  workspace.select({with_section(4)[0]});
  EXPECT_TRUE(is_bold(find({"Sections", "4 Bracket T 180x120"})));
  EXPECT_TRUE(is_bold(find({"Materials", "1 6061-T6"})));
  EXPECT_FALSE(is_bold(find({"Sections", "7 Tie rod 22"})));
  workspace.select({with_section(4)[0], with_section(7)[0]});
  EXPECT_FALSE(is_bold(find({"Sections", "4 Bracket T 180x120"})));
  EXPECT_TRUE(is_bold(find({"Materials", "1 6061-T6"})));
  workspace.clear_selection();
  EXPECT_FALSE(is_bold(find({"Materials", "1 6061-T6"})));
}

TEST_F(ModelTreeTest, ResultsStandInItOnceThereAreSome) {
  EXPECT_THROW(find({"Results"}), std::logic_error);
  check();
  click(find({"Results", "Fails"}));
  EXPECT_THAT(selected(), testing::Contains(3U));
  EXPECT_EQ(count(find({"Results", "Fails"})), QString::number(workspace.results()->told.over));
}

TEST_F(ModelTreeTest, WhatWasOpenStaysOpenAfterAnEdit) {
  const QModelIndex sections = find({"Sections"});
  const QModelIndex materials = find({"Materials"});
  tree.view().expand(sections);
  tree.view().collapse(materials);
  workspace.tell_edited();
  EXPECT_TRUE(tree.view().isExpanded(find({"Sections"})));
  EXPECT_FALSE(tree.view().isExpanded(find({"Materials"})));
}

TEST_F(ModelTreeTest, WithoutAModelItIsEmpty) {
  desktop::Workspace none;
  ModelTree other(none);
  EXPECT_EQ(other.view().model()->rowCount(), 0);
}

TEST_F(ModelTreeTest, ItsTextsCanBeChinese) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  ModelTree chinese(workspace);
  const QModelIndex top = chinese.view().model()->index(0, 0);
  EXPECT_EQ(chinese.view().model()->index(0, 0, top).data().toString(), u"\u622A\u9762");
}

TEST_F(ModelTreeTest, TwentyThousandElementsHaveNoWidgetsOfTheirOwn) {
  constexpr int many = 20000;
  open(write_row_of_beams(many));
  EXPECT_EQ(count(lines().index(0, 0)), QString::number(many));
  EXPECT_LT(tree.findChildren<QObject*>().size(), 100);
  workspace.select_all();
  EXPECT_TRUE(is_bold(find({"Materials", "1 6061-T6"})));
}

}  // namespace
}  // namespace gui_test
