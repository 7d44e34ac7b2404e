// Drop-down lists and lists in columns of a dialog in memory.

#include "tests/unit/aluframe/toolkit/headless_test.h"

namespace aluframe::toolkit {
namespace {

using namespace test_support;
using testing::ElementsAre;
using testing::IsEmpty;

/// The list has the entries "GB" and "EN".
class HeadlessDropDownList : public HeadlessTest {
 protected:
  HeadlessDropDownList() {
    dialog.AddChoice(code_list, L"GB");
    dialog.AddChoice(code_list, L"EN");
  }
};

TEST_F(HeadlessDropDownList, EntriesAreAppended) {
  EXPECT_EQ(dialog.AddChoice(code_list, L"AA"), 2);
  EXPECT_EQ(dialog.ChoiceCount(code_list), 3);
  EXPECT_THAT(dialog.choices(code_list), ElementsAre(L"GB", L"EN", L"AA"));
  EXPECT_TRUE(dialog.ChoiceText(code_list, 1) == L"EN");
}

TEST_F(HeadlessDropDownList, ItsTextIsTheSelectedEntry) {
  EXPECT_TRUE(dialog.Text(code_list).IsEmpty());
  dialog.SelectChoice(code_list, 1);
  EXPECT_EQ(dialog.SelectedChoice(code_list), 1);
  EXPECT_TRUE(dialog.Text(code_list) == L"EN");
  dialog.SetText(code_list, L"other");
  EXPECT_TRUE(dialog.Text(code_list) == L"EN");
}

TEST_F(HeadlessDropDownList, AnEntryOutsideSelectsNone) {
  for (const int index : {-1, 2}) {
    dialog.SelectChoice(code_list, 0);
    dialog.SelectChoice(code_list, index);
    EXPECT_EQ(dialog.SelectedChoice(code_list), -1) << index;
    EXPECT_TRUE(dialog.ChoiceText(code_list, index).IsEmpty()) << index;
  }
}

TEST_F(HeadlessDropDownList, ClearingTakesEntriesAndSelection) {
  dialog.SelectChoice(code_list, 0);
  dialog.ClearChoices(code_list);
  EXPECT_THAT(dialog.choices(code_list), IsEmpty());
  EXPECT_EQ(dialog.SelectedChoice(code_list), -1);
}

TEST_F(HeadlessDropDownList, OfAnotherKindThereIsNothing) {
  for (const int id : {int{name_edit}, int{material_list}, int{unknown_id}}) {
    EXPECT_EQ(dialog.AddChoice(id, L"GB"), -1) << id;
    dialog.SelectChoice(id, 0);
    dialog.ClearChoices(id);
    EXPECT_EQ(dialog.ChoiceCount(id), 0) << id;
    EXPECT_EQ(dialog.SelectedChoice(id), -1) << id;
    EXPECT_TRUE(dialog.ChoiceText(id, 0).IsEmpty()) << id;
    EXPECT_THAT(dialog.choices(id), IsEmpty()) << id;
  }
}

/// The list has the columns "ID", centred and 75 wide, and "Name", 68 wide, and the rows "a", "b".
class HeadlessList : public HeadlessTest {
 protected:
  HeadlessList() {
    dialog.AddColumn(material_list, L"ID", 75, true);
    dialog.AddColumn(material_list, L"Name", 68, false);
    for (const wchar_t* text : {L"a", L"b"}) {
      const int row = dialog.InsertRow(material_list, dialog.RowCount(material_list));
      dialog.SetCell(material_list, row, 0, text);
    }
  }
  std::vector<std::wstring> first_cells() const {
    std::vector<std::wstring> cells;
    for (int row = 0; row < dialog.RowCount(material_list); ++row) {
      cells.emplace_back(dialog.Cell(material_list, row, 0).GetString());
    }
    return cells;
  }
};

TEST_F(HeadlessList, ColumnsAreReadBack) {
  EXPECT_EQ(dialog.ColumnCount(material_list), 2);
  EXPECT_TRUE(dialog.ColumnHeader(material_list, 1) == L"Name");
  EXPECT_EQ(dialog.ColumnWidth(material_list, 0), 75);
  EXPECT_TRUE(dialog.is_centred(material_list, 0));
  EXPECT_FALSE(dialog.is_centred(material_list, 1));
}

TEST_F(HeadlessList, AColumnOutsideIsEmpty) {
  for (const int column : {-1, 2}) {
    EXPECT_TRUE(dialog.ColumnHeader(material_list, column).IsEmpty()) << column;
    EXPECT_EQ(dialog.ColumnWidth(material_list, column), 0) << column;
    EXPECT_FALSE(dialog.is_centred(material_list, column)) << column;
  }
}

TEST_F(HeadlessList, RowsGoWhereTheyAreInserted) {
  EXPECT_EQ(dialog.InsertRow(material_list, 1), 1);
  dialog.SetCell(material_list, 1, 0, L"between");
  EXPECT_THAT(first_cells(), ElementsAre(L"a", L"between", L"b"));
}

TEST_F(HeadlessList, RowsOutsideGoToTheNearestEnd) {
  EXPECT_EQ(dialog.InsertRow(material_list, 99), 2);
  EXPECT_EQ(dialog.InsertRow(material_list, -5), 0);
  EXPECT_THAT(first_cells(), ElementsAre(L"", L"a", L"b", L""));
}

TEST_F(HeadlessList, ALaterColumnIsEmptyInEveryRow) {
  dialog.AddColumn(material_list, L"Es", 72, true);
  EXPECT_TRUE(dialog.Cell(material_list, 1, 2).IsEmpty());
  dialog.SetCell(material_list, 1, 2, L"70000");
  EXPECT_TRUE(dialog.Cell(material_list, 1, 2) == L"70000");
}

TEST_F(HeadlessList, ACellOutsideIsNeitherWrittenNorRead) {
  constexpr int outside[][2] = {{-1, 0}, {2, 0}, {0, -1}, {0, 2}};
  for (const auto& [row, column] : outside) {
    dialog.SetCell(material_list, row, column, L"x");
    EXPECT_TRUE(dialog.Cell(material_list, row, column).IsEmpty()) << row << ", " << column;
  }
  EXPECT_THAT(first_cells(), ElementsAre(L"a", L"b"));
}

TEST_F(HeadlessList, SelectingAnotherRowIsTold) {
  dialog.SelectRow(material_list, 1);
  EXPECT_EQ(dialog.SelectedRow(material_list), 1);
  dialog.SelectRow(material_list, 0);
  EXPECT_THAT(events.lines, ElementsAre("row 110 1", "row 110 0"));
}

TEST_F(HeadlessList, SelectingTheSameRowIsNotTold) {
  dialog.SelectRow(material_list, 1);
  dialog.SelectRow(material_list, 1);
  EXPECT_THAT(events.lines, ElementsAre("row 110 1"));
}

TEST_F(HeadlessList, TakingTheSelectionAwayIsNotTold) {
  dialog.SelectRow(material_list, 1);
  events.lines.clear();
  dialog.SelectRow(material_list, -1);
  EXPECT_EQ(dialog.SelectedRow(material_list), -1);
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(HeadlessList, ARowOutsideSelectsNone) {
  dialog.SelectRow(material_list, 1);
  dialog.SelectRow(material_list, 2);
  EXPECT_EQ(dialog.SelectedRow(material_list), -1);
}

TEST_F(HeadlessList, TheSelectionStaysOnItsRow) {
  dialog.SelectRow(material_list, 1);
  dialog.InsertRow(material_list, 2);
  EXPECT_EQ(dialog.SelectedRow(material_list), 1);
  dialog.InsertRow(material_list, 0);
  EXPECT_EQ(dialog.SelectedRow(material_list), 2);
  EXPECT_TRUE(dialog.Cell(material_list, 2, 0) == L"b");
}

TEST_F(HeadlessList, FullRowsAreMarkedOnRequest) {
  dialog.SetFullRowSelect(material_list, true);
  EXPECT_TRUE(dialog.IsFullRowSelect(material_list));
  dialog.SetFullRowSelect(material_list, false);
  EXPECT_FALSE(dialog.IsFullRowSelect(material_list));
}

TEST_F(HeadlessList, OfAnotherKindThereIsNothing) {
  for (const int id : {int{name_edit}, int{code_list}, int{unknown_id}}) {
    dialog.AddColumn(id, L"ID", 75, true);
    EXPECT_EQ(dialog.ColumnCount(id), 0) << id;
    EXPECT_EQ(dialog.InsertRow(id, 0), -1) << id;
    EXPECT_EQ(dialog.RowCount(id), 0) << id;
    dialog.SetCell(id, 0, 0, L"x");
    EXPECT_TRUE(dialog.Cell(id, 0, 0).IsEmpty()) << id;
    dialog.SelectRow(id, 0);
    EXPECT_EQ(dialog.SelectedRow(id), -1) << id;
    dialog.SetFullRowSelect(id, true);
    EXPECT_FALSE(dialog.IsFullRowSelect(id)) << id;
  }
  EXPECT_THAT(events.lines, IsEmpty());
}

}  // namespace
}  // namespace aluframe::toolkit
