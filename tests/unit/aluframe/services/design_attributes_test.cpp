// Design settings and the design attributes of single elements, as the contract's records.

#include <gtest/gtest.h>

#include "aluframe/services/attributes.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

class DesignAttributesTest : public testing::Test {
 protected:
  model::Model model_ = sample_model();
  UnitScale scale_;
  Attributes attributes_{model_, scale_};
};

/// The record that `read` fetches for element 1 of the sample with one part of its text replaced.
template <class Record>
Record changed(int (Attributes::*read)(UINT, Record&) const, const std::string& part,
               const std::string& replacement) {
  const model::Model model = sample_with(part, replacement);
  const UnitScale scale;
  const Attributes attributes(model, scale);
  Record record;
  EXPECT_EQ((attributes.*read)(1, record), 1);
  return record;
}

TEST_F(DesignAttributesTest, SettingsReachTheirRecord) {
  T_DALU_D settings;
  ASSERT_EQ(attributes_.GetDalu(settings), 1);
  EXPECT_TRUE(settings.strCode == L"GB50429-07(A)");
  EXPECT_EQ(settings.bRib, 0);
  EXPECT_EQ(settings.dRibRatio, 1.1);
  EXPECT_EQ(settings.dStrengthRatio, 0.9);
  EXPECT_EQ(settings.bSeismic, 1);
  EXPECT_EQ(settings.dGammaREStrength, 0.7);
  EXPECT_EQ(settings.dGammaREStability, 0.82);
}

// The user counts safety classes from 1, the record from 0.
TEST_F(DesignAttributesTest, SafetyClassesAreCountedFromZero) {
  for (const int safety_class : {1, 2, 3}) {
    model_.design->safety_class = safety_class;
    T_DALU_D settings;
    ASSERT_EQ(attributes_.GetDalu(settings), 1);
    EXPECT_EQ(settings.nSafetyClass, safety_class - 1);
  }
}

TEST_F(DesignAttributesTest, FlagsOfTheSettingsGoBothWays) {
  model_.design->rib = true;
  model_.design->seismic = false;
  T_DALU_D settings;
  ASSERT_EQ(attributes_.GetDalu(settings), 1);
  EXPECT_EQ(settings.bRib, 1);
  EXPECT_EQ(settings.bSeismic, 0);
}

TEST_F(DesignAttributesTest, BracedAxesReachTheSwayFlags) {
  T_DCTL_D control;
  ASSERT_EQ(attributes_.GetDctl(control), 1);
  EXPECT_EQ(control.nSwayA, 1);
  EXPECT_EQ(control.nSwayB, 0);
  model_.frame = model::FrameSettings{.braced_a = false, .braced_b = true};
  ASSERT_EQ(attributes_.GetDctl(control), 1);
  EXPECT_EQ(control.nSwayA, 0);
  EXPECT_EQ(control.nSwayB, 1);
}

TEST_F(DesignAttributesTest, AModelWithoutSettingsReturns0AndLeavesTheDefaults) {
  model_.design.reset();
  model_.frame.reset();
  T_DALU_D settings;
  settings.dStrengthRatio = 0.42;
  EXPECT_EQ(attributes_.GetDalu(settings), 0);
  EXPECT_EQ(settings.dStrengthRatio, 0.42);
  T_DCTL_D control;
  control.nSwayA = 1;
  EXPECT_EQ(attributes_.GetDctl(control), 0);
  EXPECT_EQ(control.nSwayA, 1);
}

TEST_F(DesignAttributesTest, AttributesOfAnElementReachTheirRecords) {
  T_APHI_D phi;
  ASSERT_EQ(attributes_.GetAphi(1, phi), 1);
  EXPECT_EQ(phi.dPhiY, 0.6);
  EXPECT_EQ(phi.dPhiZ, 0.7);
  T_AWED_D weld;
  ASSERT_EQ(attributes_.GetAwed(1, weld), 1);
  EXPECT_EQ(weld.dCoef, 0.4);
  T_AHTR_D zone;
  ASSERT_EQ(attributes_.GetAhtr(1, zone), 1);
  EXPECT_EQ(zone.dWidth, 20.0);
  T_KFAC_D lengths;
  ASSERT_EQ(attributes_.GetKfac(1, lengths), 1);
  EXPECT_EQ(lengths.dKy, 0.5);
  EXPECT_EQ(lengths.dKz, 2.0);
}

