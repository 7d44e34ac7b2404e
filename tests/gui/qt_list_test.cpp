// Lists in columns of a dialog of widgets.

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTest>
#include <QTreeWidget>
#include <cstdlib>

#include "tests/gui/sample_test.h"

namespace gui_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtList : public SampleDialog {
 protected:
  QTreeWidget& list() {
    return *dialog.window().findChild<QTreeWidget*>(QString::number(material_list));
  }
};

TEST_F(QtList, HasNoColumnsBeforeTheProgramAddsThem) {
  EXPECT_EQ(dialog.ColumnCount(material_list), 0);
}

TEST_F(QtList, ColumnsKeepHeaderAndWidth) {
  dialog.AddColumn(material_list, L"ID", 75, true);
  dialog.AddColumn(material_list, L"Es", 8, false);
  EXPECT_EQ(dialog.ColumnCount(material_list), 2);
  EXPECT_EQ(dialog.ColumnHeader(material_list, 0), L"ID");
  EXPECT_EQ(dialog.ColumnHeader(material_list, 1), L"Es");
  EXPECT_EQ(dialog.ColumnHeader(material_list, 2), L"");
  EXPECT_EQ(dialog.ColumnWidth(material_list, 0), 75);
  EXPECT_EQ(dialog.ColumnWidth(material_list, 1), 8);
  EXPECT_EQ(dialog.ColumnWidth(material_list, 2), 0);
}

TEST_F(QtList, CentredColumnsCentreHeaderAndCells) {
  dialog.AddColumn(material_list, L"ID", 75, true);
  dialog.AddColumn(material_list, L"Name", 75, false);
  dialog.InsertRow(material_list, 0);
  for (const QTreeWidgetItem* item : {list().headerItem(), list().topLevelItem(0)}) {
    EXPECT_TRUE(item->textAlignment(0) & Qt::AlignHCenter);
    EXPECT_TRUE(item->textAlignment(1) & Qt::AlignLeft);
  }
}

TEST_F(QtList, ACentredColumnThatIsAddedLaterCentresTheRowsThatAreThere) {
  dialog.AddColumn(material_list, L"ID", 75, false);
  dialog.InsertRow(material_list, 0);
  dialog.AddColumn(material_list, L"Name", 75, true);
  EXPECT_TRUE(list().topLevelItem(0)->textAlignment(1) & Qt::AlignHCenter);
}

TEST_F(QtList, ARowIsInsertedBeforeThePlaceThatIsNamed) {
  fill_list();
  EXPECT_EQ(dialog.InsertRow(material_list, 1), 1);
  EXPECT_EQ(dialog.RowCount(material_list), 4);
  EXPECT_EQ(dialog.Cell(material_list, 1, 0), L"");
  EXPECT_EQ(dialog.Cell(material_list, 2, 0), L"2");
}

TEST_F(QtList, ARowBeyondTheEndIsAppended) {
  fill_list();
  EXPECT_EQ(dialog.InsertRow(material_list, 99), 3);
}

TEST_F(QtList, ACellKeepsItsText) {
  fill_list();
  dialog.SetCell(material_list, 2, 1, L"6061-T6");
  EXPECT_EQ(dialog.Cell(material_list, 2, 1), L"6061-T6");
}

TEST_F(QtList, CellsThatTheListDoesNotHaveAreEmptyAndStaySo) {
  fill_list();
  for (const auto& [row, column] : {std::pair(3, 0), std::pair(-1, 0), std::pair(0, 3)}) {
    dialog.SetCell(material_list, row, column, L"x");
    EXPECT_EQ(dialog.Cell(material_list, row, column), L"");
  }
  EXPECT_EQ(dialog.RowCount(material_list), 3);
}

TEST_F(QtList, NothingIsSelectedUntilSomebodySelects) {
  fill_list();
  run([this](DialogUser& user) {
    user.as<QTreeWidget>(material_list).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(dialog.SelectedRow(material_list), -1);
  });
}

TEST_F(QtList, SelectingARowByProgramTellsIt) {
  fill_list();
  dialog.SelectRow(material_list, 2);
  EXPECT_EQ(dialog.SelectedRow(material_list), 2);
  EXPECT_THAT(log.lines, ElementsAre("row 112 2"));
}

