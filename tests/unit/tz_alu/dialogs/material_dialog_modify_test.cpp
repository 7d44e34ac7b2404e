// What Modify stores, and what it does to the row.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using test_support::RaisedAssertion;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MaterialDialogModifyTest : public MaterialDialogTest {
 protected:
  /// The key and the record that were stored with the only AddMatd.
  const std::pair<UINT, T_MATD_D>& Stored() const {
    EXPECT_THAT(host_.stored_materials, SizeIs(1));
    return host_.stored_materials.at(0);
  }
  void ExpectName(const wchar_t* name, const wchar_t* standard, const wchar_t* grade) const {
    EXPECT_TRUE(Stored().second.strName == name);
    EXPECT_TRUE(Stored().second.strStandard == standard);
    EXPECT_TRUE(Stored().second.strGrade == grade);
  }
  void ExpectValues(double es, double ps, double fu, double fy1, double fy2) const {
    const T_MATD_D& material = Stored().second;
    EXPECT_EQ(material.dElast, es);
    EXPECT_EQ(material.dPoisson, ps);
    EXPECT_EQ(material.dFu, fu);
    EXPECT_EQ(material.dF02Thin, fy1);
    EXPECT_EQ(material.dF02Thick, fy2);
  }
};

void Modify(DialogUser& user) {
  user.click(IDC_DGN_STEELMAT_MODIFY);
}

TEST_F(MaterialDialogModifyTest, WithoutASelectionItAsksForAMaterial) {
  Run([](DialogUser& user) {
    Modify(user);
    EXPECT_TRUE(user.is_open());
  });
  ASSERT_THAT(host_.log.messages, SizeIs(1));
  EXPECT_EQ(host_.log.messages[0].text, L"[IDS_DGN_COM_NO_SEL_MATL]");
  EXPECT_EQ(host_.log.messages[0].type, 0U);  // an OK button
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddMatd")));
}

TEST_F(MaterialDialogModifyTest, OfAnEmptyListItAsksForAMaterial) {
  host_.model.materials.clear();
  Run(Modify);
  ASSERT_THAT(host_.log.messages, SizeIs(1));
  EXPECT_EQ(host_.log.messages[0].text, L"[IDS_DGN_COM_NO_SEL_MATL]");
}

TEST_F(MaterialDialogModifyTest, AfterAClickBesideTheRowsItAsksForAMaterial) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    ClickRow(user, -1);
    Modify(user);
  });
  EXPECT_THAT(host_.log.messages, SizeIs(1));
  EXPECT_THAT(host_.stored_materials, IsEmpty());
}

TEST_F(MaterialDialogModifyTest, ValuesOfTheUserAreStored) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.type(IDC_DGN_STEEL_MATES, L"71000");
    user.type(IDC_DGN_STEEL_MATPS, L"0.29");
    user.type(IDC_DGN_STEEL_MATF, L"300.25");
    user.type(IDC_DGN_STEEL_MATFV, L"220");
    user.type(IDC_DGN_STEEL_MATF02, L"215");
    Modify(user);
  });
  EXPECT_EQ(Stored().first, 7U);
  ExpectName(L"own", L"", L"");
  ExpectValues(71000, 0.29, 300.25, 220, 215);
}

TEST_F(MaterialDialogModifyTest, AGradeIsStoredWithItsNameAndValues) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T4");
    Modify(user);
  });
  EXPECT_EQ(Stored().first, 7U);
  ExpectName(L"6061-T4", L"GB", L"6061-T4");
  ExpectValues(70000, 0.3, 180, 110, 111);
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

// The values are the edits', not the database's.
TEST_F(MaterialDialogModifyTest, AGradeWithChangedValuesIsStoredWithThem) {
  Run([](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.type(IDC_DGN_STEEL_MATFV, L"150");
    Modify(user);
  });
  ExpectName(L"6061-T6", L"GB", L"6061-T6");
  ExpectValues(70500, 0.32, 266, 150, 243);
}

TEST_F(MaterialDialogModifyTest, TheRowIsRewrittenButForItsKey) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T4");
    Modify(user);
    EXPECT_THAT(Row(user, kOwnRow),
                ElementsAre(L"      7", L"6061-T4", L"70000", L"180", L"110", L"111"));
    EXPECT_THAT(Row(user, kGradeRow),
                ElementsAre(L"      3", L"girder", L"70500", L"266", L"242", L"243"));
    EXPECT_EQ(user.RowCount(IDC_DGN_STEELMAT_LIST), 4);
  });
}

TEST_F(MaterialDialogModifyTest, TheRowShowsSixDigitsOfWhatIsStoredInFull) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.type(IDC_DGN_STEEL_MATES, L"71234.5678");
    Modify(user);
    EXPECT_EQ(Row(user, kOwnRow)[2], L"71234.6");
  });
  EXPECT_EQ(Stored().second.dElast, 71234.5678);
}

TEST_F(MaterialDialogModifyTest, TheDialogStaysOpen) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    Modify(user);
    EXPECT_TRUE(user.is_open());
    EXPECT_EQ(user.SelectedRow(IDC_DGN_STEELMAT_LIST), kOwnRow);
  });
  EXPECT_THAT(host_.log.messages, IsEmpty());
}

// Kept: the name is the grade list's entry, whatever the name edit holds.
TEST_F(MaterialDialogModifyTest, TheNameEditIsNotRead) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.SetText(IDC_DGN_STEEL_MAT2, L"entered");
    Modify(user);
  });
  ExpectName(L"own", L"", L"");
}

