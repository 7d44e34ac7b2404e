// What the settings dialogs choose from: codes, alloys, units, and texts.

#include <gmock/gmock.h>

#include "aluframe/services/alloy_database.h"
#include "aluframe/services/design_codes.h"
#include "aluframe/services/session.h"
#include "aluframe/services/text.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> texts(const CArray<CString>& array) {
  std::vector<std::string> out;
  for (const CString& text : array) out.push_back(to_utf8(text));
  return out;
}

TEST(DesignCodes, BothCodesAreListedByTheirInternalNames) {
  CArray<CString> codes;
  codes.Add(L"left from before");
  list_design_codes(codes);
  EXPECT_THAT(texts(codes), ElementsAre("GB50429-07(A)", "GB50068-2018"));
}

TEST(DesignCodes, NamesConvertBothWaysAndUnknownOnesStay) {
  EXPECT_TRUE(shown_code_name(L"GB50429-07(A)") == L"GB50429-2007");
  EXPECT_TRUE(internal_code_name(L"GB50429-2007") == L"GB50429-07(A)");
  EXPECT_TRUE(shown_code_name(L"GB50068-2018") == L"GB50068-2018");
  EXPECT_TRUE(internal_code_name(L"GB50068-2018") == L"GB50068-2018");
  for (const wchar_t* other : {L"", L"gb50429-07(a)", L"EN 1999"}) {
    EXPECT_TRUE(shown_code_name(other) == other);
    EXPECT_TRUE(internal_code_name(other) == other);
  }
}

TEST(DesignCodes, NewModelsPreferTheAluminiumCode) {
  T_PREFERENCE preference;
  Preferences().GetPreference(preference);
  EXPECT_TRUE(preference.strAluCode == L"GB50429-07(A)");
}

class AlloyDatabaseTest : public testing::Test {
 protected:
  int find(const wchar_t* code, const wchar_t* grade) {
    return database_.GetAluminumData(code, grade, text_, values_, 0, 0.0);
  }

  UnitScale scale_;
  const AlloyDatabase database_{scale_};
  CString text_;
  T_ALUMINUM_DATA values_;
};

TEST_F(AlloyDatabaseTest, ItsTypeHasOneStandardAndOthersNone) {
  CArray<CString> codes;
  EXPECT_EQ(database_.GetDesignCodeList(alloy_database_type, codes), 1);
  EXPECT_THAT(texts(codes), ElementsAre("GB50429-07(A)"));
  EXPECT_EQ(database_.GetDesignCodeList(alloy_database_type + 1, codes), 0);
  EXPECT_THAT(texts(codes), IsEmpty());
}

// The grades of GB 50429-2007's table of design strengths.
TEST_F(AlloyDatabaseTest, TheStandardHasTheCodesGradesInItsOrder) {
  CArray<CString> grades;
  EXPECT_EQ(database_.GetAluminumNameList(L"GB50429-07(A)", grades), 11);
  EXPECT_THAT(texts(grades),
              ElementsAre("6061-T4", "6061-T6", "6063-T5", "6063-T6", "6063A-T5", "6063A-T6",
                          "5083-O/F", "5083-H112", "3003-H24", "3004-H34", "3004-H36"));
  EXPECT_EQ(database_.GetAluminumNameList(L"user", grades), 0);
  EXPECT_THAT(texts(grades), IsEmpty());
}

// GB 50429-2007: f0.2 of 6063A-T5 is 160 N/mm² up to 10 mm and 150 above, fu 200, E 70000, ν 0.3.
TEST_F(AlloyDatabaseTest, AGradeHasTheCodesValues) {
  ASSERT_EQ(find(L"GB50429-07(A)", L"6063A-T5"), 1);
  EXPECT_EQ(values_.dElast, 70000);
  EXPECT_EQ(values_.dPoisson, 0.3);
  EXPECT_EQ(values_.dFu, 200);
  EXPECT_EQ(values_.dF02Thin, 160);
  EXPECT_EQ(values_.dF02Thick, 150);
  EXPECT_TRUE(text_ == L"6063A-T5");
}

TEST_F(AlloyDatabaseTest, ValuesAreInTheCurrentUnits) {
  scale_ = UnitScale({1, 1});  // kN/cm²: 10 N/mm²
  ASSERT_EQ(find(L"GB50429-07(A)", L"6061-T6"), 1);
  EXPECT_EQ(values_.dElast, 7000);
  EXPECT_EQ(values_.dFu, 26.5);
  EXPECT_EQ(values_.dPoisson, 0.3);
}

TEST_F(AlloyDatabaseTest, WhatItLacksLeavesTheCallersValues) {
  values_.dFu = 7;
  EXPECT_EQ(find(L"GB50429-07(A)", L"6061"), 0);
  EXPECT_EQ(find(L"user", L"6061-T6"), 0);
  EXPECT_EQ(find(L"", L""), 0);
  EXPECT_EQ(values_.dFu, 7);
  EXPECT_TRUE(text_.IsEmpty());
}

