// The records of the settings dialogs, read from a model and stored in it.

#include <gmock/gmock.h>

#include "aluframe/catalogue/alloys.h"
#include "aluframe/services/attributes.h"
#include "aluframe/services/model_editor.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The sample, whose material 1 is 6063A-T5 without a name, with a material of the user as 4.
class SettingsRecords : public testing::Test {
 protected:
  static model::Model sample_with_own_values() {
    model::Model model = sample_model();
    model::Material own;
    own.number = 4;
    own.name = "Extrusion";
    own.standard = "user";
    own.grade = "X1";
    own.e = 69000;
    own.poisson = 0.33;
    own.fu = 215;
    own.f02_thin = 170;
    own.f02_thick = 165;
    own.density = 2.66e-6;
    own.thermal_expansion = 2.4e-5;
    model.materials.add(own);
    return model;
  }

  T_MATD_D material(UINT key) {
    T_MATD_D record;
    EXPECT_EQ(Attributes(model_, scale_).GetMatlDesign(key, record), 1);
    return record;
  }
  T_DALU_D settings() {
    T_DALU_D record;
    EXPECT_EQ(Attributes(model_, scale_).GetDalu(record), 1);
    return record;
  }
  const model::Material& stored(UINT key) { return *model_.materials.find(key); }
  bool has_name(UINT key, const wchar_t* name) { return material(key).strName == name; }

  model::Model model_ = sample_with_own_values();
  UnitScale scale_;
  ModelEditor editor_{&model_, scale_};
};

TEST_F(SettingsRecords, MaterialsAreListedInTheOrderOfTheModel) {
  model::Material another;
  another.number = 2;
  model_.materials.add(another);
  CArray<UINT> keys;
  EXPECT_EQ(Attributes(model_, scale_).GetMatlKeyList(keys), 3);
  EXPECT_THAT(std::vector<UINT>(keys.begin(), keys.end()), ElementsAre(1, 4, 2));
}

TEST_F(SettingsRecords, AMaterialWithoutANameGoesByItsGrade) {
  EXPECT_TRUE(has_name(1, L"6063A-T5"));
  EXPECT_TRUE(has_name(4, L"Extrusion"));
}

TEST_F(SettingsRecords, ValuesOfTheUserHaveNoStandard) {
  EXPECT_TRUE(material(4).strStandard.IsEmpty());
  EXPECT_TRUE(material(4).strGrade == L"X1");
  EXPECT_TRUE(material(1).strStandard == L"GB50429-07(A)");
}

TEST_F(SettingsRecords, AModelKnowsWhetherItHasSettings) {
  EXPECT_EQ(Attributes(model_, scale_).ExistDalu(), 1);
  model_.design.reset();
  EXPECT_EQ(Attributes(model_, scale_).ExistDalu(), 0);
}

TEST_F(SettingsRecords, WhatIsStoredUnchangedLeavesTheModelAsItWas) {
  const auto before = model_.design;
  EXPECT_EQ(editor_.AddDalu(settings()), 1);
  EXPECT_EQ(editor_.AddMatd(1, material(1)), 1);
  EXPECT_EQ(editor_.AddMatd(4, material(4)), 1);
  EXPECT_EQ(model_.design, before);
  EXPECT_FALSE(editor_.settings_changed());
  EXPECT_THAT(editor_.changed_materials(), IsEmpty());
}

TEST_F(SettingsRecords, EveryFieldOfTheSettingsIsStored) {
  const T_DALU_D record{.strCode = L"GB50429-07(A)",
                        .bRib = 1,
                        .dRibRatio = 1.3,
                        .nSafetyClass = 2,
                        .dStrengthRatio = 0.8,
                        .bSeismic = 0,
                        .dGammaREStrength = 0.6,
                        .dGammaREStability = 0.65};
  EXPECT_EQ(editor_.AddDalu(record), 1);
  EXPECT_EQ(model_.design, (model::DesignSettings{.code = "GB50429-07(A)",
                                                  .rib = true,
                                                  .rib_ratio = 1.3,
                                                  .safety_class = 3,
                                                  .strength_ratio = 0.8,
                                                  .seismic = false,
                                                  .gamma_re_strength = 0.6,
                                                  .gamma_re_stability = 0.65}));
  EXPECT_TRUE(editor_.settings_changed());
}

TEST_F(SettingsRecords, AModelWithoutSettingsGetsThem) {
  model_.design.reset();
  ModelEditor editor(&model_, scale_);
  T_DALU_D record;
  record.strCode = L"GB50429-07(A)";
  EXPECT_EQ(editor.AddDalu(record), 1);
  EXPECT_EQ(model_.design, model::DesignSettings());
  EXPECT_TRUE(editor.settings_changed());
}

TEST_F(SettingsRecords, SettingsThatAModelCannotHoldAreRefused) {
  const auto before = model_.design;
  for (const wchar_t* code : {L"GB50068-2018", L"GB50429-2007", L"", L"other"}) {
    T_DALU_D record = settings();
    record.strCode = code;
    record.bRib = 1;
    EXPECT_EQ(editor_.AddDalu(record), 0);
  }
  for (const int safety_class : {-1, 3}) {
    T_DALU_D record = settings();
    record.nSafetyClass = safety_class;
    EXPECT_EQ(editor_.AddDalu(record), 0);
  }
  EXPECT_EQ(model_.design, before);
}