// 0 is the option word of a stiffened section, anything else of one that is not.
TEST_F(DesignAttributesTest, AStiffenedSectionHasTheOptionWord0) {
  T_ARIB_D rib;
  ASSERT_EQ(attributes_.GetArib(1, rib), 1);
  EXPECT_EQ(rib.nOption, 0);
  EXPECT_EQ(rib.dRatio, 1.4);
  rib = changed(&Attributes::GetArib, R"("stiffened": true)", R"("stiffened": false)");
  EXPECT_EQ(rib.nOption, 1);
  EXPECT_EQ(rib.dRatio, 1.4);
}

TEST_F(DesignAttributesTest, AGivenMomentFactorIsNotComputed) {
  T_CMFT_D factors;
  ASSERT_EQ(attributes_.GetCmft(1, factors), 1);
  EXPECT_EQ(factors.aAuto, (std::array<int, 2>{0, 1}));
  EXPECT_EQ(factors.aBetaM, (std::array<double, 2>{0.85, 1.0}));
  EXPECT_EQ(factors.aLoadType, (std::array<int, 2>{0, 2}));
}

TEST_F(DesignAttributesTest, SlendernessThatIsNotCheckedKeepsItsLimits) {
  T_LTSR_D limits;
  ASSERT_EQ(attributes_.GetLtsr(1, limits), 1);
  EXPECT_EQ(limits.bNoCheck, 1);
  EXPECT_EQ(limits.dLimitCompr, 120.0);
  EXPECT_EQ(limits.dLimitTension, 250.0);
  limits = changed(&Attributes::GetLtsr, R"("checked": false, )", "");
  EXPECT_EQ(limits.bNoCheck, 0);
  EXPECT_EQ(limits.dLimitCompr, 120.0);
}

/// Asks for every attribute of an element. @return how many it has
int attributes_of(const Attributes& attributes, UINT elem) {
  T_APHI_D phi;
  T_ARIB_D rib;
  T_AWED_D weld;
  T_AHTR_D zone;
  T_CMFT_D factors;
  T_KFAC_D lengths;
  T_LTSR_D limits;
  return attributes.GetAphi(elem, phi) + attributes.GetArib(elem, rib) +
         attributes.GetAwed(elem, weld) + attributes.GetAhtr(elem, zone) +
         attributes.GetCmft(elem, factors) + attributes.GetKfac(elem, lengths) +
         attributes.GetLtsr(elem, limits);
}

TEST_F(DesignAttributesTest, AnElementHasOnlyTheAttributesThatItWasGiven) {
  EXPECT_EQ(attributes_of(attributes_, 1), 7);
  EXPECT_EQ(attributes_of(attributes_, 2), 0);
  EXPECT_EQ(attributes_of(attributes_, 99), 0);
}

// Coefficients have no unit; the width of the zone is a length.
TEST_F(DesignAttributesTest, OnlyTheWidthOfTheZoneDependsOnTheUnits) {
  scale_ = UnitScale({1, 0});  // kN, m
  T_AHTR_D zone;
  attributes_.GetAhtr(1, zone);
  EXPECT_DOUBLE_EQ(zone.dWidth, 0.02);
  T_KFAC_D lengths;
  attributes_.GetKfac(1, lengths);
  EXPECT_EQ(lengths.dKz, 2.0);
  T_LTSR_D limits;
  attributes_.GetLtsr(1, limits);
  EXPECT_EQ(limits.dLimitCompr, 120.0);
}

}  // namespace
}  // namespace aluframe::services