TEST_F(QtList, SelectingTheSelectedRowTellsNothing) {
  fill_list();
  dialog.SelectRow(material_list, 2);
  log.lines.clear();
  dialog.SelectRow(material_list, 2);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtList, SelectingNoneTellsNothing) {
  fill_list();
  dialog.SelectRow(material_list, 0);
  log.lines.clear();
  dialog.SelectRow(material_list, -1);
  EXPECT_EQ(dialog.SelectedRow(material_list), -1);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtList, ARowThatIsInsertedBeforeTheSelectedOneMovesTheSelectionOn) {
  fill_list();
  dialog.SelectRow(material_list, 1);
  log.lines.clear();
  dialog.InsertRow(material_list, 0);
  EXPECT_EQ(dialog.SelectedRow(material_list), 2);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtList, AClickOnARowSelectsItThenTellsTheClick) {
  fill_list();
  run([](DialogUser& user) { user.click_row(material_list, 1); });
  EXPECT_THAT(log.lines, ElementsAre("row 112 1", "row click 112 1"));
}

TEST_F(QtList, AClickOnTheSelectedRowTellsOnlyTheClick) {
  fill_list();
  dialog.SelectRow(material_list, 1);
  log.lines.clear();
  run([](DialogUser& user) { user.click_row(material_list, 1); });
  EXPECT_THAT(log.lines, ElementsAre("row click 112 1"));
}

TEST_F(QtList, AClickBesideTheRowsSelectsNone) {
  fill_list();
  dialog.SelectRow(material_list, 1);
  log.lines.clear();
  run([](DialogUser& user) { user.click_row(material_list, -1); });
  EXPECT_EQ(dialog.SelectedRow(material_list), -1);
  EXPECT_THAT(log.lines, ElementsAre("row click 112 -1"));
}

TEST_F(QtList, AClickWithTheRightButtonIsNone) {
  fill_list();
  run([this](DialogUser&) { QTest::mouseClick(list().viewport(), Qt::RightButton, {}, {5, 5}); });
  EXPECT_THAT(log.lines, testing::Not(testing::Contains(testing::StartsWith("row click"))));
}

TEST_F(QtList, TheArrowKeysSelectRows) {
  fill_list();
  dialog.SelectRow(material_list, 0);
  log.lines.clear();
  run([this](DialogUser& user) {
    list().setFocus();
    user.press(Qt::Key_Down);
  });
  EXPECT_THAT(log.lines, ElementsAre("row 112 1"));
}

class QtListKey : public QtList, public testing::WithParamInterface<Qt::Key> {};

INSTANTIATE_TEST_SUITE_P(SelectsARow, QtListKey,
                         testing::Values(Qt::Key_Down, Qt::Key_Up, Qt::Key_Space, Qt::Key_Home,
                                         Qt::Key_End, Qt::Key_PageDown));

TEST_P(QtListKey, SelectsTheOnlyRow) {
  dialog.AddColumn(material_list, L"ID", 60, true);
  dialog.InsertRow(material_list, 0);
  run([this](DialogUser& user) {
    list().setFocus(Qt::TabFocusReason);
    user.press(GetParam());
    EXPECT_EQ(dialog.SelectedRow(material_list), 0);
  });
  EXPECT_THAT(log.lines, ElementsAre("row 112 0"));
}

TEST_F(QtList, TheFirstArrowKeySelectsTheFirstRowAndTheNextGoesOn) {
  fill_list();
  dialog.SetFullRowSelect(material_list, true);
  run([this](DialogUser& user) {
    list().setFocus(Qt::TabFocusReason);
    user.press(Qt::Key_Down);
    user.press(Qt::Key_Down);
  });
  EXPECT_THAT(log.lines, ElementsAre("row 112 0", "row 112 1"));
}

TEST_F(QtList, EndSelectsTheLastRow) {
  fill_list();
  run([this](DialogUser& user) {
    list().setFocus(Qt::TabFocusReason);
    user.press(Qt::Key_End);
  });
  EXPECT_THAT(log.lines, ElementsAre("row 112 2"));
}