TEST_F(SettingsRecords, EveryFieldOfAMaterialIsStoredAndTheOthersStay) {
  const T_MATD_D record{.strName = L"\u94DD",
                        .strStandard = L"EN 755",
                        .strGrade = L"6005A",
                        .dElast = 70500,
                        .dPoisson = 0.31,
                        .dFu = 255,
                        .dF02Thin = 215,
                        .dF02Thick = 200};
  EXPECT_EQ(editor_.AddMatd(4, record), 1);
  EXPECT_EQ(stored(4), (model::Material{.number = 4,
                                        .name = "\u94DD",
                                        .standard = "EN 755",
                                        .grade = "6005A",
                                        .e = 70500,
                                        .poisson = 0.31,
                                        .density = 2.66e-6,
                                        .thermal_expansion = 2.4e-5,
                                        .f02_thin = 215,
                                        .f02_thick = 200,
                                        .fu = 255}));
  EXPECT_THAT(editor_.changed_materials(), ElementsAre(4));
}

TEST_F(SettingsRecords, AnEmptyStandardIsStoredAsTheUsersOwn) {
  T_MATD_D record = material(1);
  record.strStandard = L"";
  record.strGrade = L"";
  EXPECT_EQ(editor_.AddMatd(1, record), 1);
  EXPECT_EQ(stored(1).standard, "user");
  EXPECT_EQ(stored(1).grade, "");
  EXPECT_EQ(stored(1).name, "6063A-T5") << "it goes on under the name that the user saw";
}

TEST_F(SettingsRecords, AMaterialWithoutANameStaysSoUnderItsNewGrade) {
  T_MATD_D record = material(1);
  record.strName = record.strGrade = L"6061-T6";
  EXPECT_EQ(editor_.AddMatd(1, record), 1);
  EXPECT_EQ(stored(1).name, "");
  EXPECT_EQ(stored(1).grade, "6061-T6");
}

TEST_F(SettingsRecords, AMaterialWithANameTakesTheOneThatIsStored) {
  T_MATD_D record = material(4);
  record.strName = record.strGrade = L"6061-T6";
  EXPECT_EQ(editor_.AddMatd(4, record), 1);
  EXPECT_EQ(stored(4).name, "6061-T6");
}

TEST_F(SettingsRecords, AGradeThatTheStandardLacksIsRefused) {
  for (const wchar_t* grade : {L"6061-T7", L"6061-t6", L""}) {
    T_MATD_D record = material(1);
    record.strGrade = grade;
    EXPECT_EQ(editor_.AddMatd(1, record), 0);
  }
  EXPECT_THAT(editor_.changed_materials(), IsEmpty());
}

TEST_F(SettingsRecords, AnUnknownMaterialIsRefused) {
  EXPECT_EQ(editor_.AddMatd(9, material(4)), 0);
  EXPECT_EQ(model_.materials.size(), 2U);
}

TEST_F(SettingsRecords, NothingCanBeStoredWithoutAnEditableModel) {
  ModelEditor nothing(nullptr, scale_);
  EXPECT_EQ(nothing.AddDalu(settings()), 0);
  EXPECT_EQ(nothing.AddMatd(4, material(4)), 0);
  EXPECT_FALSE(nothing.settings_changed());
  EXPECT_THAT(nothing.changed_materials(), IsEmpty());
}

TEST_F(SettingsRecords, WhatIsChangedBackIsNotChanged) {
  const T_MATD_D first = material(4);
  T_MATD_D other = first;
  other.dFu = 216;
  editor_.AddMatd(4, other);
  EXPECT_THAT(editor_.changed_materials(), ElementsAre(4));
  editor_.AddMatd(4, first);
  EXPECT_THAT(editor_.changed_materials(), IsEmpty());
}

// 1 kN/m² = 1e-3 N/mm²; 1 ksi = 4448.2216152605 N / (25.4 mm)² = 6.894757293168361 N/mm².
TEST_F(SettingsRecords, StressesAreInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});
  EXPECT_EQ(material(4).dElast, 69e6);
  EXPECT_EQ(material(4).dFu, 215e3);
  T_MATD_D record = material(4);
  record.dF02Thin = 172.5e3;
  EXPECT_EQ(editor_.AddMatd(4, record), 1);
  EXPECT_EQ(stored(4).f02_thin, 172.5);
  scale_ = UnitScale({5, 4});
  record = material(4);
  EXPECT_NEAR(record.dFu, 215 / 6.894757293168361, 1e-12);
  record.dFu = 40;
  EXPECT_EQ(editor_.AddMatd(4, record), 1);
  EXPECT_NEAR(stored(4).fu, 275.79029172673444, 1e-11);  // 40 ksi; the last digit may round
  EXPECT_EQ(stored(4).poisson, 0.33);
}

// Otherwise looking at an alloy in other units would make it values of the user, which design by
// other strengths.
TEST_F(SettingsRecords, NoUnitsChangeAnAlloyThatIsStoredUnchanged) {
  for (const catalogue::Alloy& alloy : catalogue::alloys()) {
    model::Material before = catalogue::material_of(alloy);
    before.number = 1;
    model_.materials.replace(before);
    for (int unit = 0; unit < 30; ++unit) {
      scale_ = UnitScale({unit / 5, unit % 5});
      EXPECT_EQ(editor_.AddMatd(1, material(1)), 1);
      EXPECT_EQ(stored(1), before)
          << alloy.grade << " in force unit " << unit / 5 << ", length unit " << unit % 5;
    }
  }
}

}  // namespace
}  // namespace aluframe::services
