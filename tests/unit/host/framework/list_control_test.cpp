// Lists in columns of an open dialog.

#include "host/framework/list_control.h"

#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;

/// The list has the columns "ID" and "Name" and the rows 1 "one", 2 "two", 3 "three".
class ListControlTest : public dialog_test::SampleTest {
 protected:
  void Open(std::function<void(DialogUser&)> script) {
    Run(dialog_, [&](DialogUser& user) {
      list_.InsertColumn(0, L"ID", LVCFMT_CENTER, 75);
      list_.InsertColumn(1, L"Name", LVCFMT_LEFT, 68);
      for (const wchar_t* name : {L"one", L"two", L"three"}) {
        const int row = list_.InsertItem(list_.GetItemCount(), std::to_wstring(++last_));
        list_.SetItemText(row, 1, name);
      }
      script(user);
    });
  }

  SampleDialog dialog_;
  CListCtrl& list_ = dialog_.materials;
  int last_ = 0;
};

TEST_F(ListControlTest, ColumnsHaveHeaderWidthAndPlaceOfTheirTexts) {
  Open([](DialogUser& user) {
    ASSERT_EQ(user.ColumnCount(material_list), 2);
    EXPECT_TRUE(user.ColumnHeader(material_list, 0) == L"ID");
    EXPECT_TRUE(user.ColumnHeader(material_list, 1) == L"Name");
    EXPECT_EQ(user.ColumnWidth(material_list, 0), 75);
    EXPECT_EQ(user.ColumnWidth(material_list, 1), 68);
    EXPECT_TRUE(user.is_centred(material_list, 0));
    EXPECT_FALSE(user.is_centred(material_list, 1));
  });
}

TEST_F(ListControlTest, AColumnIsAppendedOnly) {
  Open([this](DialogUser& user) {
    EXPECT_EQ(list_.InsertColumn(0, L"early"), -1);
    EXPECT_EQ(list_.InsertColumn(3, L"late"), -1);
    EXPECT_EQ(list_.InsertColumn(-1, L"none"), -1);
    EXPECT_EQ(user.ColumnCount(material_list), 2);
    EXPECT_EQ(list_.InsertColumn(2, L"Es"), 2);
  });
}

TEST_F(ListControlTest, CellsAreReadAsTheyWereWritten) {
  Open([this](DialogUser& user) {
    EXPECT_EQ(list_.GetItemCount(), 3);
    EXPECT_TRUE(list_.GetItemText(1, 0) == L"2");
    EXPECT_TRUE(list_.GetItemText(1, 1) == L"two");
    EXPECT_EQ(list_.SetItemText(1, 1, L"zwei"), TRUE);
    EXPECT_TRUE(user.Cell(material_list, 1, 1) == L"zwei");
    EXPECT_TRUE(list_.GetItemText(1, 1) == L"zwei");
  });
}

TEST_F(ListControlTest, ARowGoesInBeforeAnother) {
  Open([this](DialogUser&) {
    EXPECT_EQ(list_.InsertItem(1, L"new"), 1);
    EXPECT_TRUE(list_.GetItemText(1, 0) == L"new");
    EXPECT_TRUE(list_.GetItemText(1, 1).IsEmpty());
    EXPECT_TRUE(list_.GetItemText(2, 1) == L"two");
  });
}

TEST_F(ListControlTest, ARowBehindTheLastIsAppended) {
  Open([this](DialogUser&) { EXPECT_EQ(list_.InsertItem(99, L"new"), 3); });
}

TEST_F(ListControlTest, ACellOutsideTheListIsNeitherWrittenNorRead) {
  Open([this](DialogUser&) {
    constexpr int kOutside[][2] = {{-1, 0}, {3, 0}, {0, -1}, {0, 2}};
    for (const auto& [row, column] : kOutside) {
      EXPECT_EQ(list_.SetItemText(row, column, L"x"), FALSE) << row << ", " << column;
      EXPECT_TRUE(list_.GetItemText(row, column).IsEmpty()) << row << ", " << column;
    }
  });
}

TEST_F(ListControlTest, WithoutASelectionThereIsNoSelectedRow) {
  Open([this](DialogUser&) { EXPECT_EQ(list_.GetNextItem(-1, LVNI_SELECTED), -1); });
}

TEST_F(ListControlTest, TheSelectedRowIsFoundBehindTheRowsBeforeIt) {
  Open([this](DialogUser& user) {
    user.click_row(material_list, 1);
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_EQ(list_.GetNextItem(0, LVNI_SELECTED), 1);
    EXPECT_EQ(list_.GetNextItem(1, LVNI_SELECTED), -1);
  });
}

TEST_F(ListControlTest, RowsAreFoundByTheirSelectionOnly) {
  Open([this](DialogUser& user) {
    user.click_row(material_list, 1);
    EXPECT_EQ(list_.GetNextItem(-1, 0), -1);
  });
}

TEST_F(ListControlTest, TheStyleIsFullRowSelectionOnly) {
  Open([this](DialogUser& user) {
    EXPECT_EQ(list_.GetExtendedStyle(), 0U);
    EXPECT_EQ(list_.SetExtendedStyle(LVS_EX_FULLROWSELECT | 1U), 0U);
    EXPECT_TRUE(user.IsFullRowSelect(material_list));
    EXPECT_EQ(list_.GetExtendedStyle(), LVS_EX_FULLROWSELECT);
    EXPECT_EQ(list_.SetExtendedStyle(1U), LVS_EX_FULLROWSELECT);
    EXPECT_FALSE(user.IsFullRowSelect(material_list));
  });
}

}  // namespace