TEST_F(QtList, KeysInAnEmptyListSelectNothing) {
  dialog.AddColumn(material_list, L"ID", 60, true);
  run([this](DialogUser& user) {
    list().setFocus(Qt::TabFocusReason);
    user.press(Qt::Key_Down);
    user.press(Qt::Key_C, Qt::ControlModifier);
  });
  EXPECT_THAT(log.lines, IsEmpty());
}

/// How many pixels of a row have a colour that neither the paper nor a letter has.
int coloured_pixels(QTreeWidget& list, int row) {
  const QImage picture =
      list.viewport()->grab(list.visualItemRect(list.topLevelItem(row))).toImage();
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      count += std::abs(colour.red() - colour.blue()) > 8 ? 1 : 0;
    }
  }
  return count;
}

// Some styles draw the row of the keyboard much as a selected one.
TEST_F(QtList, ARowThatIsNotSelectedDoesNotLookSelectedToTheKeyboardsUser) {
  fill_list();
  dialog.SetFullRowSelect(material_list, true);
  run([this](DialogUser& user) {
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(coloured_pixels(list(), 0), 0);
    user.press(Qt::Key_Down);
    EXPECT_GT(coloured_pixels(list(), 0), 1000);
  });
}

TEST_F(QtList, TheKeyboardsRowHasALineAroundItWhileNoneIsSelected) {
  fill_list();
  run([this](DialogUser&) {
    const auto picture = [this] { return list().viewport()->grab().toImage(); };
    list().setFocus(Qt::TabFocusReason);
    const QImage with = picture();
    list().clearFocus();
    EXPECT_NE(with, picture());
  });
}

TEST_F(QtList, RowsHaveRoomAboveAndBelowTheirText) {
  fill_list();
  run([this](DialogUser&) {
    const int row = list().visualItemRect(list().topLevelItem(0)).height();
    EXPECT_GE(row, list().fontMetrics().height() + 4);
  });
}

TEST_F(QtList, CtrlCCopiesTheSelectedRow) {
  fill_list();
  dialog.SetCell(material_list, 1, 0, L"      2");
  dialog.SetCell(material_list, 1, 1, L"6061-T6");
  dialog.SetCell(material_list, 1, 2, L"70000");
  run([](DialogUser& user) {
    user.click_row(material_list, 1);
    user.press(Qt::Key_C, Qt::ControlModifier);
  });
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "2\t6061-T6\t70000");
}

TEST_F(QtList, WithoutASelectedRowCtrlCCopiesNothing) {
  fill_list();
  QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
  run([this](DialogUser& user) {
    list().setFocus(Qt::TabFocusReason);
    user.press(Qt::Key_C, Qt::ControlModifier);
  });
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "kept");
}

TEST_F(QtList, OneRowIsSelectedAtMost) {
  fill_list();
  run([this](DialogUser& user) {
    user.click_row(material_list, 0);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      list().visualItemRect(list().topLevelItem(2)).center());
    EXPECT_EQ(list().selectedItems().size(), 1);
  });
}

TEST_F(QtList, FullRowSelectionMarksEveryCellOfTheRow) {
  fill_list();
  EXPECT_FALSE(dialog.IsFullRowSelect(material_list));
  dialog.SetFullRowSelect(material_list, true);
  EXPECT_TRUE(dialog.IsFullRowSelect(material_list));
  dialog.SelectRow(material_list, 1);
  EXPECT_EQ(list().selectionModel()->selectedIndexes().size(), 3);
}

TEST_F(QtList, WithoutFullRowSelectionOneCellIsMarked) {
  fill_list();
  dialog.SelectRow(material_list, 1);
  EXPECT_EQ(list().selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(QtList, ACellIsNotEdited) {
  fill_list();
  run([this](DialogUser& user) {
    user.click_row(material_list, 1);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {},
                       list().visualItemRect(list().topLevelItem(1)).center());
    QTest::keyClick(&list(), Qt::Key_F2);
    EXPECT_EQ(list().findChild<QWidget*>(QStringLiteral("qt_scrollarea_editor")), nullptr);
    EXPECT_FALSE(list().isPersistentEditorOpen(list().currentItem()));
    EXPECT_EQ(list().editTriggers(), QAbstractItemView::NoEditTriggers);
  });
}

}  // namespace
}  // namespace gui_test
