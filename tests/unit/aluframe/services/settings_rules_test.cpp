#include "aluframe/services/settings_rules.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace aluframe::services {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double infinity = std::numeric_limits<double>::infinity();

template <class Record>
std::vector<std::string> broken(const Record& record) {
  std::vector<std::string> texts;
  for (const BrokenRule& rule : broken_rules(record)) {
    texts.push_back(rule.field + ": " + rule.text);
  }
  return texts;
}

model::Material sound_material() {
  model::Material material;
  material.standard = "user";
  material.name = "Extrusion";
  material.fu = 200;
  material.f02_thin = 160;
  material.f02_thick = 150;
  return material;
}

TEST(SettingsRules, DefaultsMeetThem) {
  EXPECT_THAT(broken(model::DesignSettings()), IsEmpty());
  EXPECT_THAT(broken(sound_material()), IsEmpty());
}

TEST(SettingsRules, EveryRatioAndFactorIsAtLeastOneMillionth) {
  for (double model::DesignSettings::* member :
       {&model::DesignSettings::rib_ratio, &model::DesignSettings::strength_ratio,
        &model::DesignSettings::gamma_re_strength, &model::DesignSettings::gamma_re_stability}) {
    model::DesignSettings settings;
    settings.*member = 1e-6;
    EXPECT_THAT(broken(settings), IsEmpty());
    settings.*member = 1e30;
    EXPECT_THAT(broken(settings), IsEmpty());
    for (const double wrong :
         {std::nextafter(1e-6, 0.0), 0.0, -1.0, 1.1e30, infinity, std::nan("")}) {
      settings.*member = wrong;
      EXPECT_EQ(broken(settings).size(), 1U) << wrong;
    }
  }
}

TEST(SettingsRules, NumbersCountAlsoWhereASwitchLeavesThemUnused) {
  model::DesignSettings settings;
  settings.rib = settings.seismic = false;
  settings.rib_ratio = 0;
  settings.gamma_re_strength = 1e-7;
  EXPECT_THAT(broken(settings),
              ElementsAre("rib_ratio: found 0, must be between 1e-06 and 1e+30",
                          "gamma_re_strength: found 1e-07, must be between 1e-06 and 1e+30"));
}

TEST(SettingsRules, ThereAreThreeSafetyClasses) {
  model::DesignSettings settings;
  for (const int wrong : {0, 4, -1}) {
    settings.safety_class = wrong;
    EXPECT_THAT(broken(settings), ElementsAre("safety_class: found " + std::to_string(wrong) +
                                              ", must be 1, 2 or 3"));
  }
}

TEST(SettingsRules, StrengthsAndTheModulusArePositive) {
  for (double model::Material::* member :
       {&model::Material::e, &model::Material::fu, &model::Material::f02_thin,
        &model::Material::f02_thick}) {
    model::Material material = sound_material();
    material.*member = 5e-324;
    EXPECT_THAT(broken(material), IsEmpty());
    for (const double wrong : {0.0, -1.0, 1.1e30, infinity, std::nan("")}) {
      material.*member = wrong;
      EXPECT_EQ(broken(material).size(), 1U) << wrong;
    }
  }
}

TEST(SettingsRules, PoissonsRatioIsPositiveWithoutABoundOfItsOwn) {
  model::Material material = sound_material();
  material.poisson = 0.6;
  EXPECT_THAT(broken(material), IsEmpty());
  for (const double wrong : {0.0, -0.1, std::nan("")}) {
    material.poisson = wrong;
    EXPECT_EQ(broken(material).size(), 1U) << wrong;
  }
}

TEST(SettingsRules, ValuesOfTheUserAreKnownByANameOrAGrade) {
  model::Material material = sound_material();
  material.name.clear();
  EXPECT_THAT(broken(material),
              ElementsAre("name: found none, values of the user must have a name"));
  material.grade = "X1";
  EXPECT_THAT(broken(material), IsEmpty());
}

TEST(SettingsRules, AllFaultsAreFoundInTheOrderOfTheFields) {
  model::Material material;
  material.standard = "user";
  material.e = material.poisson = 0;
  EXPECT_THAT(broken(material),
              ElementsAre("name: found none, values of the user must have a name",
                          "e: found 0, must be above 0 and at most 1e+30",
                          "poisson: found 0, must be above 0 and at most 1e+30",
                          "fu: found 0, must be above 0 and at most 1e+30",
                          "f02_thin: found 0, must be above 0 and at most 1e+30",
                          "f02_thick: found 0, must be above 0 and at most 1e+30"));
}

TEST(SettingsRules, AProofStrengthAboveTheUltimateOneIsNoFault) {
  model::Material material = sound_material();
  material.f02_thin = 10 * material.fu;
  EXPECT_THAT(broken(material), IsEmpty());
}

TEST(SettingsRules, ANameIsOneLine) {
  model::Material material = sound_material();
  material.name = "Alloy\n  MEMBER NO = 77";
  EXPECT_THAT(broken(material), ElementsAre("name: found U+000A behind \"Alloy\", must be one line "
                                            "of text without control characters"));
}

}  // namespace
}  // namespace aluframe::services
