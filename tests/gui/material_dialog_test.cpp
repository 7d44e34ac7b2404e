// The dialog of the materials, worked by a user.

#include <gmock/gmock.h>

#include <QTreeWidget>

#include "tests/gui/dialog_user.h"
#include "tests/gui/fit.h"
#include "tests/gui/settings_host.h"
#include "tz_alu/dialogs/dgnalumatdlg.h"
#include "tz_alu/dialogs/resource.h"

namespace gui_test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int value_edits[] = {IDC_DGN_STEEL_MATES, IDC_DGN_STEEL_MATPS, IDC_DGN_STEEL_MATF,
                               IDC_DGN_STEEL_MATFV, IDC_DGN_STEEL_MATF02};

/// A host with a material of the database (key 3), one with values of the user (7), one whose grade
/// the database does not have (8), and one of steel (9).
class MaterialDialog : public testing::Test {
 protected:
  SettingsHost host;

  MaterialDialog() {
    host.alloys = {{L"GB", L"6061-T4", {70000, 0.3, 180, 110, 111}},
                   {L"GB", L"6061-T6", {70000, 0.31, 265, 240, 241}},
                   {L"GB-T", L"5083", {71000, 0.33, 270, 110, 112}}};
    host.model.materials = {{3, {L"6061-T6", L"GB", L"6061-T6", 70000, 0.31, 265, 240, 241}},
                            {7, {L"own", L"", L"", 68000, 0.3, 250.5, 200, 190}},
                            {8, {L"gone", L"GB", L"gone", 69000, 0.3, 260, 210, 205}},
                            {9, {L"Q235", L"GB", L"Q235", 206000, 0.3, 370, 235, 225}}};
    host.other_materials = {9};
  }

  int run(const std::function<void(DialogUser&)>& script) {
    return with_user([] { return CDgnAluMatDlg().DoModal(); }, script);
  }
};

std::vector<std::wstring> values(const DialogUser& user) {
  std::vector<std::wstring> texts;
  for (const int id : value_edits) texts.push_back(user.text(id));
  return texts;
}

std::vector<bool> enabled_values(const DialogUser& user) {
  std::vector<bool> enabled;
  for (const int id : value_edits) enabled.push_back(user.is_enabled(id));
  return enabled;
}

TEST_F(MaterialDialog, ListsTheMaterialsOfAluminium) {
  run([](DialogUser& user) {
    ASSERT_EQ(user.row_count(IDC_DGN_STEELMAT_LIST), 3);
    EXPECT_THAT(user.row(IDC_DGN_STEELMAT_LIST, 0),
                ElementsAre(L"      3", L"6061-T6", L"70000", L"265", L"240", L"241"));
    EXPECT_THAT(user.row(IDC_DGN_STEELMAT_LIST, 1),
                ElementsAre(L"      7", L"own", L"68000", L"250.5", L"200", L"190"));
  });
}

TEST_F(MaterialDialog, ColumnsAreCentredAndAsWideAsTheyShouldBe) {
  run([](DialogUser& user) {
    const auto& list = user.as<QTreeWidget>(IDC_DGN_STEELMAT_LIST);
    std::vector<std::string> headers;
    std::vector<int> widths;
    for (int i = 0; i < list.columnCount(); ++i) {
      headers.push_back(list.headerItem()->text(i).toStdString());
      widths.push_back(list.columnWidth(i));
      EXPECT_TRUE(list.headerItem()->textAlignment(i) & Qt::AlignHCenter) << i;
      EXPECT_TRUE(list.topLevelItem(0)->textAlignment(i) & Qt::AlignHCenter) << i;
    }
    EXPECT_THAT(headers, ElementsAre("ID", "[IDS_DGN_LIST_NAME]", "Es", "fu", "fy1", "fy2"));
    EXPECT_THAT(widths, ElementsAre(75, 75, 72, 68, 68, 68));
  });
}

TEST_F(MaterialDialog, ASelectedRowIsMarkedFromEndToEnd) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    const auto& list = user.as<QTreeWidget>(IDC_DGN_STEELMAT_LIST);
    EXPECT_EQ(list.selectionModel()->selectedIndexes().size(), 6);
  });
}

TEST_F(MaterialDialog, StressesShowTheirUnit) {
  run([](DialogUser& user) {
    for (const int id : {IDC_DGN_STEEL_MATESUNIT, IDC_DGN_STEEL_MATFUNIT, IDC_DGN_STEEL_MATFVUNIT,
                         IDC_DGN_STEEL_MATF02UNIT}) {
      EXPECT_EQ(user.text(id), L"kN/m\u00B2") << id;
    }
  });
}

TEST_F(MaterialDialog, AClickOnARowShowsItsMaterial) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    EXPECT_THAT(values(user), ElementsAre(L"70000", L"0.31", L"265", L"240", L"241"));
    EXPECT_THAT(user.choices(IDC_DGN_STEELMAT_CODE), ElementsAre(L"None", L"GB", L"GB-T"));
    EXPECT_EQ(user.text(IDC_DGN_STEELMAT_CODE), L"GB");
    EXPECT_EQ(user.text(IDC_DGN_STEEL_MAT), L"6061-T6");
    EXPECT_EQ(user.text(IDC_STATIC_MATNAME), L"[IDS_DGN_TEXT_DB_NAME]");
  });
}