TEST_F(MaterialDialogModifyTest, ValuesOfTheUserKeepNoGrade) {
  host_.model.materials[7].strGrade = L"6061-T6";
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    Modify(user);
  });
  ExpectName(L"own", L"", L"");
}

TEST_F(MaterialDialogModifyTest, AStandardOfTheNameNoneIsStoredAsNone) {
  host_.model.materials[7].strStandard = L"None";
  host_.model.materials[7].strGrade = L"mine";
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    Modify(user);
  });
  ExpectName(L"mine", L"", L"");
}

TEST_F(MaterialDialogModifyTest, AfterChoosingNoneTheNameThatIsEnteredIsNotRead) {
  Run([this](DialogUser& user) {
    ClickRow(user, kGradeRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"None");
    user.type(IDC_DGN_STEEL_MAT2, L"entered");
    Modify(user);
    ASSERT_THAT(host_.log.messages, SizeIs(1));
    EXPECT_EQ(host_.log.messages[0].text,
              L"[IDS_DGN_CHK_TITLE_ERROR]\n[IDS_DGN_CHK_STL_MATL_NAME_ERROR]");
  });
  EXPECT_THAT(host_.stored_materials, IsEmpty());
}

TEST_F(MaterialDialogModifyTest, OfValuesOfTheUserNoGradeIsLookedUp) {
  Run([this](DialogUser& user) {
    ClickRow(user, kOwnRow);
    host_.calls.clear();
    Modify(user);
  });
  EXPECT_THAT(host_.calls, ElementsAre("GetMatlDesign", "AddMatd"));
}

TEST_F(MaterialDialogModifyTest, AGradeThatTheDatabaseLacksIsAnInconsistencyAndIsStored) {
  Run([this](DialogUser& user) {
    ClickRow(user, kGradeRow);
    host_.alloys.clear();
    Modify(user);
  });
  EXPECT_THAT(host_.log.assertions, ElementsAre(RaisedAssertion{L"dgnalumatdlg", 195}));
  EXPECT_THAT(host_.log.messages, IsEmpty());
  ExpectName(L"6061-T6", L"GB", L"6061-T6");
  ExpectValues(70500, 0.32, 266, 242, 243);
}

TEST_F(MaterialDialogModifyTest, WithoutReleaseAssertionsAnInconsistencyIsPassedOver) {
  host_.model.is_release_assert = 0;
  Run([this](DialogUser& user) {
    ClickRow(user, kGradeRow);
    host_.alloys.clear();
    Modify(user);
  });
  EXPECT_THAT(host_.log.assertions, IsEmpty());
  EXPECT_THAT(host_.stored_materials, SizeIs(1));
}

TEST_F(MaterialDialogModifyTest, AGradeThatIsNotSelectedIsStoredWithoutName) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownGradeRow);
    user.type(IDC_DGN_STEEL_MAT2, L"entered");
    Modify(user);
    EXPECT_EQ(Row(user, kUnknownGradeRow)[1], L"");
  });
  EXPECT_EQ(Stored().first, 8U);
  ExpectName(L"", L"GB", L"");
  EXPECT_THAT(host_.log.assertions, ElementsAre(RaisedAssertion{L"dgnalumatdlg", 195}));
}

TEST_F(MaterialDialogModifyTest, AStandardThatIsNotSelectedIsStoredWithoutNames) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownStandardRow);
    Modify(user);
  });
  EXPECT_EQ(Stored().first, 9U);
  ExpectName(L"", L"", L"");
  EXPECT_THAT(host_.log.assertions, ElementsAre(RaisedAssertion{L"dgnalumatdlg", 195}));
}

TEST_F(MaterialDialogModifyTest, ARefusedRecordLeavesTheRowWithoutMessage) {
  host_.can_store = false;
  Run([this](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.type(IDC_DGN_STEEL_MATFV, L"205.5");
    Modify(user);
    EXPECT_TRUE(user.is_open());
    EXPECT_THAT(Row(user, kOwnRow),
                ElementsAre(L"      7", L"own", L"68000", L"250.5", L"200", L"190"));
    EXPECT_THAT(host_.log.messages, IsEmpty());
  });
}

TEST_F(MaterialDialogModifyTest, EachMaterialIsStoredUnderItsOwnKey) {
  host_.material_keys = {{9, 7, 3}};
  Run([](DialogUser& user) {
    for (const int row : {2, 0, 1}) {
      ClickRow(user, row);
      Modify(user);
    }
  });
  ASSERT_THAT(host_.stored_materials, SizeIs(3));
  EXPECT_EQ(host_.stored_materials[0].first, 3U);
  EXPECT_EQ(host_.stored_materials[1].first, 9U);
  EXPECT_EQ(host_.stored_materials[2].first, 7U);
}

TEST_F(MaterialDialogModifyTest, AnUnchangedMaterialIsStoredAsItWas) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    Modify(user);
  });
  ExpectName(L"own", L"", L"");
  ExpectValues(68000, 0.34, 250.5, 200, 190);
}

TEST_F(MaterialDialogModifyTest, ASecondModifyBuildsOnTheFirst) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.choose(IDC_DGN_STEELMAT_CODE, L"GB");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T4");
    Modify(user);
    ClickRow(user, kGradeRow);
    ClickRow(user, kOwnRow);
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MAT), L"6061-T4");
    user.choose(IDC_DGN_STEEL_MAT, L"6061-T6");
    Modify(user);
    EXPECT_EQ(Row(user, kOwnRow)[1], L"6061-T6");
  });
  ASSERT_THAT(host_.stored_materials, SizeIs(2));
  EXPECT_TRUE(host_.stored_materials[1].second.strGrade == L"6061-T6");
}

}  // namespace