/// A session over a model that may be changed.
class EditingSession : public testing::Test {
 protected:
  static SessionOptions editing(model::Model& model) {
    SessionOptions options;
    options.editable = &model;
    return options;
  }

  model::Model model_ = sample_model();
  Session session_{model_, editing(model_)};
  CDBDoc& document_ = *session_.DocPoint();
};

TEST_F(EditingSession, StoresSettingsAndMaterialsThatItsServicesThenRead) {
  T_DALU_D settings;
  ASSERT_EQ(document_.GetAttrCtrl().GetDalu(settings), 1);
  settings.nSafetyClass = 2;
  ASSERT_EQ(document_.GetDataCtrl().AddDalu(settings), 1);
  settings.nSafetyClass = 0;
  document_.GetAttrCtrl().GetDalu(settings);
  EXPECT_EQ(settings.nSafetyClass, 2);

  T_MATD_D material;
  ASSERT_EQ(document_.GetAttrCtrl().GetMatlDesign(1, material), 1);
  material.dPoisson = 0.31;
  ASSERT_EQ(document_.GetDataCtrl().AddMatd(1, material), 1);
  material.dPoisson = 0;
  document_.GetAttrCtrl().GetMatlDesign(1, material);
  EXPECT_EQ(material.dPoisson, 0.31);

  EXPECT_TRUE(session_.editor().settings_changed());
  EXPECT_THAT(session_.editor().changed_materials(), ElementsAre(1));
}

TEST_F(EditingSession, IsOverTheModelThatMayBeChanged) {
  const model::Model other = sample_with("\"safety_class\": 1", "\"safety_class\": 3");
  Session session(other, editing(model_));
  T_DALU_D settings;
  session.DocPoint()->GetAttrCtrl().GetDalu(settings);
  EXPECT_EQ(settings.nSafetyClass, 0);
}

TEST_F(EditingSession, ChangesNothingWithoutAModelToChange) {
  Session session(model_, {});
  CDBDoc& document = *session.DocPoint();
  T_DALU_D settings;
  document.GetAttrCtrl().GetDalu(settings);
  EXPECT_EQ(document.GetDataCtrl().AddDalu(settings), 0);
}

// The sample is in kN and m.
TEST_F(EditingSession, LabelsStressesWithTheCurrentUnits) {
  CUnitCtrl& units = document_.GetUnitCtrl();
  EXPECT_EQ(to_utf8(units.GetUnitText(17)), "kN/m\u00B2");
  units.SetUnitIndexCurrent({0, 2}, 0);
  EXPECT_EQ(to_utf8(units.GetUnitText(17)), "N/mm\u00B2");
  units.SetUnitIndexCurrent({5, 4}, 0);
  EXPECT_EQ(to_utf8(units.GetUnitText(17)), "kip/in\u00B2");
  EXPECT_TRUE(units.GetUnitText(1).IsEmpty());
}

TEST_F(EditingSession, EveryMaterialOfTheModelIsAluminium) {
  const IAluDgnTool& tool = document_.GetAluDgnTool();
  EXPECT_EQ(tool.IsAluMatl(1), 1);
  EXPECT_EQ(tool.IsAluMatl(9), 0);
}

TEST_F(EditingSession, TheToolLeadsToTheAlloysOfTheDatabase) {
  const IAluDgnTool& tool = document_.GetAluDgnTool();
  CArray<CString> codes;
  ASSERT_EQ(document_.GetMatlDB().GetDesignCodeList(tool.GetDgnAluMatlDBType(), codes), 1);
  EXPECT_EQ(tool.IsAluMatlCode_CH(codes[0]), 1);
  EXPECT_EQ(tool.IsAluMatlCode_CH(L"user"), 0);
}

TEST_F(EditingSession, HandsOutCodesAndThePreferredOne) {
  CArray<CString> codes;
  session_.AluCodeNames(codes);
  EXPECT_EQ(codes.GetSize(), 2);
  EXPECT_TRUE(session_.ShownCodeName(L"GB50429-07(A)") == L"GB50429-2007");
  EXPECT_TRUE(session_.InternalCodeName(L"GB50429-2007") == L"GB50429-07(A)");
  T_PREFERENCE preference;
  document_.GetInitCtrl().GetPreference(preference);
  EXPECT_TRUE(preference.strAluCode == L"GB50429-07(A)");
}

TEST(MessageBoxesTest, SomebodyWhoCanAnswerABoxGetsItInsteadOfTheHistory) {
  const model::Model model = sample_model();
  std::vector<std::string> boxes, history;
  SessionOptions options;
  options.message_box = [&](const std::string& text, UINT type) {
    boxes.push_back(text + " " + std::to_string(type));
    return 7;
  };
  options.message = [&](const std::string& text) { history.push_back(text); };
  Session session(model, options);
  EXPECT_FALSE(session.DocPoint()->IsRegTestMode());
  EXPECT_EQ(session.ShowMessageBox(L"\u94DD", 48), 7);
  EXPECT_THAT(boxes, ElementsAre("\u94DD 48"));
  EXPECT_THAT(history, IsEmpty());
  EXPECT_TRUE(session.had_message());
}

}  // namespace
}  // namespace aluframe::services