TEST_F(MaterialDialog, TheArrowKeysShowTheNextMaterial) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    user.press(Qt::Key_Down);
    EXPECT_THAT(values(user), ElementsAre(L"68000", L"0.3", L"250.5", L"200", L"190"));
    EXPECT_EQ(user.text(IDC_DGN_STEELMAT_CODE), L"None");
    EXPECT_EQ(user.text(IDC_DGN_STEEL_MAT), L"own");
  });
}

TEST_F(MaterialDialog, AnUnknownGradeIsANameToEdit) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 2);
    EXPECT_FALSE(user.is_shown(IDC_DGN_STEEL_MAT));
    EXPECT_TRUE(user.is_shown(IDC_DGN_STEEL_MAT2));
    EXPECT_EQ(user.text(IDC_STATIC_MATNAME), L"[IDS_DGN_TEXT_NAME]");
    EXPECT_EQ(user.widget(IDC_DGN_STEEL_MAT).geometry(),
              user.widget(IDC_DGN_STEEL_MAT2).geometry());
  });
}

TEST_F(MaterialDialog, AStandardZeroesTheValuesUntilAGradeIsPicked) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.choose(IDC_DGN_STEELMAT_CODE, "GB");
    EXPECT_THAT(values(user), Each(L"0"));
    EXPECT_THAT(enabled_values(user), Each(false));
    EXPECT_TRUE(user.is_shown(IDC_DGN_STEEL_MAT));
    EXPECT_FALSE(user.is_shown(IDC_DGN_STEEL_MAT2));
    EXPECT_THAT(user.choices(IDC_DGN_STEEL_MAT), ElementsAre(L"6061-T4", L"6061-T6"));
    user.choose(IDC_DGN_STEEL_MAT, "6061-T4");
    EXPECT_THAT(values(user), ElementsAre(L"70000", L"0.3", L"180", L"110", L"111"));
  });
}

TEST_F(MaterialDialog, WithoutStandardTheValuesAreTheUsers) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    user.choose(IDC_DGN_STEELMAT_CODE, "None");
    EXPECT_THAT(values(user), ElementsAre(L"70000", L"0.31", L"265", L"240", L"241"));
    EXPECT_THAT(enabled_values(user), Each(true));
    EXPECT_FALSE(user.is_shown(IDC_DGN_STEEL_MAT));
    EXPECT_TRUE(user.is_shown(IDC_DGN_STEEL_MAT2));
  });
}

TEST_F(MaterialDialog, ModifyStoresTheGradeAndRewritesItsRow) {
  run([this](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.choose(IDC_DGN_STEELMAT_CODE, "GB");
    user.choose(IDC_DGN_STEEL_MAT, "6061-T6");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    EXPECT_TRUE(user.is_open());
    EXPECT_THAT(user.row(IDC_DGN_STEELMAT_LIST, 1),
                ElementsAre(L"      7", L"6061-T6", L"70000", L"265", L"240", L"241"));
  });
  ASSERT_THAT(host.stored_materials, SizeIs(1));
  const auto& [key, material] = host.stored_materials[0];
  EXPECT_EQ(key, 7U);
  EXPECT_EQ(material.strName, L"6061-T6");
  EXPECT_EQ(material.strStandard, L"GB");
  EXPECT_EQ(material.strGrade, L"6061-T6");
  EXPECT_EQ(material.dF02Thick, 241.0);
}

TEST_F(MaterialDialog, ModifyStoresValuesOfTheUser) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.type(IDC_DGN_STEEL_MATFV, "205.5");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    EXPECT_EQ(user.row(IDC_DGN_STEELMAT_LIST, 1)[4], L"205.5");
  });
  ASSERT_THAT(host.stored_materials, SizeIs(1));
  EXPECT_EQ(host.stored_materials[0].second.strName, L"own");
  EXPECT_EQ(host.stored_materials[0].second.dF02Thin, 205.5);
}

TEST_F(MaterialDialog, ARefusedRecordLeavesTheRow) {
  host.can_store = false;
  run([this](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.type(IDC_DGN_STEEL_MATFV, "205.5");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    EXPECT_EQ(user.row(IDC_DGN_STEELMAT_LIST, 1)[4], L"200");
    EXPECT_THAT(host.log.messages, IsEmpty());
  });
}

TEST_F(MaterialDialog, WithoutAluminiumModifyAsksForAMaterial) {
  host.other_materials = {3, 7, 8, 9};
  run([this](DialogUser& user) {
    EXPECT_EQ(user.row_count(IDC_DGN_STEELMAT_LIST), 0);
    user.click(IDC_DGN_STEELMAT_MODIFY);
    ASSERT_THAT(host.log.messages, SizeIs(1));
    EXPECT_EQ(host.log.messages[0].text, L"[IDS_DGN_COM_NO_SEL_MATL]");
  });
}

