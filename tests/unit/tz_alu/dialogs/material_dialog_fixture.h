#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dialog_user.h"
#include "tests/support/dialog_host.h"
#include "tz_alu/dialogs/dgnalumatdlg.h"
#include "tz_alu/dialogs/resource.h"

namespace dialogs_test {

using test_support::DialogUser;

/// Edits of Es, Ps, Fu, Fy1 and Fy2.
inline constexpr int kValueEdits[] = {IDC_DGN_STEEL_MATES, IDC_DGN_STEEL_MATPS, IDC_DGN_STEEL_MATF,
                                      IDC_DGN_STEEL_MATFV, IDC_DGN_STEEL_MATF02};

/// Rows of the materials that the host below has, in the order of their keys.
enum MATERIAL_ROW { kGradeRow, kOwnRow, kUnknownGradeRow, kUnknownStandardRow };

/// A host in which the dialog of the materials opens. Its database has 6061-T4 and 6061-T6 of the
/// standard "GB", and 5083 of "GB-T"; "foreign" is a standard that is not designed by. Its model
/// has these materials: 3 is 6061-T6 of "GB", 7 has values of the user and the name "own", 8 is of
/// a grade that "GB" lacks, 9 of a standard that the database lacks. All their values differ.
class MaterialDialogTest : public testing::Test {
 protected:
  MaterialDialogTest() {
    host_.toolkit = &toolkit_;
    host_.alloys = {{L"GB", L"6061-T4", {70000, 0.3, 180, 110, 111}},
                    {L"GB", L"6061-T6", {70100, 0.31, 265, 240, 241}},
                    {L"GB-T", L"5083", {71000, 0.33, 270, 115, 112}}};
    host_.model.materials = {{3, {L"girder", L"GB", L"6061-T6", 70500, 0.32, 266, 242, 243}},
                             {7, {L"own", L"", L"", 68000, 0.34, 250.5, 200, 190}},
                             {8, {L"gone", L"GB", L"6061-T9", 69000, 0.35, 260, 210, 205}},
                             {9, {L"old", L"XX", L"1234", 67000, 0.36, 240, 180, 170}}};
  }

  /// Opens the dialog and works it with a script. @return what DoModal gives
  int Run(std::function<void(DialogUser&)> script) {
    toolkit_.script(std::move(script));
    return CDgnAluMatDlg().DoModal();
  }

  test_support::UserToolkit toolkit_;
  test_support::DialogHost host_;
};

inline std::wstring TextOf(const DialogUser& user, int id) {
  return user.Text(id).GetString();
}

/// Texts of the edits, in the order Es, Ps, Fu, Fy1, Fy2.
inline std::vector<std::wstring> Values(const DialogUser& user) {
  std::vector<std::wstring> texts;
  for (const int id : kValueEdits) texts.push_back(TextOf(user, id));
  return texts;
}

inline std::vector<bool> EnabledValues(const DialogUser& user) {
  std::vector<bool> enabled;
  for (const int id : kValueEdits) enabled.push_back(user.IsEnabled(id));
  return enabled;
}

/// Texts of a row of the list.
inline std::vector<std::wstring> Row(const DialogUser& user, int row) {
  std::vector<std::wstring> texts;
  for (int i = 0; i < user.ColumnCount(IDC_DGN_STEELMAT_LIST); ++i) {
    texts.emplace_back(user.Cell(IDC_DGN_STEELMAT_LIST, row, i).GetString());
  }
  return texts;
}

inline void ClickRow(DialogUser& user, int row) {
  user.click_row(IDC_DGN_STEELMAT_LIST, row);
}

/// The grade is chosen from a list, and its label says so.
inline void ExpectGradeIsChosen(const DialogUser& user) {
  EXPECT_EQ(TextOf(user, IDC_STATIC_MATNAME), L"[IDS_DGN_TEXT_DB_NAME]");
  EXPECT_TRUE(user.IsShown(IDC_DGN_STEEL_MAT));
  EXPECT_FALSE(user.IsShown(IDC_DGN_STEEL_MAT2));
}

/// A name is entered, and its label says so.
inline void ExpectNameIsEntered(const DialogUser& user) {
  EXPECT_EQ(TextOf(user, IDC_STATIC_MATNAME), L"[IDS_DGN_TEXT_NAME]");
  EXPECT_FALSE(user.IsShown(IDC_DGN_STEEL_MAT));
  EXPECT_TRUE(user.IsShown(IDC_DGN_STEEL_MAT2));
}

}  // namespace dialogs_test