TEST_F(MaterialDialog, AClickBesideTheRowsTakesTheSelectionAway) {
  run([this](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    user.click_row(IDC_DGN_STEELMAT_LIST, -1);
    user.click(IDC_DGN_STEELMAT_MODIFY);
    ASSERT_THAT(host.log.messages, SizeIs(1));
    EXPECT_EQ(host.log.messages[0].text, L"[IDS_DGN_COM_NO_SEL_MATL]");
  });
}

TEST_F(MaterialDialog, APoissonRatioOfZeroIsRefused) {
  run([this](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.type(IDC_DGN_STEEL_MATPS, "0");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    ASSERT_THAT(host.log.messages, SizeIs(1));
    EXPECT_EQ(host.log.messages[0].text, L"[IDS_DGN_CHK_TITLE_ERROR]\n[IDS_DGN_CHK_MATL_PS_ERROR]");
  });
  EXPECT_THAT(host.stored_materials, IsEmpty());
}

TEST_F(MaterialDialog, APoissonRatioBeyondOneHalfIsAccepted) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.type(IDC_DGN_STEEL_MATPS, "0.6");
    user.click(IDC_DGN_STEELMAT_MODIFY);
  });
  ASSERT_THAT(host.stored_materials, SizeIs(1));
  EXPECT_EQ(host.stored_materials[0].second.dPoisson, 0.6);
}

TEST_F(MaterialDialog, OneMessageListsEveryProblemInOrder) {
  run([this](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    // Choosing "None" leaves the grades empty, and with them the name.
    user.choose(IDC_DGN_STEELMAT_CODE, "None");
    for (const int id : value_edits) user.type(id, "-1");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    ASSERT_THAT(host.log.messages, SizeIs(1));
    EXPECT_EQ(host.log.messages[0].text,
              L"[IDS_DGN_CHK_TITLE_ERROR]\n[IDS_DGN_CHK_STL_MATL_NAME_ERROR]\n"
              L"[IDS_DGN_CHK_MATL_ES_ERROR]\n[IDS_DGN_CHK_MATL_PS_ERROR]\n"
              L"[IDS_DGN_CHK_MATL_FU_ERROR]\n[IDS_DGN_CHK_MATL_FY1_ERROR]\n"
              L"[IDS_DGN_CHK_MATL_FY2_ERROR]");
  });
}

TEST_F(MaterialDialog, CloseAndEscapeCloseIt) {
  EXPECT_EQ(run([](DialogUser& user) { user.click(IDCANCEL); }), IDCANCEL);
  EXPECT_EQ(run([](DialogUser& user) { user.press(Qt::Key_Escape); }), IDCANCEL);
}

// The dialog has no default button, and its OK closes it.
TEST_F(MaterialDialog, EnterClosesItWithOk) {
  EXPECT_EQ(run([](DialogUser& user) { user.press(Qt::Key_Return); }), IDOK);
  EXPECT_THAT(host.stored_materials, IsEmpty());
}

TEST_F(MaterialDialog, EnterOnModifyModifies) {
  run([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 1);
    user.widget(IDC_DGN_STEELMAT_MODIFY).setFocus();
    user.press(Qt::Key_Return);
    EXPECT_TRUE(user.is_open());
  });
  EXPECT_THAT(host.stored_materials, SizeIs(1));
}

// The order of the dialog's template.
TEST_F(MaterialDialog, TabFollowsTheTemplate) {
  std::vector<int> stops;
  run([&](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    for (int i = 0; i < 10; ++i) {
      stops.push_back(user.focus());
      user.press(Qt::Key_Tab);
    }
    EXPECT_EQ(user.focus(), IDC_DGN_STEELMAT_LIST);
  });
  EXPECT_THAT(stops, ElementsAre(IDC_DGN_STEELMAT_LIST, IDC_DGN_STEELMAT_CODE, IDC_DGN_STEEL_MAT,
                                 IDC_DGN_STEEL_MATES, IDC_DGN_STEEL_MATPS, IDC_DGN_STEEL_MATF,
                                 IDC_DGN_STEEL_MATFV, IDC_DGN_STEEL_MATF02, IDC_DGN_STEELMAT_MODIFY,
                                 IDCANCEL));
}

TEST_F(MaterialDialog, NoTextIsCut) {
  run([](DialogUser& user) {
    EXPECT_THAT(cut_texts(user.window()), IsEmpty());
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    EXPECT_THAT(cut_texts(user.window()), IsEmpty());
    user.choose(IDC_DGN_STEELMAT_CODE, "None");
    EXPECT_THAT(cut_texts(user.window()), IsEmpty());
  });
}

TEST_F(MaterialDialog, OnlyNameAndGradeShareAPlace) {
  run([](DialogUser& user) {
    const std::string shared =
        std::to_string(IDC_DGN_STEEL_MAT2) + '/' + std::to_string(IDC_DGN_STEEL_MAT);
    EXPECT_THAT(overlaps(user.window()), ElementsAre(shared));
  });
}

}  // namespace
}  // namespace gui_test
